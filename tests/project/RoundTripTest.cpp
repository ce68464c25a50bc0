// A book that is saved and opened again is the same book: what the user put in, where it came from, and all
// that follows from it.

#include <random>

#include "engine/base/project/KVXEPrjMgr.h"
#include "engine/wizard/base/KVXEWizardMgr.h"
#include "tests/kit/Captured.h"
#include "tests/kit/Messages.h"
#include "tests/kit/ProjectDirectory.h"
#include "tests/kit/RandomDesign.h"

using namespace KVXEEnums;

namespace {

bool isSupplied(const KVXECell* cell) {
  const ValueSource source = cell->getValueSource();
  return source == ValueSource::USER || source == ValueSource::XML || source == ValueSource::IP;
}

/// A cell as the user knows it: the value, the source if somebody supplied it, and what is said about it.
std::string lookOf(KVXECell* cell) {
  std::string look;
  if (!cell->getVal(look, true)) look = "blank";
  if (isSupplied(cell))
    look += " by " + nameOf(cell->getValueSource()) +
            (cell->getValueSource() == ValueSource::IP && !cell->getIsEditable() ? ", locked" : "");
  if (const KVXEMsg* msg = cell->getMsg(); msg && msg->getSeverity() > KvxSeverity::INFO)
    look += ": " + msg->getDisplayText();
  return look;
}

/// The tables of the tabs and the rows that the device has.
std::map<std::string, std::vector<std::vector<std::string>>> snapshot() {
  std::map<std::string, std::vector<std::vector<std::string>>> tables;
  forEachTable([&](KVXETable* table) {
    if (!table->getTab()->getIsEnabled() || table->getVisibility() == Visibility::ALWAYS_HIDDEN) return;
    auto& rows = tables[tableName(table)];
    for (unsigned int row = 1; row < table->getRowCount(); ++row) {
      if (!table->getRow(row)->hasPlaceOnScreen()) continue;
      auto& looks = rows.emplace_back();
      for (unsigned int column = table->getFirstContentColumn(); column < table->getColumnCount(); ++column)
        looks.push_back(lookOf(table->getCellAt(row, column)));
    }
  });
  return tables;
}

/// The present book is the one of the snapshot.
void expectSame(const std::map<std::string, std::vector<std::vector<std::string>>>& before) {
  const auto after = snapshot();
  ASSERT_EQ(after.size(), before.size());
  for (const auto& [name, rows] : before) {
    ASSERT_TRUE(after.contains(name)) << name;
    const auto& now = after.at(name);
    ASSERT_EQ(now.size(), rows.size()) << name;
    for (std::size_t row = 0; row < rows.size(); ++row)
      ASSERT_EQ(now[row], rows[row]) << name << " row " << row + 1;
  }
}

/// Texts that a file format may trip over, sources other than the user, and blanks put in on purpose.
void addOddities(std::mt19937& random) {
  static const std::vector<std::string> texts = {"a <b> & \"c\" 'd'",
                                                 "  led by blanks ",
                                                 " ",
                                                 "tab\there",
                                                 "line\nbreak",
                                                 "return\r\nhere",
                                                 "\u00fc\u4e2d\U0001F600",
                                                 "]]>",
                                                 "&amp;#0;",
                                                 "_x0041_",
                                                 "a.b/c=d"};
  forEachTable([&](KVXETable* table) {
    if (!table->getHasTableEditingFeatures()) return;
    forEachCell(table, [&](KVXECell* cell) {
      if (cell->getValueSource() != ValueSource::USER || random() % 4 != 0) return;
      const bool isFreeText = cell->getCellType() == CellType::STRING && !cell->isInADropdownColumn();
      if (isFreeText && cell->getIsEditable()) {
        cell->setValAndState(texts[random() % texts.size()], CellState::DIRTY_DIRTY);
      } else if (random() % 8 == 0) {
        cell->setBlankAndState(CellState::DIRTY_DIRTY);
      }
      const ValueSource sources[] = {ValueSource::USER, ValueSource::XML, ValueSource::IP};
      cell->setValueSource(sources[random() % 3]);
      if (cell->getValueSource() == ValueSource::IP) cell->setIsEditable(false);
    });
  });
}

/// To another device, with what the book has. Modules of another kind have tables of their own.
void changeDevice(std::mt19937& random) {
  KVXEPartSelection* selection = KVXEPartSelection::getGlobal();
  std::vector<std::string> parts = selection->getAvailableParts();
  if (selection->getArchName() == KVXEPartSelection::m_somVisionArchName)
    std::erase_if(parts, [kind = selection->getSelectedDeviceName().substr(0, 3)](const std::string& part) {
      return !part.starts_with(kind);
    });
  selection->selectPart(parts[random() % parts.size()], KVXEPartSelection::m_typStr);
  selection->redrawTabs(false);
}

void saveAndClose(const std::string& path) {
  KVXEPrjMgr& project = KVXEPrjMgr::getGlobal();
  ASSERT_TRUE(project.newProject(path)) << takeMessages();
  ASSERT_TRUE(project.saveProject("")) << takeMessages();
  KVXEBookMgr::getGlobal().closeProject();
  KVXEWizardMgr::getGlobal().resetVariables();
  ASSERT_TRUE(project.closeProject());
}

void open(const std::string& path) {
  ASSERT_TRUE(KVXEPrjMgr::getGlobal().openProject(path)) << takeMessages();
  KVXECalculationMgr::getGlobal().fullCalculate();
  KVXECellStateMgr::getGlobal().markGuiClean();
}

class RoundTrip : public ::testing::TestWithParam<std::string> {
 protected:
  ProjectDirectory m_directory;
};

TEST_P(RoundTrip, KeepsWhatTheUserSuppliedAndAllThatFollows) {
#ifdef __SANITIZE_ADDRESS__
  constexpr int books = 20;
#else
  constexpr int books = 200;
#endif
  DeviceBook book(GetParam());
  RandomDesign design(book, 20260101, 8);
  std::mt19937 random(7);
  for (int i = 0; i < books; ++i) {
    SCOPED_TRACE("book " + std::to_string(i) + ": " + design.changeDevice());
    design.make();
    addOddities(random);
    if (i % 3 == 0) changeDevice(random);
    book.settle();
    const auto before = snapshot();
    const auto settings = KVXEPartSelection::getGlobal()->getCurrentSettings();
    const std::map<std::string, KVXEWizardMgr::Properties> ips = {
        {"mem_" + std::to_string(i) + ":BRAM",
         {{"WizardLid", "MemoryDialog"}, {"empty", ""}, {"a b/c=d.e", "<1>"}}}};
    if (i % 2) KVXEWizardMgr::getGlobal().saveConfig(ips.begin()->first, ips.begin()->second);

    const Captured out;
    ASSERT_NO_FATAL_FAILURE(saveAndClose("design.kvx"));
    ASSERT_NO_FATAL_FAILURE(open("design.kvx"));
    ASSERT_NO_FATAL_FAILURE(expectSame(before));
    if (i % 3 != 0) {  // what lies on tabs of another device is not kept
      ASSERT_TRUE(KVXEPrjMgr::getGlobal().saveProject("again.kvx"));
      EXPECT_TRUE(ProjectDirectory::read("design.kvx") == ProjectDirectory::read("again.kvx"));
      std::filesystem::remove("again.kvx");
    }
    EXPECT_EQ(KVXEPartSelection::getGlobal()->getCurrentSettings(), settings);
    EXPECT_EQ(KVXEWizardMgr::getGlobal().getSavedConfigs(), i % 2 ? ips : decltype(ips)());
    EXPECT_EQ(out.text().find("Error"), std::string::npos) << out.text();
    EXPECT_EQ(takeMessages(), "");
    KVXEPrjMgr::getGlobal().closeProject();
    KVXEWizardMgr::getGlobal().resetVariables();
    std::filesystem::remove("design.kvx");
    if (HasFailure()) return;  // the next would fail alike
  }
}

INSTANTIATE_TEST_SUITE_P(All, RoundTrip, ::testing::ValuesIn(DeviceBook::architectures()),
                         [](const auto& param) { return param.param.substr(0, 5); });

}  // namespace
