#include "engine/base/import/KVXEXmlImportMgr.h"

#include "engine/base/services/KVXEHandshakeDialog.h"

KVXEXmlImportMgr& KVXEXmlImportMgr::getGlobal() {
  static KVXEXmlImportMgr manager;
  return manager;
}

bool KVXEXmlImportMgr::importLvrFile(const std::string& path, bool, bool, bool) {
  KVXEHandshakeDialog::getGlobal().appendHSMsg(
      "engine/base/import/KVXEXmlImportMgr", __LINE__, 3,
      path + " cannot be imported: .lvr files cannot be read yet. Enter the estimate in the tables instead.");
  return false;
}
