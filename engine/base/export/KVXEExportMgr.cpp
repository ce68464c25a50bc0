#include "engine/base/export/KVXEExportMgr.h"

#include "engine/base/selection/KVXEPartSelection.h"
#include "engine/base/services/KVXEHandshakeDialog.h"

namespace {

constexpr int Error = 3;

bool fail(int line, const std::string& text) {
  KVXEHandshakeDialog::getGlobal().appendHSMsg("engine/base/export/KVXEExportMgr", line, Error, text);
  return false;
}

}  // namespace

KVXEExportMgr& KVXEExportMgr::getGlobal() {
  static KVXEExportMgr manager;
  return manager;
}

bool KVXEExportMgr::exportPowerDesign(const std::string& path) {
  const KVXEPartSelection* selection = KVXEPartSelection::getGlobal();
  if (!selection) return fail(__LINE__, "There is no power design to export: no device is selected.");
  if (selection->getArchName() != KVXEPartSelection::m_arkeonArchName)
    return fail(__LINE__, "The operation is not supported for " + selection->getArchName());
  return fail(__LINE__, path + " cannot be written: power designs cannot be exported yet.");
}
