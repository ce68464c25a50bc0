#include "clients/cli/ProjectContents.h"

#include <algorithm>
#include <boost/property_tree/ptree.hpp>
#include <filesystem>
#include <stdexcept>

#include "clients/cli/ScratchDirectory.h"
#include "engine/base/project/KVXEXmlReadWrite.h"
#include "engine/base/tabs/KVXEPowerDesignTitles.h"
#include "engine/base/workbook/KVXEEnums.h"
#include "platform/wyr_common/ArchiveReader.h"
#include "platform/wyr_common/NDUZip.h"

namespace kvx {

namespace {

namespace fs = std::filesystem;
using boost::property_tree::ptree;
using KVXEEnums::ValueSource;

constexpr const char* AttributesKey = "<xmlattr>";
constexpr const char* RowsKey = "params";
constexpr std::string_view SourceEnding = "_SOURCE";

bool isSupplied(const std::string& source) {
  const auto isName = [&source](ValueSource each) { return KVXEEnums::nameOf(each) == source; };
  return isName(ValueSource::USER) || isName(ValueSource::XML) || isName(ValueSource::IP);
}

std::size_t countSupplied(const ptree& row) {
  const auto attributes = row.get_child_optional(AttributesKey);
  if (!attributes) return 0;
  return static_cast<std::size_t>(std::count_if(attributes->begin(), attributes->end(), [](const auto& each) {
    return each.first.ends_with(SourceEnding) && isSupplied(each.second.data());
  }));
}

ProjectContents::Settings attributesOf(const ptree& element) {
  ProjectContents::Settings settings;
  if (const auto attributes = element.get_child_optional(AttributesKey))
    for (const auto& [name, value] : *attributes) settings.emplace_back(name, value.data());
  return settings;
}

void readTab(const std::string& tab, const ptree& tables, ProjectContents& contents) {
  for (const auto& [name, table] : tables) {
    ProjectContents::Table summary{tab, name, 0, 0};
    for (const auto& [kind, row] : table) {
      if (kind != RowsKey) continue;
      ++summary.rows;
      summary.supplied += countSupplied(row);
    }
    if (summary.rows > 0) contents.tables.push_back(std::move(summary));
  }
}

/// The device is chosen in rows that no table of the book has, each an option and its value.
void readDevice(const ptree& version, ProjectContents& contents) {
  const auto rows = version.get_child_optional("Version.Book.POWER_DESIGN.CurrentSelection");
  if (!rows) throw std::runtime_error("the project names no device");
  for (const auto& [kind, row] : *rows) {
    const auto option = row.get_optional<std::string>("<xmlattr>.Option");
    // The table's own row, which chooses a current, is no part of the device.
    if (kind == RowsKey && option && *option != KVXEPowerDesignTitles::m_currentSelectionStr)
      contents.device.emplace_back(*option, row.get("<xmlattr>.Selection", std::string()));
  }
}

void readVersion(const ptree& version, ProjectContents& contents) {
  readDevice(version, contents);
  for (const auto& [tab, tables] : version.get_child("Version.Book")) readTab(tab, tables, contents);
  if (const auto ips = version.get_child_optional("Version._IpConfiguration"))
    for (const auto& [kind, ip] : *ips) {
      const ProjectContents::Settings properties = attributesOf(ip);
      contents.ips.push_back({ip.get("<xmlattr>._ipUid", std::string()), properties.size() - 1});
    }
}

}  // namespace

ProjectContents readContents(const std::string& path) {
  if (NDUZip::checkIntegrity(NDUFile(path)) != 0)
    throw std::runtime_error(
        "the file is damaged or no project: its digest is missing, or is not that of its bytes");
  ProjectContents contents;
  contents.bytes = fs::file_size(path);
  const ScratchDirectory scratch;
  ArchiveReader archive(path);
  for (const ArchiveReader::Entry& entry : archive.entries())
    contents.entries.push_back({entry.name, entry.size, entry.packed});
  archive.unpack(scratch.path().string());
  KVXEXmlReadWrite record((scratch.path() / "kvx.xml").string());
  if (const auto product = record.parseXml(true).get_child_optional("KVX.ProductInfo"))
    contents.product = attributesOf(*product);
  KVXEXmlReadWrite version((scratch.path() / "versions" / "topVersion" / "version.xml").string());
  readVersion(version.parseXml(true), contents);
  return contents;
}

}  // namespace kvx
