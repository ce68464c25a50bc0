#include "engine/base/project/KVXEPrjMgr.h"
#include "engine/base/selection/KVXEPartSelection.h"
#include "engine/base/services/KVXEHandshakeDialog.h"
#include "engine/base/tabs/KVXESummaryTab.h"
#include "engine/base/workbook/KVXEBook.h"
#include "engine/base/workbook/KVXEBookMgr.h"
#include "tests/kit/Captured.h"
#include "tests/swig/FrontEnd.h"

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;
using Op = KvxOperationData;

namespace {

const std::string& Arkeon = KVXEPartSelection::m_arkeonArchName;
const std::string& Morlan = KVXEPartSelection::m_morlanArchName;

TEST(ProjectHandshake, NewProjectIsSavedAtOnce) {
  FrontEnd frontEnd;
  const KvxHandshakeData reply = frontEnd.createProject(Morlan, "some dir/big.design.kvx");
  EXPECT_EQ(partsOf(reply), "bookBundle, summaryPanel, status");
  EXPECT_TRUE(reply.status().isprojectopen());
  EXPECT_TRUE(reply.status().isprojectsaved());
  EXPECT_EQ(reply.status().parttext(), "Part: " + frontEnd.gui().getSelectedDeviceName());
  KVXEGuiInterface& gui = frontEnd.gui();
  EXPECT_THAT((std::vector{gui.getProjectPath(), gui.getProjectFileName(), gui.getProjectName()}),
              ElementsAre("some dir/big.design.kvx", "big.design.kvx", "big.design"));
  EXPECT_TRUE(std::filesystem::exists("some dir/big.design.kvx"));
}

/// What the operation changes about "saved", deliberate oddities included.
TEST(ProjectHandshake, OpensWhatItSaved) {
  FrontEnd frontEnd;
  frontEnd.createProject(Morlan, "a.kvx");
  const std::string device = frontEnd.gui().getSelectedDeviceName();
  EXPECT_EQ(partsOf(frontEnd.send(Op::SAVE_AS_PROJECT, {{Op::PROJECT_PATH, "b.kvx"}})), "bookPacket, status");
  EXPECT_EQ(frontEnd.gui().getProjectPath(), "b.kvx");
  EXPECT_TRUE(frontEnd.send(Op::SAVE_PROJECT).status().isprojectsaved());
  frontEnd.send(Op::CLOSE_PROJECT);
  frontEnd.chooseArchitecture(Arkeon);
  const KvxHandshakeData reply = frontEnd.send(Op::OPEN_PROJECT, {{Op::PROJECT_PATH, "b.kvx"}});
  EXPECT_EQ(partsOf(reply), "bookBundle, summaryPanel, status");
  EXPECT_FALSE(reply.status().isprojectsaved());
  EXPECT_EQ(reply.status().parttext(), "Part: " + device);

  ProjectDirectory::write("c.kvx", "damaged");
  const KvxHandshakeData refused = frontEnd.send(Op::OPEN_PROJECT, {{Op::PROJECT_PATH, "c.kvx"}});
  EXPECT_EQ(partsOf(refused), "messageDialog");
  EXPECT_EQ(refused.messagedialog().title(), "Open Project");
  EXPECT_EQ(refused.messagedialog().text(), "c.kvx failed during integrity check\n");
  EXPECT_TRUE(projectStatus().isprojectsaved()) << "a failed opening has lost nothing";
}

TEST(ProjectHandshake, PathsAreCheckedAndTheOpenProjectIsNamed) {
  const struct {
    const char* label;
    KvxOperationData_OperationType type;
    std::string path;
    const char* text;
    const char* openAfter;
  } cases[] = {
      {"nothing to create", Op::CREATE_PROJECT, "", "Project path cannot be empty\n", "first.kvx"},
      {"nothing to open", Op::OPEN_PROJECT, "", "Project path cannot be empty\n", "first.kvx"},
      {"no extension", Op::OPEN_PROJECT, "other", "first.kvx do not have a .kvx file extension.\n",
       "first.kvx"},
      {"capitals", Op::SAVE_AS_PROJECT, "other.KVX", "first.kvx do not have a .kvx file extension.\n",
       "first.kvx"},
      {"just a dot file", Op::OPEN_PROJECT, "dir/.kvx", "first.kvx do not have a .kvx file extension.\n",
       "first.kvx"},
      {"hidden end", Op::OPEN_PROJECT, std::string("/etc/passwd\0.kvx", 16),
       "Project path holds a NUL character\n", "first.kvx"},
      {"no such file", Op::OPEN_PROJECT, "no/such/file.kvx", "file.kvx do not exist.\n", "no/such/file.kvx"},
  };
  for (const auto& [label, type, path, text, openAfter] : cases) {
    SCOPED_TRACE(label);
    FrontEnd frontEnd;
    frontEnd.createProject(Morlan, "first.kvx");
    const KvxHandshakeData reply = frontEnd.send(type, {{Op::PROJECT_PATH, path}});
    EXPECT_THAT(reply.messagedialog().text(), HasSubstr(text));
    EXPECT_EQ(reply.messagedialog().severity(), 3);
    EXPECT_EQ(frontEnd.gui().getProjectPath(), openAfter);
  }
  FrontEnd frontEnd;
  EXPECT_EQ(frontEnd.send(Op::OPEN_PROJECT, {{Op::PROJECT_PATH, "x"}}).messagedialog().text(),
            " do not have a .kvx file extension.\n");
}

TEST(ProjectHandshake, FailureBringsOnlyItsDialog) {
  for (const auto type : {Op::SAVE_PROJECT, Op::SAVE_AS_PROJECT}) {
    FrontEnd frontEnd;
    frontEnd.createProject(Morlan, "a.kvx");
    std::filesystem::create_directory("dir.kvx");
    ProjectDirectory::write("a.kvx", "of another instance");
    EXPECT_EQ(partsOf(frontEnd.send(type, {{Op::PROJECT_PATH, "dir.kvx"}})), "messageDialog");
    EXPECT_EQ(frontEnd.gui().getProjectPath(), type == Op::SAVE_PROJECT ? "a.kvx" : "dir.kvx");
  }
  FrontEnd frontEnd;
  EXPECT_EQ(partsOf(frontEnd.send(Op::SAVE_PROJECT)), "") << "nothing is open";
}

TEST(ProjectHandshake, LaterArgumentWins) {
  FrontEnd frontEnd;
  frontEnd.chooseArchitecture(Morlan);
  frontEnd.send(Op::CREATE_PROJECT, {{Op::PROJECT_PATH, "a.kvx"},
                                     {Op::NEW_PROJECT_2, "b.kvx"},
                                     {Op::PROJECT_PATH, "c.kvx"},
                                     {Op::FILE_PATH, "d.kvx"}});
  EXPECT_EQ(frontEnd.gui().getProjectPath(), "c.kvx");
}

TEST(ProjectHandshake, ClosingLeavesNothing) {
  FrontEnd frontEnd;
  frontEnd.createProject(Morlan);
  const KvxHandshakeData reply = frontEnd.send(Op::CLOSE_PROJECT);
  EXPECT_FALSE(reply.status().isprojectopen());
  EXPECT_TRUE(reply.status().isprojectsaved());
  EXPECT_EQ(partsOf(reply), "bookBundle, summaryPanel, status");
  EXPECT_EQ(reply.bookbundle().nodes_size(), 0);
  EXPECT_EQ(KVXEBookMgr::getGlobal().getBookCount(), 0u);
  EXPECT_EQ(frontEnd.gui().getProjectPath(), "");
  EXPECT_GT(frontEnd.createProject(Arkeon).bookbundle().nodes_size(), 0);
}

TEST(ProjectHandshake, FailedImportCreatesNoProject) {
  FrontEnd frontEnd;
  frontEnd.chooseArchitecture(Morlan);
  const FrontEnd::Arguments arguments{{Op::PROJECT_PATH, "a.kvx"}, {Op::IMPORT_FILE_PATH, "estimate.lvr"}};
  const KvxHandshakeData reply = frontEnd.send(Op::CREATE_PROJECT, arguments);
  EXPECT_EQ(partsOf(reply), "messageDialog");
  EXPECT_THAT(reply.messagedialog().text(), HasSubstr("estimate.lvr"));
  EXPECT_THAT(reply.messagedialog().text(), Not(HasSubstr("project was not created")));
  EXPECT_FALSE(KVXEPrjMgr::getGlobal().isOpen());
  EXPECT_EQ(KVXEBookMgr::getGlobal().getBookCount(), 0u);
  EXPECT_FALSE(projectStatus().isprojectsaved());
}

TEST(ProjectHandshake, FileChooserArguments) {
  using Pair = std::pair<std::string, std::string>;
  const struct {
    FrontEnd::Arguments arguments;
    Pair chosen;
    bool isImport;
  } cases[] = {
      {{}, {"", ""}, false},
      {{{Op::FILE_CHOOSER_UID, "uid"}, {Op::FILE_PATH, "four"}}, {"uid", "four"}, false},
      {{{Op::FILE_PATH, "four"}, {Op::CHOSEN_FILE_PATH, "six"}}, {"", "six"}, false},
      {{{Op::CHOSEN_FILE_PATH, "six"}, {Op::FILE_PATH, "four"}}, {"", "four"}, false},
      {{{Op::PROJECT_PATH, "one"}, {Op::IMPORT_FILE_PATH, ""}}, {"", ""}, true},
  };
  FrontEnd frontEnd;
  for (const auto& [arguments, chosen, isImport] : cases) {
    frontEnd.send(FrontEnd::request(Op::UNUSED_6, arguments));
    EXPECT_EQ(frontEnd.gui().getFileChooserHandshakeData(), chosen);
    EXPECT_EQ(frontEnd.gui().isImportLvrFileMenuAction(), isImport);
  }
}

TEST(ProjectHandshake, WizardsAndFilesThatDoNotExistAreNamed) {
  FrontEnd frontEnd;
  frontEnd.createProject(Arkeon);
  KvxHandshakeData button = FrontEnd::request(Op::BUTTON_PRESS);
  button.mutable_operation()->mutable_buttondata()->mutable_genericbutton()->set_uid("ClockDialog");
  const struct {
    const char* label;
    KvxHandshakeData request;
    std::string parts, text;
  } cases[] = {
      {"button", button, "messageDialog", "\"ClockDialog\""},
      {"button without a name", FrontEnd::request(Op::BUTTON_PRESS), "messageDialog", "does not name"},
      {"import", FrontEnd::request(Op::IMPORT_FILE, {{Op::IMPORT_FILE_PATH, "x.lvr"}}), "messageDialog",
       "\"LvrImportButtonUid\""},
      {"import without a file", FrontEnd::request(Op::IMPORT_FILE), "operation", ""},
      {"power design",
       FrontEnd::request(Op::EXPORT_FILE,
                         {{Op::FILE_CHOOSER_UID, KVXESummaryTab::m_powerDesignXmlExportButtonUid},
                          {Op::CHOSEN_FILE_PATH, "out.xml"}}),
       "operation, messageDialog", "out.xml"},
      {"other export", FrontEnd::request(Op::EXPORT_FILE, {{Op::FILE_CHOOSER_UID, "Other"}}), "operation",
       ""},
      {"dialog packet", FrontEnd::request(Op::DIALOG_PACKET), "", ""},
  };
  for (const auto& [label, request, parts, text] : cases) {
    SCOPED_TRACE(label);
    const KvxHandshakeData reply = frontEnd.send(request);
    EXPECT_EQ(partsOf(reply), parts);
    EXPECT_THAT(reply.messagedialog().text(), HasSubstr(text));
  }
}

TEST(ProjectHandshake, NewDeviceBringsItsTabs) {
  FrontEnd frontEnd;
  frontEnd.createProject(Arkeon);
  const std::string before = frontEnd.gui().getSelectedDeviceName();
  const auto hasTab = [](KVXEEnums::TabType type) {
    const KVXETab* tab = KVXEBookMgr::getGlobal().getCurrentBook()->getTab(type);
    return tab && tab->getIsEnabled();
  };
  EXPECT_FALSE(hasTab(KVXEEnums::TabType::PSW));
  frontEnd.choose(KVXEPartSelection::m_familyStr, "Arkeon Net");
  const KvxHandshakeData reply = frontEnd.send(Op::DEVICE_CHANGE);
  EXPECT_EQ(partsOf(reply), "bookBundle, summaryPanel, status");
  EXPECT_NE(frontEnd.gui().getSelectedDeviceName(), before);
  EXPECT_EQ(reply.status().parttext(), "Part: " + frontEnd.gui().getSelectedDeviceName());
  EXPECT_TRUE(hasTab(KVXEEnums::TabType::PSW));
}

TEST(ProjectHandshake, DeviceChangeWithoutABookMakesNone) {
  FrontEnd frontEnd;
  frontEnd.chooseArchitecture(Arkeon);
  Captured captured;
  frontEnd.send(Op::DEVICE_CHANGE);
  EXPECT_EQ(KVXEBookMgr::getGlobal().getBookCount(), 0u);
}

TEST(ProjectHandshake, BookOutlivesTheFrontEnd) {
  for (const std::string& next : {Arkeon, Morlan}) {
    FrontEnd frontEnd;
    frontEnd.createProject(Arkeon);
    frontEnd.restart();
    EXPECT_EQ(KVXEPartSelection::getGlobal(), nullptr);
    {
      Captured captured;
      frontEnd.send(Op::REFRESH);
      frontEnd.send(Op::DEVICE_CHANGE);
    }
    EXPECT_EQ(KVXEBookMgr::getGlobal().getBookCount(), 1u);
    const KvxHandshakeData reply = frontEnd.createProject(next);
    EXPECT_EQ(reply.status().parttext(), "Part: " + frontEnd.gui().getSelectedDeviceName());
    EXPECT_EQ(KVXEBookMgr::getGlobal().getCurrentBook()->getArchName(), next);
    EXPECT_EQ(frontEnd.gui().getProjectName(), "design");
  }
}

}  // namespace
