#include <exception>

#include "engine/base/export/KVXEExportMgr.h"
#include "engine/base/import/KVXEXmlImportMgr.h"
#include "engine/base/selection/KVXEPartSelection.h"
#include "engine/base/services/KVXEHandshakeDialog.h"
#include "engine/base/tabs/KVXESummaryTab.h"
#include "engine/base/workbook/KVXEBookMgr.h"
#include "engine/swig/KVXEGuiInterface.h"
#include "engine/wizard/base/KVXEWizardMgr.h"

// What each operation of a handshake does. The message holds the request until it is cleared or populated.

namespace {

constexpr int Error = 3;

void tell(int line, const std::string& text) {
  KVXEHandshakeDialog::getGlobal().appendHSMsg("engine/swig/KVXEGuiInterface", line, Error, text);
}

}  // namespace

// The calculation.

void KVXEGuiInterface::handleIncrementalCalculate(bool mockMode) {
  absorbGuiToEngineData(mockMode);
  clearEngineToGuiData();
  incrCalculate(mockMode);
  setProjectSaved(false);
  populateOutgoingProtobuf(mockMode);
}

void KVXEGuiInterface::handleFullCalculate(bool mockMode) {
  absorbGuiToEngineData(mockMode);
  clearEngineToGuiData();
  fullCalculate(mockMode);
  setProjectSaved(false);
  populateOutgoingProtobuf(mockMode);
}

void KVXEGuiInterface::handleTableEditOperation(bool mockMode) {
  clearEngineToGuiData();
  setProjectSaved(false);
  populateOutgoingProtobuf(mockMode);
}

namespace {

/// The tabs of an open book follow the device that the drop-downs have chosen.
void drawTabsOfNewDevice() {
  KVXEPartSelection* selection = KVXEPartSelection::getGlobal();
  if (!selection || KVXEBookMgr::getGlobal().getBookCount() == 0) return;
  if (selection->getDevicePkgTag() != selection->getDevicePkg()) selection->redrawTabs(false);
}

}  // namespace

void KVXEGuiInterface::handleDeviceChange() {
  drawTabsOfNewDevice();
  fullCalculate(false);
  setProjectSaved(false);
  populateOutgoingProtobuf(false);
}

// The project.

void KVXEGuiInterface::handleNewProject() {
  const std::string path = getArgument({KvxOperationData::PROJECT_PATH});
  const std::string importFile = getArgument({KvxOperationData::IMPORT_FILE_PATH});
  clearEngineToGuiData();
  if (!importFile.empty()) {
    if (!importIntoNewProject(importFile)) return;
  } else if (KVXEPartSelection* selection = KVXEPartSelection::getGlobal()) {
    selection->redrawTabs(false);
  } else {
    tell(__LINE__, "The project has no tabs: no device is selected.");
  }
  setProjectSaved(!newProject(path));  // until the first save tells
  fullCalculate(false);
  setProjectSaved(saveProject(""));
  populateOutgoingProtobuf(false);
}

bool KVXEGuiInterface::importIntoNewProject(const std::string& file) {
  std::string reason = " - project was not created.";
  try {
    if (KVXEXmlImportMgr::getGlobal().importLvrFile(file, true, false, false)) return true;
  } catch (const std::exception& exception) {
    if (*exception.what()) reason = std::string(": ") + exception.what();
  }
  if (!KVXEHandshakeDialog::getGlobal().hasMessages())
    tell(__LINE__, "An error occurred attempting to import the .lvr file" + reason);
  setProjectSaved(false);
  return false;
}

void KVXEGuiInterface::handleOpenProject() {
  const bool isOpened = openProject(getArgument({KvxOperationData::PROJECT_PATH}));
  setProjectSaved(!isOpened);  // deliberately so: reading may convert, while a failure has nothing to lose
  clearEngineToGuiData();
  if (!isOpened) return;
  fullCalculate(false);
  populateOutgoingProtobuf(false);
}

void KVXEGuiInterface::saveAndPopulate(const std::string& path) {
  clearEngineToGuiData();
  if (!saveProject(path)) return;
  setProjectSaved(true);
  populateOutgoingProtobuf(false);
}

void KVXEGuiInterface::handleSaveProject() {
  saveAndPopulate("");
}

void KVXEGuiInterface::handleSaveAsProject() {
  saveAndPopulate(getArgument({KvxOperationData::PROJECT_PATH}));
}

void KVXEGuiInterface::handleCloseProject() {
  clearEngineToGuiData();
  if (closeProject()) setProjectSaved(true);
  populateOutgoingProtobuf(false);
}

// Files and dialogs. The reply is what the wizard makes of the message.

void KVXEGuiInterface::handleImportFile() {
  if (isImportLvrFileMenuAction())
    KVXEWizardMgr::getGlobal().initWizard(m_handshakeData.get(), KVXESummaryTab::m_lvrImportButtonUid, "");
}

void KVXEGuiInterface::handleExportFile() {
  const auto [chooser, path] = getFileChooserHandshakeData();
  if (chooser == KVXESummaryTab::m_powerDesignXmlExportButtonUid)
    KVXEExportMgr::getGlobal().exportPowerDesign(path);
}

void KVXEGuiInterface::handleButtonClick() {
  const std::string uid = m_handshakeData->operation().buttondata().genericbutton().uid();
  KVXEWizardMgr::getGlobal().initWizard(m_handshakeData.get(), uid, "");
}

void KVXEGuiInterface::handleDialogPacket() {
  KVXEWizardMgr::getGlobal().updateWizardConfiguration(m_handshakeData.get(), "");
}
