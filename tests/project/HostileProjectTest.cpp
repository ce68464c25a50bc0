// Project files whose digest is right and whose contents are not: each is refused with a reason or opened
// without what is wrong in it, and none costs more memory than a desk has.

#include <sys/resource.h>
#include <zlib.h>

#include <chrono>

#include "engine/base/project/KVXEProject.h"
#include "engine/base/project/KVXEVersion.h"
#include "engine/base/tabs/KVXEClockTab.h"
#include "platform/tqm_iostreams/xp.h"
#include "platform/wyr_common/NDUZip.h"
#include "tests/kit/Captured.h"
#include "tests/kit/DeviceBook.h"
#include "tests/kit/InChild.h"
#include "tests/kit/Messages.h"
#include "tests/kit/ProjectDirectory.h"

namespace fs = std::filesystem;

using ::testing::HasSubstr;

namespace {

std::string repeat(const std::string& text, std::size_t count) {
  std::string all;
  all.reserve(text.size() * count);
  while (count-- > 0) all += text;
  return all;
}

/// The payload as a wrapped stream, also where the writer of such streams would refuse it.
std::string wrapped(const std::string& payload) {
  std::string bytes(tqm::iostreams::xp::magic, sizeof tqm::iostreams::xp::magic);
  const auto append = [&](std::uint64_t value, int size) {
    for (int i = 0; i < size; ++i) bytes += static_cast<char>(value >> (8 * i));
  };
  append(tqm::iostreams::xp::formatVersion, 4);
  append(crc32_z(0, reinterpret_cast<const Bytef*>(payload.data()), payload.size()), 4);
  append(payload.size(), 8);
  return bytes + payload;
}

/// The most memory that the process has had so far, in MB.
long peakMemory() {
  std::ifstream status("/proc/self/status");
  for (std::string line; std::getline(status, line);)
    if (line.starts_with("VmHWM:")) return std::stol(line.substr(6)) / 1024;
  return 0;
}

class HostileProject : public ::testing::Test {
 protected:
  static constexpr const char* RecordFile = "kvx.xml";
  static constexpr const char* VersionFile = "versions/topVersion/version.xml";

  HostileProject() {
    m_book.trim(4);
    m_book.edit(clockName(), std::string("kept"));
    KVXEProject project;
    EXPECT_TRUE(project.newProject("good.kvx") && project.saveProject("")) << takeMessages();
    project.closeProject();
    fs::create_directory("files");
    NDUZip::uncompress(NDUFile("good.kvx"), "files", NDUZip::UNZIP_OPTIONS(1), nullptr);
    m_version = ProjectDirectory::read(fs::path("files") / VersionFile);
    m_version.erase(0, tqm::iostreams::xp::headerSize);
  }

  KVXETable* clocks() {
    return m_book.book()->getTable(KVXEEnums::TabType::CLOCK, &KVXEClockTab::m_ClockConfigTable);
  }
  KVXECell* clockName() { return clocks()->getCellAt(1, &KVXEClockTab::m_Name); }
  /// The good version with more before an end tag.
  std::string with(const std::string& more, const std::string& endTag) const {
    std::string version = m_version;
    const std::size_t at = version.find(endTag);
    EXPECT_NE(at, std::string::npos) << endTag;
    return at == std::string::npos ? version : version.insert(at, more);
  }
  /// The good version with another text in the rows that name the device.
  std::string withDevice(const std::string& text, const std::string& replacement) const {
    std::string version = m_version;
    const std::size_t at = version.find(text, version.find("<CurrentSelection>"));
    EXPECT_NE(at, std::string::npos) << text;
    return at == std::string::npos ? version : version.replace(at, text.size(), replacement);
  }

  /// Opens the files as a project, in a process of its own. `expected` is in what the user is told, or empty
  /// for nothing.
  void open(const std::string& label, bool isOpened, const std::string& expected) {
    NDUZip::compressDir(NDUFile("bad.kvx"), "files", "", NDUZip::ZIP_OPTIONS(64));
    NDUZip::attachDigest(NDUFile("bad.kvx"));
    inChild([&] {
#ifndef __SANITIZE_ADDRESS__
      const rlimit most{rlim_t{3} << 30, rlim_t{3} << 30};  // what goes wrong is to harm nobody else
      setrlimit(RLIMIT_AS, &most);
#endif
      const long before = peakMemory();
      const auto start = std::chrono::steady_clock::now();
      const std::string told = opened(isOpened);
      const auto time =
          std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now() - start);
      const long memory = peakMemory() - before;
      std::cout << label << ": " << time.count() << " ms, " << memory << " MB" << std::endl;
      EXPECT_EQ(told.empty(), expected.empty()) << label << ": " << told;
      EXPECT_THAT(told, HasSubstr(expected)) << label;
#ifndef __SANITIZE_ADDRESS__
      EXPECT_LT(memory, 500) << label;
#endif
    });
  }
  void openVersion(const std::string& label, const std::string& version, bool isOpened,
                   const std::string& expected) {
    ProjectDirectory::write(fs::path("files") / VersionFile, wrapped(version));
    open(label, isOpened, expected);
  }

  std::string m_version;
  ProjectDirectory m_directory;
  DeviceBook m_book{KVXEPartSelection::m_arkeonArchName};

 private:
  std::string opened(bool isExpected) {
    const Captured errors(std::cerr);
    std::string thrown;
    KVXEProject project;
    try {
      EXPECT_EQ(project.openProject("bad.kvx"), isExpected);
    } catch (const std::exception& exception) {
      thrown = exception.what();
      EXPECT_FALSE(isExpected) << thrown;
    }
    EXPECT_TRUE(!isExpected || textIn(clockName()) == "kept") << "the rest of the book is there";
    return takeMessages() + thrown + errors.text();
  }
};

TEST_F(HostileProject, VersionsThatAreNone) {
  const std::string architecture = "Selection=\"" + KVXEPartSelection::m_arkeonArchName + "\"";
  const struct {
    const char* label;
    std::string version, expected;
  } cases[] = {
      {"nothing", "", ""},
      {"a declaration", "<?xml version='1.0'?>", ""},
      {"other XML", "<Other/>", ""},
      {"mismatched tags", "<Version><Book></Version></Book>", "'Book'"},
      {"cut", m_version.substr(0, m_version.rfind("</Book>")), "element 'Book' is not closed"},
      {"no architecture", withDevice(R"(Option="Architecture")", R"(Option="Other")"), ""},
      {"no device", withDevice(R"(Option="Device")", R"(Option="Other")"), ""},
      {"unknown architecture", withDevice(architecture, "Selection=\"Nowhere\""),
       "1 The project file is not supported."},
      {"100,000 deep", repeat("<a>", 100'000) + repeat("</a>", 100'000), "nested deeper than 256"},
      {"100,000 deep in a row",
       with(repeat("<a>", 100'000) + repeat("</a>", 100'000), "</ClockConfiguration>"),
       "nested deeper than 256"},
  };
  openVersion("as it was", m_version, true, "");
  for (const auto& [label, version, expected] : cases) openVersion(label, version, false, expected);
}

TEST_F(HostileProject, FilesThatAreNotWrapped) {
  const fs::path version = fs::path("files") / VersionFile;
  ProjectDirectory::write(version, m_version);
  open("not wrapped", false, "");
  std::string changed = wrapped(m_version);
  changed.back() = '!';
  ProjectDirectory::write(version, changed);
  open("wrong checksum", false, "the checksum does not match: the file is damaged");
  fs::remove(version);
  open("no version", false, "");
  fs::remove(fs::path("files") / RecordFile);
  open("no files", false, "");
  openVersion("no record", m_version, true, "");
}

TEST_F(HostileProject, TablesWithoutEnd) {
  const std::string pair = R"(<params Name="x" Name_SOURCE="USER"/>)";
  const std::string nodesOf = "more than 4000000 elements and attributes";
  const std::string rowNodesOf = "more than 800000 elements and attributes";
  const std::string rowsOf = "The project file asks for more rows than a book holds.";
  constexpr std::size_t million = 1'000'000;
  const struct {
    const char* label;
    std::string more, endTag, expected;
  } cases[] = {
      {"10 million rows", repeat("<params/>", 10 * million), "</ClockConfiguration>",
       "the entry 'versions/topVersion/version.xml' has"},
      {"7 million rows", repeat("<params/>", 7 * million), "</ClockConfiguration>", nodesOf},
      {"rows with a value", repeat(pair, 1'700'000), "</ClockConfiguration>", nodesOf},
      {"more cells than a book holds", repeat(pair, KVXEVersion::MaxCells / 5), "</ClockConfiguration>",
       rowsOf},
      {"rows with a name", repeat(pair, 300'000), "</EnvHeader>", rowNodesOf},
      {"settings of the device", repeat(pair, 300'000), "</CurrentSelection>", rowNodesOf},
      {"elements in a row", "<params>" + repeat("<a/>", million) + "</params>", "</ClockConfiguration>",
       rowNodesOf},
  };
  for (const auto& [label, more, endTag, expected] : cases)
    openVersion(label, with(more, endTag), false, expected);
  openVersion("as many rows with a name as are read", with(repeat(pair, 199'000), "</EnvHeader>"), true, "");
  const std::size_t rows = KVXEVersion::MaxCells / clocks()->getColumnCount();
  openVersion("as many rows as a book holds", with(repeat(pair, rows - 4), "</ClockConfiguration>"), true,
              "");
}

TEST_F(HostileProject, OutlinesWithoutEnd) {
  const std::string longName(100'000, 'n');
  std::string names;
  for (int i = 0; i < 4'000'000; ++i) names += "<a" + std::to_string(i) + "/>";
  const std::string elements = "more than 50000 elements above the rows";
  const struct {
    const char* label;
    std::string more, endTag, expected;
  } cases[] = {
      {"10 million tabs", repeat("<a/>", 10'000'000), "</Book>", elements},
      {"10 million tables", repeat("<a/>", 10'000'000), "</CLOCK>", elements},
      {"4 million kinds of rows", names, "</ClockConfiguration>", elements},
      {"4 million tables of a long name", "<" + longName + ">" + names + "</" + longName + ">", "</Book>",
       "names of elements longer than 1000 bytes together"},
      {"10 million configurations",
       "<_IpConfiguration>" + repeat("<ip/>", 10'000'000) + "</_IpConfiguration>", "</Version>", elements},
  };
  for (const auto& [label, more, endTag, expected] : cases)
    openVersion(label, with(more, endTag), false, expected);
}

TEST_F(HostileProject, NamesThatTheBookDoesNotHave) {
  const std::string row = R"(<params Name="x" Name_SOURCE="USER"/>)";
  const std::string unknown = "Out of bounds string_to_enum conversion for string ";
  const struct {
    const char* label;
    std::string more, endTag, expected;
  } cases[] = {
      {"tab", "<NO_TAB><T>" + row + "</T></NO_TAB>", "</Book>", unknown + "NO_TAB"},
      {"table", "<NoTable>" + row + "</NoTable>", "</CLOCK>", ""},
      {"column", R"(<params NoColumn="x" NoColumn_SOURCE="USER"/>)", "</ClockConfiguration>", ""},
      {"source", R"(<params Name="x" Name_SOURCE="NOBODY"/>)", "</ClockConfiguration>", unknown + "NOBODY"},
      {"row", R"(<params EnvType="none" EnvType_SOURCE="USER"/>)", "</EnvHeader>", ""},
      {"other than a book", "<Other><T><U>" + row + "</U></T></Other>", "</Version>", unknown + "T"},
  };
  for (const auto& [label, more, endTag, expected] : cases)
    openVersion(label, with(more, endTag), true, expected);
}

}  // namespace
