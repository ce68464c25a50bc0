package ui.data.kvx;

/**
 * The native methods of the engine, one to one. Handles are opaque numbers; what is wrong with an argument
 * comes back as an exception. {@link ui.data.kvx.client.Engine} is the comfortable way to them.
 *
 * <p>The name is the one that the library exports: its first letter stays small.
 */
public final class kvxi {
  static {
    System.loadLibrary("kvx_engine");
  }

  private kvxi() {}

  // The object.
  public static native long new_KVXEGuiInterface();
  public static native void delete_KVXEGuiInterface(long self);

  // The handshake.
  public static native int KVXEGuiInterface_getKvxHandshakeDataSize(
      long self, byte[] bytes, int length, boolean mockMode, boolean dumpJson, boolean internalView,
      boolean developerView);
  public static native boolean KVXEGuiInterface_getKvxHandshakeDataByteArray(
      long self, byte[] bytes, int length);

  // The choice of the device.
  public static native void KVXEGuiInterface_resetDeviceSelectionDropDowns(long self);
  public static native void KVXEGuiInterface_getDeviceSelectionDropDownsList(long self, long list);
  public static native int KVXEGuiInterface_getDeviceSelectionDropDownValues(long self, int index, long list);
  public static native void KVXEGuiInterface_setDeviceSelectionDropDownCurrentValue(
      long self, int index, String value);
  public static native String KVXEGuiInterface_getSelectedDeviceName(long self);
  public static native String KVXEGuiInterface_getSelectedDeviceToolTip();
  public static native void KVXEGuiInterface_getArchitectureDropDownsList(long self, long list);
  public static native int KVXEGuiInterface_getArchitectureDropDownValues(long self, int index, long list);
  public static native void KVXEGuiInterface_setArchitectureDropDownCurrentValue(
      long self, int index, String value);
  public static native boolean KVXEGuiInterface_hasPartForSelectedArchitecture();

  // The project.
  public static native String KVXEGuiInterface_getProjectPath(long self);
  public static native String KVXEGuiInterface_getProjectFileName(long self);
  public static native String KVXEGuiInterface_getProjectName(long self);
  public static native String KVXEGuiInterface_getCurrentDesignName();

  // Rows of tables.
  public static native boolean KVXEGuiInterface_hasTableEditingFeatures(long self, int tab, int table);
  public static native boolean KVXEGuiInterface_canInsertTableRow(long self, int tab, int table, int row);
  public static native String KVXEGuiInterface_insertTableRow(long self, int tab, int table, int row);
  public static native boolean KVXEGuiInterface_canDeleteTableRows(long self, int tab, int table, long rows);
  public static native String KVXEGuiInterface_deleteTableRows(long self, int tab, int table, long rows);
  public static native boolean KVXEGuiInterface_canDuplicateTableRows(
      long self, int tab, int table, long rows);
  public static native String KVXEGuiInterface_duplicateTableRows(long self, int tab, int table, long rows);
  public static native boolean KVXEGuiInterface_canPasteTableRows(
      long self, int tab, int table, long rows, int target);
  public static native String KVXEGuiInterface_pasteTableRows(
      long self, int tab, int table, long rows, int target);
  public static native boolean KVXEGuiInterface_canFillDownTableRows(
      long self, int tab, int table, long rows);
  public static native String KVXEGuiInterface_fillDownTableRows(long self, int tab, int table, long rows);
  public static native boolean KVXEGuiInterface_canClearTableRows(long self, int tab, int table, long rows);
  public static native String KVXEGuiInterface_clearTableRows(long self, int tab, int table, long rows);
  public static native int KVXEGuiInterface_getGenericTreeTableDataSize(long self, int tab, int table);
  public static native void KVXEGuiInterface_getGenericTreeTableData(
      long self, int tab, int table, byte[] bytes, int length);

  // Undo: there is none.
  public static native boolean KVXEGuiInterface_canUndoLastEditOperation(long self);
  public static native String KVXEGuiInterface_undoLastEditOperation(long self);
  public static native boolean KVXEGuiInterface_canRedoLastUndo(long self);
  public static native String KVXEGuiInterface_redoLastUndo(long self);

  // Vectors of texts.
  public static native long new_StringVector();
  public static native void delete_StringVector(long vector);
  public static native int StringVector_size(long vector);
  public static native String StringVector_get(long vector, int index);
  public static native void StringVector_set(long vector, int index, String value);
  public static native void StringVector_add(long vector, String value);
  public static native void StringVector_clear(long vector);
  public static native boolean StringVector_isEmpty(long vector);

  // Vectors of numbers.
  public static native long new_IntVector();
  public static native void delete_IntVector(long vector);
  public static native int IntVector_size(long vector);
  public static native int IntVector_get(long vector, int index);
  public static native void IntVector_set(long vector, int index, int value);
  public static native void IntVector_add(long vector, int value);
  public static native void IntVector_clear(long vector);
  public static native boolean IntVector_isEmpty(long vector);
}
