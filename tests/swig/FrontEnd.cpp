#include "tests/swig/FrontEnd.h"

#include "engine/base/services/KVXEHandshakeDialog.h"
#include "engine/swig/KVXEPBHelper.h"
#include "tests/kit/Captured.h"

FrontEnd::~FrontEnd() {
  m_gui->closeProject();
  KVXEHandshakeDialog::getGlobal().reset();
}

void FrontEnd::restart() {
  m_gui.reset();
  m_gui = std::make_unique<KVXEGuiInterface>();
}

void FrontEnd::readDropDowns() {
  std::vector<std::string> names, values;
  m_gui->getDeviceSelectionDropDownsList(names);
  for (int i = 0; i < static_cast<int>(names.size()); ++i) m_gui->getDeviceSelectionDropDownValues(i, values);
}

void FrontEnd::chooseArchitecture(const std::string& name) {
  m_gui->setArchitectureDropDownCurrentValue(0, name);
  m_gui->resetDeviceSelectionDropDowns();
  readDropDowns();
}

void FrontEnd::choose(const std::string& dropDown, const std::string& value) {
  std::vector<std::string> names;
  m_gui->getDeviceSelectionDropDownsList(names);
  const auto found = std::find(names.begin(), names.end(), dropDown);
  ASSERT_NE(found, names.end()) << dropDown;
  m_gui->setDeviceSelectionDropDownCurrentValue(static_cast<int>(found - names.begin()), value);
  readDropDowns();
}

KvxHandshakeData FrontEnd::createProject(const std::string& architecture, const std::string& path) {
  chooseArchitecture(architecture);
  return send(Op::CREATE_PROJECT, {{Op::PROJECT_PATH, path}});
}

KvxHandshakeData FrontEnd::request(KvxOperationData_OperationType type, const Arguments& arguments) {
  KvxHandshakeData message;
  message.mutable_operation()->set_type(type);
  for (const auto& [argument, value] : arguments) {
    auto* pair = message.mutable_operation()->add_arguments();
    pair->set_type(argument);
    pair->set_value(value);
  }
  return message;
}

unsigned int FrontEnd::sendBytes(std::string bytes, Flags flags) {
  return m_gui->getKvxHandshakeDataSize(reinterpret_cast<unsigned char*>(bytes.data()),
                                        static_cast<int>(bytes.size()), flags.mockMode, flags.dumpJson,
                                        flags.internalView, flags.developerView);
}

KvxHandshakeData FrontEnd::fetch(unsigned int size) {
  std::string bytes(size, '\0');
  KvxHandshakeData message;
  EXPECT_TRUE(m_gui->getKvxHandshakeDataByteArray(reinterpret_cast<unsigned char*>(bytes.data()),
                                                  static_cast<int>(size)));
  EXPECT_TRUE(message.ParseFromString(bytes));
  return message;
}

KvxHandshakeData FrontEnd::send(const KvxHandshakeData& message, Flags flags) {
  return fetch(sendBytes(message.SerializeAsString(), flags));
}

KvxHandshakeData FrontEnd::send(KvxOperationData_OperationType type, const Arguments& arguments) {
  return send(request(type, arguments));
}

std::string partsOf(const KvxHandshakeData& message) {
  std::vector<const google::protobuf::FieldDescriptor*> fields;
  message.GetReflection()->ListFields(message, &fields);
  std::string names;
  for (const auto* field : fields) names += (names.empty() ? "" : ", ") + field->name();
  return names;
}

KvxStatusData projectStatus() {
  Captured captured;
  KvxStatusData status;
  KVXEPBHelper::getGlobal().populate(&status);
  return status;
}
