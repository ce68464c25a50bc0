package ui.data.kvx.test;

import java.util.ArrayList;
import java.util.List;
import java.util.Set;
import ui.data.kvx.client.Column;
import ui.data.kvx.client.Session;
import ui.data.kvx.client.Tab;
import ui.data.kvx.client.Table;
import ui.data.kvx.client.TableOperation;
import ui.data.kvx.client.View;
import ui.data.kvx.messages.KvxHandshakeData;
import ui.data.kvx.messages.KvxTablePacket;

/** One user's session with a device of each architecture; the copy is the engine's book after each reply. */
final class SessionTest {
  private final Session session;
  private final String architecture;

  private SessionTest(Session session, String architecture) {
    this.session = session;
    this.architecture = architecture;
  }

  public static void main(String[] arguments) {
    Check.main("SessionTest " + arguments[0], () -> {
      try (Session session = new Session()) {
        new SessionTest(session, arguments[0]).run();
      }
    });
  }

  private void run() {
    createsProject();
    staysQuietWithoutEdits();
    listsFollow();
    editsEveryTable();
    editsRows();
    looksAsOthers();
    changesDevice();
    savesAndOpens();
    closesAndBeginsAnew();
  }

  private void createsProject() {
    KvxHandshakeData reply = Devices.createProject(session, architecture);
    Check.that(reply.hasBookBundle(), "a new project comes as a bundle");
    Check.that(reply.getStatus().getIsProjectOpen(), "the project is open");
    Check.same("Part: " + session.engine().deviceName(), reply.getStatus().getPartText(), "part");
    Check.that(session.book().tab("CLOCK").isPresent(), "there is a tab for clocks");
    alike("create");
  }

  private void staysQuietWithoutEdits() {
    for (int i = 0; i < 2; ++i) {
      KvxHandshakeData reply = session.update();
      Check.that(reply.hasBookPacket(), "nothing changed comes as a packet");
      Check.same(0, reply.getBookPacket().getSectionsCount(), "sections of an empty packet");
    }
    alike("update");
  }

  /** A clock's name stands in the lists of other tabs, by way of the heads of their columns. */
  private void listsFollow() {
    Tab clocks = session.book().tab("CLOCK").orElseThrow();
    Table rows = clocks.table("CLOCK_CONFIGURATION").orElseThrow();
    List<Session.Edit> edits = List.of(
        new Session.Edit(rows.column("Name").orElseThrow(), "core"),
        new Session.Edit(rows.column("Frequency").orElseThrow(), 300f));
    Check.that(session.edit(clocks, rows, 0, edits).hasBookPacket(), "a packet is enough for a clock");
    Table logic = session.book().tab("LOGIC").orElseThrow().table("LOGIC_CONFIGURATION").orElseThrow();
    int clock = logic.column("Clock").orElseThrow();
    Check.same(List.of("300.000 MHz (core)"), logic.choices(0, clock), "clocks");
    Check.none(session.check(), "a clock");
  }

  private void editsEveryTable() {
    int edited = 0;
    for (Tab each : List.copyOf(session.book().tabs())) {
      for (Table table : each.tables()) edited += edit(each.index(), table.index());
    }
    Check.that(edited > 10, "tables with cells to edit: " + edited);
    Check.none(session.check(), "edits");
  }

  /** Edits the first row that has editable cells: one cell, then all. Tables may come and go meanwhile. */
  private int edit(int tabIndex, int tableIndex) {
    Tab tab = session.book().tab(tabIndex);
    Table table = tab == null ? null : tab.table(tableIndex);
    if (table == null) return 0;
    for (int row = 0; row < table.rows().size(); ++row) {
      List<Session.Edit> edits = edits(table, row);
      if (edits.isEmpty()) continue;
      String place = tab.type() + "/" + table.tag() + "/" + row + " ";
      session.edit(tab, table, row, edits.subList(0, 1));
      alike("set " + place + edits.subList(0, 1));
      if (session.book().tab(tabIndex) != tab || row >= table.rows().size()) return 1;  // came as a bundle
      session.edit(tab, table, row, edits(table, row));
      alike("set " + place + edits);
      return 1;
    }
    return 0;
  }

  private static List<Session.Edit> edits(Table table, int row) {
    List<Session.Edit> edits = new ArrayList<>();
    for (int i = 0; i < table.columns().size(); ++i) {
      if (!table.rows().get(row).cell(i).isEditable()) continue;
      Column column = table.columns().get(i);
      List<String> choices = table.choices(row, i);
      edits.add(new Session.Edit(i, switch (column.kind()) {
        case STRING -> choices.isEmpty() ? "name" + row : choices.get(choices.size() - 1);
        case INT -> 2;
        case FLOAT -> 12.5f;
      }));
    }
    return edits;
  }

  private void editsRows() {
    int tables = 0;
    for (Tab tab : session.book().tabs()) {
      for (Table table : tab.tables()) {
        if (!table.hasTableEditingFeatures() || tables == 2) continue;
        ++tables;
        insertsOnce(tab, table);
        int rows = table.rows().size();
        operate(TableOperation.DUPLICATE, tab, table, List.of(0, 1), 0);
        Check.same(rows + 2, table.rows().size(), "rows after a duplicate");
        operate(TableOperation.PASTE, tab, table, List.of(0), 3);
        operate(TableOperation.FILL_DOWN, tab, table, List.of(3, 4, 5), 0);
        operate(TableOperation.CLEAR, tab, table, List.of(4), 0);
        operate(TableOperation.DELETE, tab, table, List.of(1, 3), 0);
        Check.same(rows, table.rows().size(), "rows after a delete");
      }
    }
    Check.that(tables > 0, "there are tables with rows of the user's own");
    Check.none(session.check(), "edits of rows");
  }

  private void insertsOnce(Tab tab, Table table) {
    int rows = table.rows().size();
    int index = table.rows().get(1).index();
    KvxHandshakeData reply = operate(TableOperation.INSERT, tab, table, List.of(), 1);
    Check.same(rows + 1, table.rows().size(), "rows after an insert");
    List<Integer> added = new ArrayList<>();
    for (var section : reply.getBookPacket().getSectionsList()) {
      for (KvxTablePacket packet : section.getTablesList()) added.addAll(packet.getAddedRowsList());
    }
    Check.same(List.of(index), added, "rows that came");
    Check.same(0, session.update().getBookPacket().getSectionsCount(), "sections after the insert went out");
  }

  private KvxHandshakeData operate(
      TableOperation operation, Tab tab, Table table, List<Integer> rows, int target) {
    String what = operation + " " + tab.type() + "/" + table.tag() + " " + rows + " " + target;
    Check.that(session.engine().can(operation, tab.index(), table.index(), rows, target), "offered: " + what);
    Check.same("", session.engine().perform(operation, tab.index(), table.index(), rows, target), what);
    KvxHandshakeData reply = session.update();
    Check.that(reply.hasBookPacket(), "a packet is enough for " + what);
    alike(what);
    return reply;
  }

  private void looksAsOthers() {
    int seen = Integer.MAX_VALUE;
    for (View view : List.of(View.DEVELOPER, View.INTERNAL, View.EXTERNAL)) {
      Check.that(session.look(view).hasBookBundle(), "another view comes as a bundle");
      alike("a look as " + view);
      Check.that(session.book().tableCount() <= seen, view + " sees no more tables");
      seen = session.book().tableCount();
    }
    session.refresh();
    alike("refresh");
    session.look(View.INTERNAL);
    alike("the look back");
  }

  private void changesDevice() {
    String before = session.engine().deviceName();
    String device = Devices.selectLast(session);
    Check.that(!device.isEmpty() && !device.equals(before), "another device: " + device);
    KvxHandshakeData reply = session.changeDevice();
    Check.same("Part: " + device, reply.getStatus().getPartText(), "part");
    alike("a change of the device");
    Check.none(session.check(), "a change of the device");
  }

  /** What the front end has after opening is what it had before closing. */
  private void savesAndOpens() {
    Check.same("", session.saveProjectAs("saved as.kvx").getMessageDialog().getText(), "save as");
    Check.that(session.saveProject().getStatus().getIsProjectSaved(), "saved");
    Set<String> before = Probe.engineLines();
    session.closeProject();
    KvxHandshakeData reply = session.openProject("saved as.kvx");
    Check.that(reply.hasBookBundle() && reply.getStatus().getIsProjectOpen(), "the opened book comes whole");
    Check.that(!reply.getStatus().getIsProjectSaved(), "reading may have converted it");
    Check.same("saved as", session.engine().projectName(), "name");
    alike("open");
    Check.none(session.check(), "open");
    Set<String> after = Probe.engineLines();
    before.removeAll(after);
    Check.none(List.copyOf(before), "open");
    KvxHandshakeData failed = session.openProject("not there.kvx");
    Check.that(failed.getMessageDialog().getText().contains("not there.kvx do not exist."), "a missing file");
    Check.that(!failed.hasBookBundle() && !failed.hasStatus(), "only the dialog");
  }

  private void closesAndBeginsAnew() {
    Check.that(!session.closeProject().getStatus().getIsProjectOpen(), "the project is closed");
    alike("close");
    Check.that(session.createProject("java_test_again.kvx").hasBookBundle(), "the next comes as a bundle");
    alike("the next create");
  }

  private void alike(String after) {
    Check.none(Probe.differences(session.book()), after);
  }
}
