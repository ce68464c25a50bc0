// A book written as a sheet is the same book when it is read back, whatever it holds.

#include "clients/cli/SheetWriter.h"

#include <sstream>

#include "clients/cli/BookEntries.h"
#include "clients/cli/BookSpelling.h"
#include "clients/cli/Design.h"
#include "clients/cli/JsonEstimate.h"
#include "clients/cli/ProjectFile.h"
#include "clients/cli/SheetReader.h"
#include "engine/base/workbook/KVXERow.h"
#include "engine/base/workbook/KVXETitle.h"
#include "engine/wizard/base/KVXEWizardMgr.h"
#include "tests/cli/CliKit.h"
#include "tests/kit/Captured.h"
#include "tests/kit/ProjectDirectory.h"
#include "tests/kit/RandomDesign.h"

using namespace KVXEEnums;

namespace {

std::string printed(const kvx::Diagnostics& diagnostics) {
  std::ostringstream text;
  diagnostics.print(text);
  return text.str();
}

/// The present book in three forms.
struct Form {
  kvx::BookEntries entries;
  std::string sheet, estimate;

  static Form take() {
    KVXEBook* book = KVXEBookMgr::getGlobal().getCurrentBook();
    Form form{kvx::readEntries(*book), "", kvx::jsonEstimate(kvx::estimateOf({book, "design"}))};
    form.sheet = kvx::writeSheetText(kvx::makeSheet(form.entries, "book"));
    return form;
  }
};

void expectSame(const Form& a, const Form& b) {
  EXPECT_EQ(kvx::findDifference(a.entries, b.entries), "");
  EXPECT_EQ(a.sheet, b.sheet);
  EXPECT_EQ(a.estimate, b.estimate);
}

/// Makes the book that of the sheet.
void load(const std::string& sheet) {
  kvx::Diagnostics diagnostics;
  EXPECT_TRUE(kvx::loadSheet(kvx::readSheetText(sheet, "sheet", diagnostics), diagnostics))
      << printed(diagnostics) << sheet;
}

std::string save(const std::string& path) {
  kvx::Diagnostics diagnostics;
  kvx::writeProject(path, diagnostics);
  EXPECT_EQ(printed(diagnostics), "");
  return readFile(path);
}

void open(const std::string& path) {
  kvx::Diagnostics diagnostics;
  EXPECT_TRUE(kvx::readProject(path, diagnostics)) << printed(diagnostics);
  KVXECalculationMgr::getGlobal().fullCalculate();
}

/// From the present book to a sheet, a project, a sheet and a project again.
Form expectRoundTrip() {
  const Captured engineOutput;
  const ProjectDirectory directory;
  const Form book = Form::take();
  load(book.sheet);
  expectSame(book, Form::take());
  const std::string first = save("first.kvx");
  open("first.kvx");
  expectSame(book, Form::take());
  load(book.sheet);
  EXPECT_EQ(first, save("second.kvx"));
  EXPECT_EQ(directory.list(), (std::vector<std::string>{"first.kvx", "second.kvx"}));
  return book;
}

class BookAsSheet : public ::testing::TestWithParam<std::string> {};

TEST_P(BookAsSheet, RandomDesignsComeBack) {
  DeviceBook book(GetParam());
  RandomDesign design(book, 4711, 0);
  for (int i = 0; i < 4; ++i) {
    SCOPED_TRACE(design.changeDevice());
    {
      const Captured engineOutput;
      design.make();
    }
    const Form form = expectRoundTrip();
    EXPECT_GT(form.entries.tables.size(), 3u);
    if (HasFailure()) return;  // the next would fail alike
  }
}

TEST_P(BookAsSheet, EveryCellThatTakesInputHasAName) {
  const DeviceBook book(GetParam());
  forEachTable([](KVXETable* table) {
    SCOPED_TRACE(table->getTab()->getTypeAsStr() + "." + table->getTableTitle()->getTag(TitleType::SW));
    EXPECT_NE(kvx::writtenName(*table), "");
    forEachCell(table, [table](KVXECell* cell) {
      if (!cell->getIsEditable()) return;
      const std::string name = kvx::writtenName(*table, cell->getColumnIndex());
      EXPECT_TRUE(!name.empty() && name != kvx::RowNumberKey) << name;
    });
  });
}

INSTANTIATE_TEST_SUITE_P(All, BookAsSheet, ::testing::ValuesIn(DeviceBook::architectures()),
                         [](const auto& param) { return param.param.substr(0, 5); });

/// A book in which a test puts single values.
class OddBook : public ::testing::Test {
 protected:
  OddBook() {
    KVXETable* clocks = table(TabType::CLOCK, "CLOCK_CONFIGURATION");
    put(clocks, 1, "name", std::string("clk"));
    put(clocks, 1, "frequency", 100.0f);
  }

  KVXETable* table(TabType tab, const std::string& name) {
    KVXETable* found = m_book.table(tab, name);
    EXPECT_TRUE(found) << name;
    return found;
  }
  KVXETable* logic() { return table(TabType::LOGIC, "LOGIC_CONFIGURATION"); }

  static KVXECell* cell(KVXETable* table, unsigned int row, const char* column) {
    return table->getOrCreateRow(row)->getCell(*kvx::findColumn(*table, column));
  }
  template <class T>
  KVXECell* put(KVXETable* table, unsigned int row, const char* column, const T& value) {
    KVXECell* target = cell(table, row, column);
    m_book.put(target, value);
    return target;
  }

  /// The sheet of the book, which comes back from it, without its head.
  std::string sheet() {
    m_book.settle();
    const std::string text = expectRoundTrip().sheet;
    return text.substr(text.find("frequency = 100\n") + 16);
  }

  DeviceBook m_book{KVXEPartSelection::m_arkeonArchName};
};

TEST_F(OddBook, GapsStayRows) {
  put(logic(), 2, "registers", 5);
  put(logic(), 3, "registers", 6);
  put(logic(), 700, "registers", 7);
  EXPECT_EQ(sheet(),
            "\n[[logic]]\nrow = 2\nregisters = 5\n\n[[logic]]\nregisters = 6\n"
            "\n[[logic]]\nrow = 700\nregisters = 7\n");
}

TEST_F(OddBook, BlankOverADefaultStaysBlank) {
  KVXECell* blank = cell(logic(), 1, "toggle_rate");
  blank->setBlankAndState(CellState::DIRTY_DIRTY);
  blank->setValueSource(ValueSource::USER);
  EXPECT_EQ(sheet(), "\n[[logic]]\ntoggle_rate = \"\"\n");
}

TEST_F(OddBook, TextsKeepEveryByte) {
  std::string dots(300, '.');
  for (const std::string& text :
       {std::string("\"\\'#=[{"), std::string("caf\xc3\xa9 \xf0\x9f\x94\x8c \xef\xbf\xbd"),
        std::string("a\x7f\tc"), std::string("two\r\nlines"), std::string("  blanks  "), std::string("1.50"),
        std::string("true"), dots + dots}) {
    put(logic(), 1, "user_comments", text);
    EXPECT_NE(sheet().find("user_comments"), std::string::npos) << text;
    EXPECT_EQ(textIn(cell(table(TabType::LOGIC, "LOGIC_CONFIGURATION"), 1, "user_comments")), text);
  }
}

TEST_F(OddBook, TextThatIsNoUtf8IsRefused) {
  put(logic(), 1, "user_comments", std::string("caf\xe9"));
  m_book.settle();
  EXPECT_THROW(Form::take(), std::runtime_error);
}

TEST_F(OddBook, NumbersKeepEveryBit) {
  unsigned int row = 1;
  for (const float number : {0.1f, 1.0f / 3.0f, 8.5899346e9f, 16777216.0f, 1e-30f, 3e38f, 0.3f, 1e20f, 1e-45f,
                             123456.789f, 9.9999998e14f, 5.0e15f}) {
    put(table(TabType::CLOCK, "CLOCK_CONFIGURATION"), ++row, "frequency", number);
  }
  sheet();
  row = 1;
  EXPECT_EQ(numberIn(cell(table(TabType::CLOCK, "CLOCK_CONFIGURATION"), 10, "frequency")), 1e-45f);
}

TEST_F(OddBook, ClocksOfOneNameGoByTheirTags) {
  KVXETable* clocks = table(TabType::CLOCK, "CLOCK_CONFIGURATION");
  put(clocks, 2, "name", std::string("clk"));
  put(clocks, 2, "frequency", 200.0f);
  put(clocks, 3, "name", std::string("other"));
  put(clocks, 3, "frequency", 300.0f);
  put(logic(), 1, "clock", std::string("200.000 MHz (clk)"));
  put(logic(), 2, "clock", std::string("300.000 MHz (other)"));
  put(logic(), 3, "clock", std::string("1.000 MHz (gone)"));
  const std::string text = sheet();
  EXPECT_NE(text.find("name = { value = \"clk\", source = \"USER\" }"), std::string::npos) << text;
  EXPECT_NE(text.find("clock = \"200.000 MHz (clk)\""), std::string::npos) << text;
  EXPECT_NE(text.find("clock = \"other\""), std::string::npos) << text;
  EXPECT_NE(text.find("clock = { value = \"1.000 MHz (gone)\", source = \"USER\" }"), std::string::npos);
}

TEST_F(OddBook, ImportsKeepTheirSource) {
  put(logic(), 1, "registers", 5)->setValueSource(ValueSource::XML);
  put(logic(), 1, "clock", std::string("100.000 MHz (clk)"))->setValueSource(ValueSource::IP);
  EXPECT_EQ(sheet(),
            "\n[[logic]]\nclock = { value = \"clk\", source = \"IP\" }\n"
            "registers = { value = 5, source = \"XML\" }\n");
}

TEST_F(OddBook, WhatIsOutOfBoundsNowIsKept) {
  put(logic(), 1, "toggle_rate", 12.5f);
  put(table(TabType::BRAM, "BRAM_CONFIGURATION"), 1, "mode", std::string("BMEM99"));
  const std::string text = sheet();
  EXPECT_NE(text.find("toggle_rate = { value = 12.5, source = \"USER\" }"), std::string::npos) << text;
  EXPECT_NE(text.find("mode = { value = \"BMEM99\", source = \"USER\" }"), std::string::npos) << text;
}

TEST_F(OddBook, HiddenTablesAreKept) {
  KVXETable* units = table(TabType::SUMMARY, "UNITS");
  for (unsigned int row = 1; row < units->getRowCount(); ++row)
    for (unsigned int column = 0; column < units->getColumnCount(); ++column)
      if (std::vector<std::string> list; units->getCellAt(row, column)->getDDVals(list))
        m_book.put(units->getCellAt(row, column), list.back());
  EXPECT_NE(sheet().find("[[clock"), 0u);
  EXPECT_NE(Form::take().sheet.find("[[summary.units]]"), std::string::npos);
}

TEST_F(OddBook, EnvironmentIsSaidByItsKeysWhereTheyTellAll) {
  KVXETable* environment = table(TabType::SUMMARY, "ENV_HEADER");
  const unsigned int junction = kvx::findRow(*environment, 0, "junction temperature");
  const unsigned int ambient = kvx::findRow(*environment, 0, "ambient temperature");
  const unsigned int theta = kvx::findRow(*environment, 0, "effective theta ja");
  const auto head = [this] {
    m_book.settle();
    const std::string text = expectRoundTrip().sheet;
    const std::size_t begin = text.find("\n\n") + 2;
    return text.substr(begin, text.find("\n[[clock]]") - begin);
  };
  put(environment, junction, "env_val", 60.0f);
  EXPECT_EQ(head(), "[environment]\njunction_temperature = 60\n");
  environment = table(TabType::SUMMARY, "ENV_HEADER");
  put(environment, junction, "env_temp", KVXESummaryTab::m_userOverrideOffStr);
  put(environment, ambient, "env_val", 30.0f);
  EXPECT_NE(head().find("[[summary.environment]]"), std::string::npos);
  environment = table(TabType::SUMMARY, "ENV_HEADER");
  put(environment, theta, "env_val", 2.5f);
  EXPECT_EQ(head(), "[environment]\nambient_temperature = 30\neffective_theta_ja = 2.5\n");
}

TEST_F(OddBook, IpConfigurationsAreKept) {
  KVXEWizardMgr::getGlobal().saveConfig("dma 0", {{"width", "64"}, {"a.b", "x\"y"}});
  KVXEWizardMgr::getGlobal().saveConfig("empty", {});
  EXPECT_EQ(sheet(),
            "\n[ip_configuration.\"dma 0\"]\n\"a.b\" = \"x\\\"y\"\nwidth = \"64\"\n"
            "\n[ip_configuration.empty]\n");
  KVXEWizardMgr::clearAllSavedIPConfigs();
}

}  // namespace
