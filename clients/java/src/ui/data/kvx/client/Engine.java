package ui.data.kvx.client;

import com.google.protobuf.InvalidProtocolBufferException;
import java.util.ArrayList;
import java.util.List;
import ui.data.kvx.kvxi;
import ui.data.kvx.messages.GenericTreeTableData;
import ui.data.kvx.messages.KvxHandshakeData;

/**
 * The engine: the native methods with Java's types. One at a time lives in a process, and one thread at a
 * time calls it. Closing it forgets the choice of the device; the book and the project are closed by a
 * handshake before.
 */
public final class Engine implements AutoCloseable {
  private final long handle = kvxi.new_KVXEGuiInterface();

  public long handle() {
    return handle;
  }

  @Override
  public void close() {
    kvxi.delete_KVXEGuiInterface(handle);
  }

  // The handshake.

  /** Sends a request and fetches the reply: the first call applies it, the second brings the bytes. */
  public KvxHandshakeData handshake(KvxHandshakeData request, View view, boolean dumpJson) {
    try {
      return KvxHandshakeData.parseFrom(handshake(request.toByteArray(), view, dumpJson));
    } catch (InvalidProtocolBufferException e) {
      throw new IllegalStateException("The engine's reply is no KvxHandshakeData: " + e.getMessage(), e);
    }
  }

  /** As above with the bytes as they travel. */
  public byte[] handshake(byte[] request, View view, boolean dumpJson) {
    int size = kvxi.KVXEGuiInterface_getKvxHandshakeDataSize(
        handle, request, request.length, false, dumpJson, view == View.INTERNAL, view == View.DEVELOPER);
    byte[] reply = new byte[size];
    if (size > 0 && !kvxi.KVXEGuiInterface_getKvxHandshakeDataByteArray(handle, reply, size)) {
      throw new IllegalStateException("The engine's reply does not fit in the " + size + " bytes it named");
    }
    return reply;
  }

  // The choice of the device.

  /** The architectures as they are called on screen. */
  public List<String> architectures() {
    try (StringVector names = new StringVector()) {
      kvxi.KVXEGuiInterface_getArchitectureDropDownValues(handle, 0, names.handle());
      return names.toList();
    }
  }

  public void setArchitecture(String name) {
    kvxi.KVXEGuiInterface_setArchitectureDropDownCurrentValue(handle, 0, name);
  }

  /**
   * The drop-downs of the device from first to last. The order matters: reading a drop-down settles its value
   * by those before it.
   */
  public List<DropDown> dropDowns() {
    List<String> names;
    try (StringVector list = new StringVector()) {
      kvxi.KVXEGuiInterface_getDeviceSelectionDropDownsList(handle, list.handle());
      names = list.toList();
    }
    List<DropDown> dropDowns = new ArrayList<>();
    for (int i = 0; i < names.size(); ++i) dropDowns.add(dropDown(i, names.get(i)));
    return dropDowns;
  }

  private DropDown dropDown(int index, String name) {
    try (StringVector values = new StringVector()) {
      int selected =
          kvxi.KVXEGuiInterface_getDeviceSelectionDropDownValues(handle, index, values.handle());
      return new DropDown(index, name, values.toList(), selected);
    }
  }

  public void setDropDown(int index, String value) {
    kvxi.KVXEGuiInterface_setDeviceSelectionDropDownCurrentValue(handle, index, value);
  }

  /** Sets the drop-downs to the architecture's default device. */
  public void resetDropDowns() {
    kvxi.KVXEGuiInterface_resetDeviceSelectionDropDowns(handle);
  }

  /** The part's name; empty before an architecture was chosen. */
  public String deviceName() {
    return kvxi.KVXEGuiInterface_getSelectedDeviceName(handle);
  }

  // The project.

  public String projectPath() {
    return kvxi.KVXEGuiInterface_getProjectPath(handle);
  }

  public String projectName() {
    return kvxi.KVXEGuiInterface_getProjectName(handle);
  }

  // Rows of tables. A table is named by the indices of its tab and of itself, rows count from 0 on screen.

  public boolean hasTableEditingFeatures(int tab, int table) {
    return kvxi.KVXEGuiInterface_hasTableEditingFeatures(handle, tab, table);
  }

  /** Whether the menu offers the operation; `target` is the row to insert at or to paste to. */
  public boolean can(TableOperation operation, int tab, int table, List<Integer> rows, int target) {
    try (IntVector vector = IntVector.of(rows)) {
      long list = vector.handle();
      return switch (operation) {
        case INSERT -> kvxi.KVXEGuiInterface_canInsertTableRow(handle, tab, table, target);
        case DELETE -> kvxi.KVXEGuiInterface_canDeleteTableRows(handle, tab, table, list);
        case DUPLICATE -> kvxi.KVXEGuiInterface_canDuplicateTableRows(handle, tab, table, list);
        case PASTE -> kvxi.KVXEGuiInterface_canPasteTableRows(handle, tab, table, list, target);
        case FILL_DOWN -> kvxi.KVXEGuiInterface_canFillDownTableRows(handle, tab, table, list);
        case CLEAR -> kvxi.KVXEGuiInterface_canClearTableRows(handle, tab, table, list);
      };
    }
  }

  /** Carries the operation out; gives an empty text, or what went wrong. A handshake then tells the rest. */
  public String perform(TableOperation operation, int tab, int table, List<Integer> rows, int target) {
    try (IntVector vector = IntVector.of(rows)) {
      long list = vector.handle();
      return switch (operation) {
        case INSERT -> kvxi.KVXEGuiInterface_insertTableRow(handle, tab, table, target);
        case DELETE -> kvxi.KVXEGuiInterface_deleteTableRows(handle, tab, table, list);
        case DUPLICATE -> kvxi.KVXEGuiInterface_duplicateTableRows(handle, tab, table, list);
        case PASTE -> kvxi.KVXEGuiInterface_pasteTableRows(handle, tab, table, list, target);
        case FILL_DOWN -> kvxi.KVXEGuiInterface_fillDownTableRows(handle, tab, table, list);
        case CLEAR -> kvxi.KVXEGuiInterface_clearTableRows(handle, tab, table, list);
      };
    }
  }

  /** Whether an edit can be taken back. */
  public boolean canUndo() {
    return kvxi.KVXEGuiInterface_canUndoLastEditOperation(handle);
  }

  /** Whether an edit that was taken back can be done again. */
  public boolean canRedo() {
    return kvxi.KVXEGuiInterface_canRedoLastUndo(handle);
  }

  /** One table as it stands now, without a handshake. */
  public GenericTreeTableData table(int tab, int table) {
    byte[] bytes = new byte[kvxi.KVXEGuiInterface_getGenericTreeTableDataSize(handle, tab, table)];
    kvxi.KVXEGuiInterface_getGenericTreeTableData(handle, tab, table, bytes, bytes.length);
    try {
      return GenericTreeTableData.parseFrom(bytes);
    } catch (InvalidProtocolBufferException e) {
      throw new IllegalStateException("The engine's table is no GenericTreeTableData: " + e.getMessage(), e);
    }
  }
}
