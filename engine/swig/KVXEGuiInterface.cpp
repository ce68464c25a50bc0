#include "engine/swig/KVXEGuiInterface.h"

#include <iostream>
#include <stdexcept>

#include "engine/base/calculation/KVXECalculationMgr.h"
#include "engine/base/project/KVXEPrjMgr.h"
#include "engine/base/selection/KVXEPartSelection.h"
#include "engine/base/services/KVXEHandshakeDialog.h"
#include "engine/base/services/KVXEParamControlMgr.h"
#include "engine/base/workbook/KVXEBookMgr.h"
#include "engine/base/workbook/KVXECellStateMgr.h"
#include "engine/swig/HandshakeDump.h"
#include "engine/swig/KVXEPBHelper.h"
#include "engine/wizard/base/KVXEWizardMgr.h"

using KVXEEnums::Visibility;

KVXEGuiInterface::KVXEGuiInterface() : m_handshakeData(std::make_unique<KvxHandshakeData>()) {}

KVXEGuiInterface::~KVXEGuiInterface() {
  m_handshakeData.reset();
  KVXEPartSelection::resetPartSelection();
}

// The operations.

struct KVXEGuiInterface::Operation {
  KvxOperationData_OperationType type;
  const char* text;
  void (KVXEGuiInterface::*handler)();          // mock mode skips it
  void (KVXEGuiInterface::*mockHandler)(bool);  // in its place: runs in mock mode, too
};

const KVXEGuiInterface::Operation* KVXEGuiInterface::findOperation(KvxOperationData_OperationType type) {
  using Gui = KVXEGuiInterface;
  using Type = KvxOperationData;
  static constexpr Operation operations[] = {
      {Type::CREATE_PROJECT, "Create Project", &Gui::handleNewProject, nullptr},
      {Type::OPEN_PROJECT, "Open Project", &Gui::handleOpenProject, nullptr},
      {Type::SAVE_PROJECT, "Save Project", &Gui::handleSaveProject, nullptr},
      {Type::SAVE_AS_PROJECT, "Save as Project", &Gui::handleSaveAsProject, nullptr},
      {Type::CLOSE_PROJECT, "Close Project", &Gui::handleCloseProject, nullptr},
      {Type::IMPORT_FILE, "Import File", &Gui::handleImportFile, nullptr},
      {Type::EXPORT_FILE, "Export File", &Gui::handleExportFile, nullptr},
      {Type::DEVICE_CHANGE, "Device Change", &Gui::handleDeviceChange, nullptr},
      {Type::INCREMENTAL_CALCULATION, "Incremental Calculation", nullptr, &Gui::handleIncrementalCalculate},
      {Type::REFRESH, "Refresh", nullptr, &Gui::handleFullCalculate},
      {Type::BUTTON_PRESS, "Button Press", &Gui::handleButtonClick, nullptr},
      {Type::DIALOG_PACKET, "", &Gui::handleDialogPacket, nullptr},
      {Type::TABLE_EDIT, "", nullptr, &Gui::handleTableEditOperation},
  };
  for (const Operation& operation : operations)
    if (operation.type == type) return &operation;
  return nullptr;
}

std::string KVXEGuiInterface::getOperationString(KvxOperationData_OperationType type) {
  const Operation* operation = findOperation(type);
  return operation ? operation->text : "";
}

// The handshake.

namespace {

/// The signature stands in what is printed about a dump.
void dump(const KvxHandshakeData& message, const char* name, int line) {
  std::cout
      << kvxe::dumpHandshake(message, name) << " file written (@Line:" << std::to_string(line)
      << " - unsigned int KVXEGuiInterface::getKvxHandshakeDataSize(unsigned char*, int, bool, bool, bool, "
         "bool))"
      << '\n';
}

}  // namespace

unsigned int KVXEGuiInterface::getKvxHandshakeDataSize(unsigned char* bytes, int length, bool mockMode,
                                                       bool dumpJson, bool internalView, bool developerView) {
  if (length == 0) return 0;
  try {
    serveRequest(bytes, length, mockMode, dumpJson,
                 developerView  ? Visibility::DEVELOPER
                 : internalView ? Visibility::INTERNAL
                                : Visibility::EXTERNAL);
    return static_cast<unsigned int>(m_handshakeData->ByteSizeLong());
  } catch (...) {
    m_handshakeData->Clear();
    throw;
  }
}

void KVXEGuiInterface::serveRequest(unsigned char* bytes, int length, bool mockMode, bool dumpJson,
                                    Visibility visibility) {
  if (length < 0 || length > MaxRequestSize)
    throw std::length_error("Request of " + std::to_string(length) + " bytes: it must have " +
                            std::to_string(MaxRequestSize) +
                            " at most. Send the changes in several requests.");
  if (!bytes) throw std::invalid_argument("Request without bytes");
  // A cleared message keeps its memory for the next, which after a large request is too much to keep.
  if (std::exchange(m_isOversized, length > LargeRequestSize))
    m_handshakeData = std::make_unique<KvxHandshakeData>();
  m_handshakeData->Clear();
  m_handshakeData->ParseFromArray(bytes, length);

  bool isDumping = false;
  KVXEParamControlMgr::getGlobal().getParam("DUMP_PROTO_JSON", isDumping);
  isDumping |= dumpJson;
  if (isDumping) dump(*m_handshakeData, "GuiToEngineHandshake", __LINE__);
  KVXEPBHelper::getGlobal().setVisibility(visibility);
  if (m_handshakeData->has_operation()) applyOperation(mockMode);
  if (isDumping) dump(*m_handshakeData, "EngineToGuiHandshake", __LINE__);
}

void KVXEGuiInterface::applyOperation(bool mockMode) {
  // Handlers clear the message, so what is needed after them is copied out.
  const KvxOperationData_OperationType type = m_handshakeData->operation().type();
  const Operation* operation = findOperation(type);
  if (operation && operation->mockHandler) (this->*operation->mockHandler)(mockMode);
  if (operation && operation->handler && !mockMode) (this->*operation->handler)();

  KvxMessageDialogData* dialog =
      KVXEHandshakeDialog::getGlobal().populateMessageDialogData(m_handshakeData.get());
  if (dialog && !dialog->has_title()) dialog->set_title(getOperationString(type));
}

bool KVXEGuiInterface::getKvxHandshakeDataByteArray(unsigned char* bytes, int length) {
  return m_handshakeData->SerializeToArray(bytes, length);
}

// The request's arguments.

const std::string* KVXEGuiInterface::findArgument(
    std::initializer_list<KvxOperationData_ArgumentType> types) const {
  const auto& arguments = m_handshakeData->operation().arguments();
  for (auto argument = arguments.rbegin(); argument != arguments.rend(); ++argument)
    if (std::find(types.begin(), types.end(), argument->type()) != types.end()) return &argument->value();
  return nullptr;
}

std::string KVXEGuiInterface::getArgument(std::initializer_list<KvxOperationData_ArgumentType> types) const {
  const std::string* value = findArgument(types);
  return value ? *value : std::string();
}

std::pair<std::string, std::string> KVXEGuiInterface::getFileChooserHandshakeData() const {
  return {getArgument({KvxOperationData::FILE_CHOOSER_UID}),
          getArgument({KvxOperationData::FILE_PATH, KvxOperationData::CHOSEN_FILE_PATH})};
}

bool KVXEGuiInterface::isImportLvrFileMenuAction() const {
  return findArgument({KvxOperationData::IMPORT_FILE_PATH}) != nullptr;
}

// The steps of handshakes.

namespace {

void printUnless(bool isDone, const char* text) {
  if (!isDone) std::cout << text << '\n';
}

}  // namespace

void KVXEGuiInterface::absorbGuiToEngineData(bool) {
  printUnless(KVXEPBHelper::getGlobal().absorb(m_handshakeData.get()),
              "Error occured in absorbing data from GUI to Engine");
}

void KVXEGuiInterface::clearEngineToGuiData() {
  m_handshakeData->Clear();
}

void KVXEGuiInterface::populateOutgoingProtobuf(bool) {
  printUnless(KVXEPBHelper::getGlobal().populate(m_handshakeData.get()),
              "Error occured in populating data for GUI Update");
}

void KVXEGuiInterface::fullCalculate(bool mockMode) {
  printUnless(mockMode || KVXECalculationMgr::getGlobal().fullCalculate(),
              "Error occured in full-calculation for GUI Update");
}

void KVXEGuiInterface::incrCalculate(bool mockMode) {
  printUnless(mockMode || KVXECalculationMgr::getGlobal().incrCalculate(),
              "Error occured in incremental-calculation for GUI Update");
}

void KVXEGuiInterface::setProjectSaved(bool isSaved) {
  KVXEPBHelper::getGlobal().setProjectSaved(isSaved);
}

bool KVXEGuiInterface::newProject(const std::string& path) {
  return KVXEPrjMgr::getGlobal().newProject(path);
}

bool KVXEGuiInterface::openProject(const std::string& path) {
  return KVXEPrjMgr::getGlobal().openProject(path);
}

bool KVXEGuiInterface::saveProject(const std::string& path) {
  return KVXEPrjMgr::getGlobal().saveProject(path);
}

bool KVXEGuiInterface::closeProject() {
  KVXEWizardMgr::getGlobal().resetVariables();
  KVXEBookMgr::getGlobal().closeProject();
  KVXECellStateMgr::getGlobal().requestGuiRedraw();  // a packet could not say that the tabs are gone
  return KVXEPrjMgr::getGlobal().closeProject();
}
