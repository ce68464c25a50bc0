#include "engine/base/services/KVXEHandshakeDialog.h"

#include <gtest/gtest.h>

#include "engine/base/services/KVXEMsg.h"
#include "messages/handshake.pb.h"

namespace {

class HandshakeDialog : public ::testing::Test {
 protected:
  void TearDown() override { m_dialog.reset(); }

  /// What the next reply tells: "severity title|text", or nothing.
  std::string drain() {
    KvxHandshakeData reply;
    const KvxMessageDialogData* told = m_dialog.populateMessageDialogData(&reply);
    if (!told) return {};
    EXPECT_EQ(told, &reply.messagedialog());
    EXPECT_TRUE(told->has_dialogkind());
    EXPECT_EQ(told->dialogkind(), 0);
    return std::to_string(told->severity()) + (told->has_title() ? " " + told->title() : "") + "|" +
           told->text();
  }

  KVXEHandshakeDialog& m_dialog = KVXEHandshakeDialog::getGlobal();
};

TEST_F(HandshakeDialog, APlaceSpeaksOnceTheFirstTime) {
  m_dialog.appendHSMsg("a.cpp", 7, 3, "first");
  m_dialog.appendHSMsg("a.cpp", 7, 1, "second");
  EXPECT_EQ(drain(), "3|first\n");
  m_dialog.appendHSMsg("a.cpp", 7, 1, "second");
  EXPECT_EQ(drain(), "1|second\n") << "it may speak again in the next reply";
}

TEST_F(HandshakeDialog, LinesStandInTheOrderOfTheSources) {
  m_dialog.appendHSMsg("b.cpp", 1, 3, "b1");
  m_dialog.appendHSMsg("a.cpp", 100, 2, "a100");
  m_dialog.appendHSMsg("a.cpp", 9, 1, "");
  EXPECT_EQ(drain(), "1|\na100\nb1\n") << "with the severity of the first line, not the gravest";
}

TEST_F(HandshakeDialog, TheLastTitleWinsAndGoesWithTheLines) {
  m_dialog.appendHSMsg("a.cpp", 1, 1, "one", "First");
  m_dialog.appendHSMsg("a.cpp", 2, 1, "two", "Second");
  m_dialog.appendHSMsg("a.cpp", 3, 1, "three");
  EXPECT_EQ(drain(), "1 Second|one\ntwo\nthree\n");
  m_dialog.appendHSMsg("a.cpp", 1, 1, "one");
  EXPECT_EQ(drain(), "1|one\n");
  m_dialog.appendHSMsg("a.cpp", 1, 1, "one");
  m_dialog.appendHSMsg("a.cpp", 1, 1, "again", "Late");
  EXPECT_EQ(drain(), "1 Late|one\n") << "a title counts even if its line is not new";
}

TEST_F(HandshakeDialog, NothingToTellLeavesTheReplyAlone) {
  EXPECT_EQ(drain(), "");
  KvxHandshakeData reply;
  m_dialog.populateMessageDialogData(&reply);
  EXPECT_FALSE(reply.has_messagedialog());
  m_dialog.appendHSMsg("a.cpp", 1, 2, "kept");
  EXPECT_EQ(m_dialog.populateMessageDialogData(nullptr), nullptr);
  EXPECT_TRUE(m_dialog.hasMessages()) << "without a reply the lines wait";
  EXPECT_EQ(drain(), "2|kept\n");
  EXPECT_FALSE(m_dialog.hasMessages());
}

TEST_F(HandshakeDialog, ResetForgetsLinesAndTitle) {
  m_dialog.appendHSMsg("a.cpp", 1, 2, "gone", "Gone");
  m_dialog.reset();
  EXPECT_FALSE(m_dialog.hasMessages());
  m_dialog.appendHSMsg("a.cpp", 1, 2, "new");
  EXPECT_EQ(drain(), "2|new\n");
}

TEST(Message, ItsTextIsHtmlUnlessItIsSoAlready) {
  const struct {
    const char *given, *shown;
  } cases[] = {{"", ""},
               {"plain", "<html>plain</html>"},
               {"<html>done</html>", "<html>done</html>"},
               {"half <HTML> way", "half <HTML> way"},
               {"<Html>mixed", "<html><Html>mixed</html>"}};
  for (const auto& c : cases) EXPECT_EQ(KVXEMsg(KvxSeverity::INFO, c.given).getDisplayText(), c.shown);
}

TEST(Message, SeveritiesMapToTheScaleOfTheTable) {
  const int scale[] = {100, 200, 300, 400, 200, 200, 200};
  for (int severity = 0; severity < 7; ++severity)
    EXPECT_EQ(KVXEMsg(static_cast<KvxSeverity>(severity), "").getHGenTableSeverity(), scale[severity])
        << severity;
}

}  // namespace
