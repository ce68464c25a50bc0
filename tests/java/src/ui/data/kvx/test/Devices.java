package ui.data.kvx.test;

import java.util.List;
import java.util.Map;
import ui.data.kvx.client.DropDown;
import ui.data.kvx.client.Session;
import ui.data.kvx.messages.KvxHandshakeData;

/** The way to an open project, by architecture. */
final class Devices {
  private static final Map<String, String> SCREEN_NAMES =
      Map.of("Tarvek", "Arkeon", "Morlan", "Hexaline+", "Som", "Ludra");

  private Devices() {}

  /** Chooses the architecture's default device and creates a project. */
  static KvxHandshakeData createProject(Session session, String architecture) {
    session.engine().setArchitecture(SCREEN_NAMES.get(architecture));
    session.engine().resetDropDowns();
    return session.createProject("java_test_" + architecture + ".kvx");
  }

  /** Goes through the drop-downs from first to last and takes the last value of each; gives the device. */
  static String selectLast(Session session) {
    List<DropDown> dropDowns = session.engine().dropDowns();
    for (int i = 0; i < dropDowns.size(); ++i) {
      List<String> values = session.engine().dropDowns().get(i).values();
      session.engine().setDropDown(i, values.get(values.size() - 1));
    }
    session.engine().dropDowns();
    return session.engine().deviceName();
  }
}
