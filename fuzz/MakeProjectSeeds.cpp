// Writes real files, whole and in pieces, from which the fuzzers of project files start:
//     kvx_project_seeds DIRECTORY      makes DIRECTORY/archive, DIRECTORY/stream and DIRECTORY/version

#include <boost/property_tree/ptree.hpp>
#include <boost/property_tree/xml_parser.hpp>
#include <iostream>
#include <sstream>

#include "engine/base/project/KVXEProject.h"
#include "engine/base/project/KVXEVersion.h"
#include "engine/base/project/KVXEXmlReadWrite.h"
#include "engine/base/selection/KVXEPartSelection.h"
#include "engine/base/workbook/KVXEBook.h"
#include "engine/base/workbook/KVXERow.h"
#include "engine/base/workbook/KVXETab.h"
#include "engine/wizard/base/KVXEWizardMgr.h"
#include "fuzz/ScratchPlace.h"
#include "fuzz/SmallBook.h"
#include "platform/tqm_iostreams/filters.h"
#include "platform/wyr_common/NDUZip.h"

namespace {

using namespace kvxe::fuzz;
using boost::property_tree::ptree;
namespace fs = std::filesystem;

/// Puts something into the first row of every table that takes it, as if from each source in turn.
void fillBook() {
  using KVXEEnums::ValueSource;
  constexpr ValueSource sources[] = {ValueSource::USER, ValueSource::XML, ValueSource::IP};
  const KVXEBook& book = *getSmallBook();
  for (unsigned int i = 0; i < book.getTabCount(); ++i) {
    const KVXETab* tab = book.getTab(i);
    for (unsigned int j = 0; tab && j < tab->getTableCount(); ++j) {
      const KVXETable* table = tab->getTable(j);
      for (unsigned int column = 0; column < table->getColumnCount(); ++column) {
        KVXECell* cell = table->getCellAt(1, column);
        if (!cell || !cell->getIsEditable()) continue;
        cell->setValAndState(1, KVXEEnums::CellState::DIRTY_DIRTY);
        cell->setValueSource(sources[(j + column) % std::size(sources)]);
      }
    }
  }
  KVXEWizardMgr::getGlobal().saveConfig("memory_1:BRAM", {{"WizardLid", "MemoryDialog"}, {"Depth", "512"}});
}

void writeArchive(const fs::path& target, const std::map<std::string, std::string>& files) {
  fs::remove_all("content");
  for (const auto& [name, content] : files) {
    fs::create_directories((fs::path("content") / name).parent_path());
    writeFile(fs::path("content") / name, content);
  }
  NDUZip::compressDir(NDUFile(target), "content", "", NDUZip::ZIP_OPTIONS(64));
  NDUZip::attachDigest(NDUFile(target));
}

void makeArchives(const fs::path& folder, const std::string& project) {
  fs::create_directories(folder);
  writeFile(folder / "project", project);
  writeArchive(folder / "one", {{"a", "text"}});
  writeArchive(folder / "nested",
               {{"kvx.xml", std::string(300, 'x')}, {"versions/topVersion/version.xml", "y"}});
  writeArchive(folder / "deep", {{"a/b/c/d/e/f", ""}, {"a/b/g", "\n"}, {"h", std::string(5000, '\0')}});
}

/// A stream behind the byte that has all of its header repaired.
void makeStreams(const fs::path& folder) {
  fs::create_directories(folder);
  int number = 0;
  for (const std::string& payload : {std::string(), std::string("<KVX/>\n"), std::string(300, '\0')}) {
    {
      tqm::iostreams::filtering_stream<tqm::iostreams::output> out;
      tqm::iostreams::xp_latest{std::ios::binary}(out, "stream.xml");
      out << payload;
      out.close();
    }
    for (const char repairs : {'\0', '\x0F'})
      writeFile(folder / std::to_string(number++), repairs + readFile("stream.xml"));
  }
}

std::string textOf(const ptree& tree) {
  std::ostringstream text;
  write_xml(text, tree);
  return text.str();
}

/// Some values as an older release wrote them.
ptree aged(ptree row) {
  const auto attributes = row.get_child_optional("<xmlattr>");
  if (!attributes) return row;
  for (auto& [name, value] : *attributes) {
    if (name == "Mode") value.data() = "GEN3X8";
    if (name == "LinkSpeed") value.data() = "GEN3";
    if (name.find("Clock") != std::string::npos && !name.ends_with("_SOURCE")) value.data() = "100 MHz (clk)";
  }
  return row;
}

/// Each table of the present book by itself, with few rows, and some with the device, so that the whole can
/// be read.
void makeVersions(const fs::path& folder, const std::string& prefix) {
  fs::create_directories(folder);
  KVXEVersion(".").write("version.xml");
  const ptree tree = KVXEXmlReadWrite("version.xml").parseXml(true);
  const ptree& device = tree.get_child("Version.Book.POWER_DESIGN.CurrentSelection");
  int number = 0;
  for (const auto& [tab, tables] : tree.get_child("Version.Book"))
    for (const auto& [table, rows] : tables) {
      ptree few;
      for (const auto& [name, row] : rows)
        if (few.size() < 3) few.push_back({name, few.size() == 1 ? aged(row) : row});
      ptree alone;
      alone.put_child("Version.Book." + tab + "." + table, few);
      writeFile(folder / (prefix + "-table" + std::to_string(number)), textOf(alone));
      if (number++ % 4 != 0) continue;
      alone.put_child("Version.Book.POWER_DESIGN.CurrentSelection", device);
      writeFile(folder / (prefix + "-device" + std::to_string(number)), textOf(alone));
    }
  ptree ips;
  ips.put_child("Version._IpConfiguration", tree.get_child("Version._IpConfiguration"));
  writeFile(folder / (prefix + "-ip"), textOf(ips));
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: kvx_project_seeds DIRECTORY\n";
    return 2;
  }
  const fs::path folder = fs::absolute(argv[1]);
  const ScratchPlace place;
  for (const std::string& architecture :
       {KVXEPartSelection::m_arkeonArchName, KVXEPartSelection::m_morlanArchName,
        KVXEPartSelection::m_somVisionArchName}) {
    makeSmallBook(architecture);
    fillBook();
    makeVersions(folder / "version", architecture);
  }
  KVXEProject project;
  if (!project.newProject("design.kvx") || !project.saveProject("") || !project.closeProject()) return 1;
  makeArchives(folder / "archive", readFile("design.kvx"));
  makeStreams(folder / "stream");
  return 0;
}
