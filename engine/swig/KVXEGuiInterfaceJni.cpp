#include "engine/swig/JniSupport.h"

// The native methods of the front end's object. What they do is told with KVXEGuiInterface.

using kvxe::jni::Bytes;
using kvxe::jni::call;
using Gui = KVXEGuiInterface;

#define KVX_METHOD(result, name) KVX_NATIVE(result, KVXEGuiInterface_1##name)

KVX_NATIVE(jlong, new_1KVXEGuiInterface)(JNIEnv* env, jclass) {
  return kvxe::jni::create<Gui>(env);
}
KVX_NATIVE(void, delete_1KVXEGuiInterface)(JNIEnv* env, jclass, jlong self) {
  kvxe::jni::destroy<Gui>(env, self);
}

// The handshake.

KVX_METHOD(jint, getKvxHandshakeDataSize)
(JNIEnv* env, jclass, jlong self, jbyteArray array, jint length, jboolean mockMode, jboolean dumpJson,
 jboolean internalView, jboolean developerView) {
  return call(env, self, &Gui::getKvxHandshakeDataSize, Bytes{array, length}, length, mockMode, dumpJson,
              internalView, developerView);
}
KVX_METHOD(jboolean, getKvxHandshakeDataByteArray)
(JNIEnv* env, jclass, jlong self, jbyteArray array, jint length) {
  return call(env, self, &Gui::getKvxHandshakeDataByteArray, Bytes{array, length}, length);
}

// The choice of the device.

KVX_METHOD(void, resetDeviceSelectionDropDowns)(JNIEnv* env, jclass, jlong self) {
  call(env, self, &Gui::resetDeviceSelectionDropDowns);
}
KVX_METHOD(void, getDeviceSelectionDropDownsList)(JNIEnv* env, jclass, jlong self, jlong list) {
  call(env, self, &Gui::getDeviceSelectionDropDownsList, list);
}
KVX_METHOD(jint, getDeviceSelectionDropDownValues)
(JNIEnv* env, jclass, jlong self, jint index, jlong list) {
  return call(env, self, &Gui::getDeviceSelectionDropDownValues, index, list);
}
KVX_METHOD(void, setDeviceSelectionDropDownCurrentValue)
(JNIEnv* env, jclass, jlong self, jint index, jstring value) {
  call(env, self, &Gui::setDeviceSelectionDropDownCurrentValue, index, value);
}
KVX_METHOD(jstring, getSelectedDeviceName)(JNIEnv* env, jclass, jlong self) {
  return call(env, self, &Gui::getSelectedDeviceName);
}
KVX_METHOD(jstring, getSelectedDeviceToolTip)(JNIEnv* env, jclass) {
  return call(env, &Gui::getSelectedDeviceToolTip);
}
KVX_METHOD(void, getArchitectureDropDownsList)(JNIEnv* env, jclass, jlong self, jlong list) {
  call(env, self, &Gui::getArchitectureDropDownsList, list);
}
KVX_METHOD(jint, getArchitectureDropDownValues)(JNIEnv* env, jclass, jlong self, jint index, jlong list) {
  return call(env, self, &Gui::getArchitectureDropDownValues, index, list);
}
KVX_METHOD(void, setArchitectureDropDownCurrentValue)
(JNIEnv* env, jclass, jlong self, jint index, jstring value) {
  call(env, self, &Gui::setArchitectureDropDownCurrentValue, index, value);
}
KVX_METHOD(jboolean, hasPartForSelectedArchitecture)(JNIEnv* env, jclass) {
  return call(env, &Gui::hasPartForSelectedArchitecture);
}

// The project.

KVX_METHOD(jstring, getProjectPath)(JNIEnv* env, jclass, jlong self) {
  return call(env, self, &Gui::getProjectPath);
}
KVX_METHOD(jstring, getProjectFileName)(JNIEnv* env, jclass, jlong self) {
  return call(env, self, &Gui::getProjectFileName);
}
KVX_METHOD(jstring, getProjectName)(JNIEnv* env, jclass, jlong self) {
  return call(env, self, &Gui::getProjectName);
}
KVX_METHOD(jstring, getCurrentDesignName)(JNIEnv* env, jclass) {
  return call(env, &Gui::getCurrentDesignName);
}

// Rows of tables.

KVX_METHOD(jboolean, hasTableEditingFeatures)(JNIEnv* env, jclass, jlong self, jint tab, jint table) {
  return call(env, self, &Gui::hasTableEditingFeatures, tab, table);
}
KVX_METHOD(jboolean, canInsertTableRow)(JNIEnv* env, jclass, jlong self, jint tab, jint table, jint row) {
  return call(env, self, &Gui::canInsertTableRow, tab, table, row);
}
KVX_METHOD(jstring, insertTableRow)(JNIEnv* env, jclass, jlong self, jint tab, jint table, jint row) {
  return call(env, self, &Gui::insertTableRow, tab, table, row);
}
KVX_METHOD(jboolean, canDeleteTableRows)(JNIEnv* env, jclass, jlong self, jint tab, jint table, jlong rows) {
  return call(env, self, &Gui::canDeleteTableRows, tab, table, rows);
}
KVX_METHOD(jstring, deleteTableRows)(JNIEnv* env, jclass, jlong self, jint tab, jint table, jlong rows) {
  return call(env, self, &Gui::deleteTableRows, tab, table, rows);
}
KVX_METHOD(jboolean, canDuplicateTableRows)
(JNIEnv* env, jclass, jlong self, jint tab, jint table, jlong rows) {
  return call(env, self, &Gui::canDuplicateTableRows, tab, table, rows);
}
KVX_METHOD(jstring, duplicateTableRows)(JNIEnv* env, jclass, jlong self, jint tab, jint table, jlong rows) {
  return call(env, self, &Gui::duplicateTableRows, tab, table, rows);
}
KVX_METHOD(jboolean, canPasteTableRows)
(JNIEnv* env, jclass, jlong self, jint tab, jint table, jlong rows, jint target) {
  return call(env, self, &Gui::canPasteTableRows, tab, table, rows, target);
}
KVX_METHOD(jstring, pasteTableRows)
(JNIEnv* env, jclass, jlong self, jint tab, jint table, jlong rows, jint target) {
  return call(env, self, &Gui::pasteTableRows, tab, table, rows, target);
}
KVX_METHOD(jboolean, canFillDownTableRows)
(JNIEnv* env, jclass, jlong self, jint tab, jint table, jlong rows) {
  return call(env, self, &Gui::canFillDownTableRows, tab, table, rows);
}
KVX_METHOD(jstring, fillDownTableRows)(JNIEnv* env, jclass, jlong self, jint tab, jint table, jlong rows) {
  return call(env, self, &Gui::fillDownTableRows, tab, table, rows);
}
KVX_METHOD(jboolean, canClearTableRows)(JNIEnv* env, jclass, jlong self, jint tab, jint table, jlong rows) {
  return call(env, self, &Gui::canClearTableRows, tab, table, rows);
}
KVX_METHOD(jstring, clearTableRows)(JNIEnv* env, jclass, jlong self, jint tab, jint table, jlong rows) {
  return call(env, self, &Gui::clearTableRows, tab, table, rows);
}
KVX_METHOD(jint, getGenericTreeTableDataSize)(JNIEnv* env, jclass, jlong self, jint tab, jint table) {
  return call(env, self, &Gui::getGenericTreeTableDataSize, tab, table);
}
KVX_METHOD(void, getGenericTreeTableData)
(JNIEnv* env, jclass, jlong self, jint tab, jint table, jbyteArray array, jint length) {
  call(env, self, &Gui::getGenericTreeTableData, tab, table, Bytes{array, length}, length);
}
KVX_METHOD(jboolean, canUndoLastEditOperation)(JNIEnv* env, jclass, jlong self) {
  return call(env, self, &Gui::canUndoLastEditOperation);
}
KVX_METHOD(jstring, undoLastEditOperation)(JNIEnv* env, jclass, jlong self) {
  return call(env, self, &Gui::undoLastEditOperation);
}
KVX_METHOD(jboolean, canRedoLastUndo)(JNIEnv* env, jclass, jlong self) {
  return call(env, self, &Gui::canRedoLastUndo);
}
KVX_METHOD(jstring, redoLastUndo)(JNIEnv* env, jclass, jlong self) {
  return call(env, self, &Gui::redoLastUndo);
}
