#include <stdexcept>

#include "engine/base/selection/KVXEPartSelection.h"
#include "engine/base/services/KVXEHandshakeDialog.h"
#include "engine/swig/KVXEPBHelper.h"
#include "tests/kit/Captured.h"
#include "tests/swig/FrontEnd.h"

using ::testing::EndsWith;
using ::testing::HasSubstr;
using Op = KvxOperationData;

namespace {

void tellUser(const std::string& text, int line = 1) {
  KVXEHandshakeDialog::getGlobal().appendHSMsg("somewhere", line, 3, text);
}

TEST(Handshake, ReplyStaysUntilTheNextRequest) {
  FrontEnd frontEnd;
  EXPECT_EQ(partsOf(frontEnd.fetch(0)), "");
  frontEnd.createProject(KVXEPartSelection::m_morlanArchName);
  const unsigned int size = frontEnd.sendBytes(FrontEnd::request(Op::TABLE_EDIT).SerializeAsString());
  EXPECT_EQ(frontEnd.sendBytes(""), 0u);
  const std::string reply = frontEnd.fetch(size).SerializeAsString();
  EXPECT_EQ(frontEnd.fetch(size).SerializeAsString(), reply);
  std::string shorter(size - 1, '\0');
  EXPECT_FALSE(frontEnd.gui().getKvxHandshakeDataByteArray(reinterpret_cast<unsigned char*>(shorter.data()),
                                                           static_cast<int>(size) - 1));
  EXPECT_EQ(frontEnd.fetch(size).SerializeAsString(), reply);
}

TEST(Handshake, RequestWithoutOperationComesBackAndMessagesWait) {
  FrontEnd frontEnd;
  KvxHandshakeData message;
  message.mutable_bookpacket()->add_sections()->set_tabindex(3);
  tellUser("later");
  EXPECT_EQ(frontEnd.send(message).SerializeAsString(), message.SerializeAsString());
  EXPECT_EQ(frontEnd.send(Op::DIALOG_PACKET).messagedialog().text(), "later\n");
  EXPECT_EQ(partsOf(frontEnd.send(Op::DIALOG_PACKET)), "");
}

TEST(Handshake, OperationWithoutHandlerBringsMessagesOnly) {
  FrontEnd frontEnd;
  const auto bytesOf = [](int type) {
    return std::string{'\x1A', '\x02', '\x08', static_cast<char>(type)};  // operation { type }
  };
  for (const int type : {0, 6, 7, 15, 17, 99}) {
    SCOPED_TRACE(type);
    EXPECT_EQ(frontEnd.sendBytes(bytesOf(type)), 4u);
    tellUser("word");
    const KvxHandshakeData reply = frontEnd.fetch(frontEnd.sendBytes(bytesOf(type)));
    EXPECT_EQ(partsOf(reply), "operation, messageDialog");
    EXPECT_TRUE(reply.messagedialog().has_title());
    EXPECT_EQ(reply.messagedialog().title(), "");
  }
}

TEST(Handshake, DialogBearsTheOperationsName) {
  const struct {
    KvxOperationData_OperationType type;
    const char* title;
  } cases[] = {
      {Op::CREATE_PROJECT, "Create Project"},
      {Op::OPEN_PROJECT, "Open Project"},
      {Op::SAVE_PROJECT, "Save Project"},
      {Op::SAVE_AS_PROJECT, "Save as Project"},
      {Op::CLOSE_PROJECT, "Close Project"},
      {Op::IMPORT_FILE, "Import File"},
      {Op::EXPORT_FILE, "Export File"},
      {Op::DEVICE_CHANGE, "Device Change"},
      {Op::INCREMENTAL_CALCULATION, "Incremental Calculation"},
      {Op::REFRESH, "Refresh"},
      {Op::BUTTON_PRESS, "Button Press"},
      {Op::DIALOG_PACKET, ""},
      {Op::TABLE_EDIT, ""},
  };
  FrontEnd frontEnd;
  for (const auto& [type, title] : cases) {
    tellUser("word");
    EXPECT_EQ(frontEnd.send(FrontEnd::request(type), {.mockMode = true}).messagedialog().title(), title);
    EXPECT_EQ(KVXEGuiInterface::getOperationString(type), title);
  }
  KVXEHandshakeDialog::getGlobal().appendHSMsg("somewhere", 1, 3, "word", "Own Title");
  EXPECT_EQ(frontEnd.send(Op::REFRESH).messagedialog().title(), "Own Title");
}

TEST(Handshake, OnlyCalculatingOperationsRunInMockMode) {
  FrontEnd frontEnd;
  frontEnd.createProject(KVXEPartSelection::m_morlanArchName);
  for (const auto type :
       {Op::CREATE_PROJECT, Op::OPEN_PROJECT, Op::SAVE_PROJECT, Op::SAVE_AS_PROJECT, Op::CLOSE_PROJECT,
        Op::IMPORT_FILE, Op::EXPORT_FILE, Op::DEVICE_CHANGE, Op::BUTTON_PRESS, Op::DIALOG_PACKET}) {
    const KvxHandshakeData message =
        FrontEnd::request(type, {{Op::PROJECT_PATH, "/tmp/other.kvx"}, {Op::IMPORT_FILE_PATH, "x.lvr"}});
    EXPECT_EQ(frontEnd.send(message, {.mockMode = true}).SerializeAsString(), message.SerializeAsString());
  }
  EXPECT_EQ(frontEnd.gui().getProjectName(), "design");
  for (const auto type : {Op::INCREMENTAL_CALCULATION, Op::REFRESH, Op::TABLE_EDIT})
    EXPECT_EQ(partsOf(frontEnd.send(FrontEnd::request(type), {.mockMode = true})), "bookPacket, status");
}

TEST(Handshake, ViewerIsTheMostPrivilegedFlag) {
  using enum KVXEEnums::Visibility;
  const struct {
    bool internal, developer;
    KVXEEnums::Visibility visibility;
  } cases[] = {
      {false, false, EXTERNAL}, {true, false, INTERNAL}, {false, true, DEVELOPER}, {true, true, DEVELOPER}};
  FrontEnd frontEnd;
  for (const auto& [internal, developer, visibility] : cases) {
    frontEnd.send(KvxHandshakeData(FrontEnd::request(Op::UNUSED_6)),
                  {.internalView = internal, .developerView = developer});
    EXPECT_EQ(KVXEPBHelper::getGlobal().getVisibility(), visibility);
  }
}

TEST(Handshake, NewViewerGetsTheWholeBook) {
  FrontEnd frontEnd;
  frontEnd.createProject(KVXEPartSelection::m_morlanArchName);
  const KvxHandshakeData refresh = FrontEnd::request(Op::TABLE_EDIT);
  EXPECT_EQ(partsOf(frontEnd.send(refresh)), "bookPacket, status");
  const FrontEnd::Flags developer{.developerView = true};
  EXPECT_EQ(partsOf(frontEnd.send(refresh, developer)), "bookBundle, summaryPanel, status");
  EXPECT_EQ(partsOf(frontEnd.send(refresh, developer)), "bookPacket, status");
}

TEST(Handshake, ImpossibleRequestsAreRefusedAndLeaveAnEmptyReply) {
  FrontEnd frontEnd;
  unsigned char byte = 0;
  for (const int length : {-1, KVXEGuiInterface::MaxRequestSize + 1}) {
    frontEnd.send(Op::TABLE_EDIT);
    EXPECT_THROW(frontEnd.gui().getKvxHandshakeDataSize(&byte, length, false, false, false, false),
                 std::length_error);
    EXPECT_EQ(partsOf(frontEnd.fetch(0)), "");
  }
  EXPECT_THROW(frontEnd.gui().getKvxHandshakeDataSize(nullptr, 1, false, false, false, false),
               std::invalid_argument);
}

TEST(Handshake, FailureInsideAnOperationLeavesAnEmptyReply) {
  FrontEnd frontEnd;
  const std::string tooLong = std::string(5000, 'x') + ".kvx";
  EXPECT_THROW(frontEnd.send(Op::OPEN_PROJECT, {{Op::PROJECT_PATH, tooLong}}), std::exception);
  EXPECT_EQ(partsOf(frontEnd.fetch(0)), "");
  EXPECT_THAT(partsOf(frontEnd.send(Op::CLOSE_PROJECT)), EndsWith("status"));
}

TEST(Handshake, NonsenseIsSurvived) {
  FrontEnd frontEnd;
  frontEnd.createProject(KVXEPartSelection::m_morlanArchName);
  Captured captured;
  const std::string sound =
      FrontEnd::request(Op::INCREMENTAL_CALCULATION, {{Op::PROJECT_PATH, "p"}}).SerializeAsString();
  for (std::size_t cut = 1; cut < sound.size(); ++cut) frontEnd.sendBytes(sound.substr(0, cut));
  frontEnd.sendBytes(std::string(1000, '\xFF'));
  frontEnd.sendBytes(std::string(1000, '\x0B'));  // opened groups
  EXPECT_EQ(partsOf(frontEnd.send(Op::TABLE_EDIT)), "bookPacket, status");
}

TEST(Handshake, OperationsWithoutADeviceAreHarmless) {
  FrontEnd frontEnd;
  Captured captured;
  for (int type = 0; type <= 17; ++type)
    frontEnd.sendBytes({'\x1A', '\x02', '\x08', static_cast<char>(type)});
  KVXEGuiInterface& gui = frontEnd.gui();
  std::vector<int> rows{0, 1};
  EXPECT_FALSE(gui.hasTableEditingFeatures(0, 0));
  EXPECT_FALSE(gui.canInsertTableRow(-1, -1, -1));
  EXPECT_THAT(gui.deleteTableRows(0, 0, rows), HasSubstr("ERROR: "));
  EXPECT_EQ(gui.getGenericTreeTableDataSize(0, 0), 0);
}

}  // namespace
