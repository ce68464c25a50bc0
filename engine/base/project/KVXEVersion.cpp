#include "engine/base/project/KVXEVersion.h"

#include <iostream>

#include "engine/base/project/KVXEXmlReadWrite.h"
#include "engine/base/project/XmlOutline.h"
#include "engine/base/project/XmlOutput.h"
#include "engine/base/project/XmlScan.h"
#include "engine/base/selection/KVXEPartSelection.h"
#include "engine/base/tabs/KVXEPowerDesignTitles.h"
#include "engine/base/workbook/KVXEBook.h"
#include "engine/base/workbook/KVXEBookMgr.h"
#include "engine/base/workbook/KVXECell.h"
#include "engine/base/workbook/KVXEHeaderRow.h"
#include "engine/base/workbook/KVXETab.h"
#include "engine/base/workbook/KVXETitle.h"
#include "engine/wizard/base/KVXEWizardMgr.h"
#include "platform/wyr_common/NException.h"

using KVXEEnums::TitleType;
using KVXEEnums::ValueSource;

namespace {

using AttributeVector = std::vector<std::pair<std::string, std::string>>;

constexpr const char* IpUid = "_ipUid";
constexpr const char* RowIdTag = "RowId";  // says where a row stands, which it does by standing there

/// A cell that nobody has given a value holds its column's.
std::string sourceOf(const KVXECell* cell) {
  const ValueSource source = cell->getValueSource();
  return KVXEEnums::nameOf(source == ValueSource::NumItems ? ValueSource::DEFAULT : source);
}

/// The cell's value, computed if need be; empty for a blank one.
std::string valueOf(KVXECell* cell) {
  std::string text;
  return cell->getVal(text, true) ? text : std::string();
}

[[noreturn]] void refuse(const std::string& what, std::size_t count, std::size_t most) {
  throw NException(what + " " + std::to_string(count) + "; a project file holds " + std::to_string(most) +
                   ". Delete what is not used.");
}

/// What is saved must open again.
void checkSize(const KVXEBook& book) {
  std::size_t cells = 0;
  for (unsigned int i = 0; i < book.getTabCount(); ++i) {
    const KVXETab* tab = book.getTab(i);
    for (unsigned int j = 0; tab && j < tab->getTableCount(); ++j) {
      const KVXETable* table = tab->getTable(j);
      if (!table->getTableTitle()) continue;  // not saved
      const std::size_t rows = table->getRowCount(), columns = table->getColumnCount();
      // A row is an element with a list of attributes, two for each cell.
      if (rows * 2 * (columns + 1) > kvxe::maxXmlNodes)
        refuse("The rows of table \"" + table->getTableTitle()->getDisplayTag(false) + "\" are", rows,
               kvxe::maxXmlNodes / (2 * (columns + 1)));
      cells += rows * columns;
    }
  }
  if (cells > KVXEVersion::MaxCells) refuse("The cells of the book are", cells, KVXEVersion::MaxCells);
  const std::size_t ips = KVXEWizardMgr::getGlobal().getSavedConfigs().size();
  constexpr std::size_t mostIps = kvxe::XmlOutline::MaxElements / 2;  // tabs and tables take the rest
  if (ips > mostIps) refuse("The configurations of IP are", ips, mostIps);
}

/// Rows that are told apart by a column need different values there.
void reportDuplicatePilots(KVXETable* table, const KVXETitle& pilot) {
  std::map<std::string, unsigned int> counts;
  for (unsigned int row = 1; row < table->getRowCount(); ++row)
    if (KVXECell* cell = table->getCellAt(row, &pilot)) ++counts[valueOf(cell)];
  for (const auto& [value, count] : counts) {
    if (value.empty() || count == 1) continue;
    std::cout << "\nError: Pilot column with duplicate values : " << table->getTab()->getTypeAsStr() << "->"
              << table->getTableTitle()->getTag(TitleType::KVX) << "->" << pilot.getTag(TitleType::KVX)
              << " has " << std::to_string(count) << " " << value << '\n';
    return;
  }
}

/// A column that is saved, and the names of its two attributes.
struct SavedColumn {
  unsigned int index;
  std::string tag, sourceTag;
};

/// The columns of a table that are saved, in order. Where columns share a tag the last one has it.
std::vector<SavedColumn> savedColumns(const KVXEHeaderRow& header) {
  std::unordered_map<unsigned int, std::string> tags;
  header.populateIndexToTag(TitleType::KVX, tags);
  std::vector<SavedColumn> columns;
  for (unsigned int index = 0; index < header.getColumnCount(); ++index) {
    const auto found = tags.find(index);
    if (found == tags.end() || found->second == RowIdTag) continue;
    const std::string& tag = found->second;
    std::erase_if(columns, [&](const SavedColumn& column) { return column.tag == tag; });
    columns.push_back({index, tag, tag + "_SOURCE"});
  }
  return columns;
}

AttributeVector attributesOf(KVXERow* row, const std::vector<SavedColumn>& columns) {
  AttributeVector attributes;
  attributes.reserve(2 * columns.size());
  for (const SavedColumn& column : columns) {
    KVXECell* cell = row->getCell(column.index);
    if (!cell) continue;
    attributes.emplace_back(column.tag, valueOf(cell));
    attributes.emplace_back(column.sourceTag, sourceOf(cell));
  }
  return attributes;
}

}  // namespace

KVXEVersion::KVXEVersion(const boost::filesystem::path& stagingDir)
    : m_versionsDir(stagingDir / "versions"), m_version("topVersion") {}

std::string KVXEVersion::fileOr(const std::string& xmlPath) const {
  return xmlPath.empty() ? (m_versionsDir / m_version / "version.xml").string() : xmlPath;
}

void KVXEVersion::write(const std::string& xmlPath) {
  const KVXEPartSelection* selection = KVXEPartSelection::getGlobal();
  if (!selection) return;
  const KVXEBook* book = KVXEBookMgr::getGlobal().getOrCreateCurrentBook(selection->getArchName());
  if (!book) return;
  checkSize(*book);
  KVXEXmlReadWrite(fileOr(xmlPath)).writeXml(true, [&](kvxe::XmlOutput& out) {
    out.open("Version");
    out.open("Book");
    for (unsigned int i = 0; i < book->getTabCount(); ++i)
      if (KVXETab* tab = book->getTab(i)) writeTab(out, tab);
    out.close();
    writeIPConfigurations(out);
    out.close();
  });
}

void KVXEVersion::writeTab(kvxe::XmlOutput& out, KVXETab* tab) const {
  out.open(tab->getTypeAsStr());
  for (unsigned int i = 0; i < tab->getTableCount(); ++i) {
    KVXETable* table = tab->getTable(i);
    if (table && table->getTableTitle()) writeTable(out, table);
  }
  out.close();
}

void KVXEVersion::writeTable(kvxe::XmlOutput& out, KVXETable* table) const {
  out.open(table->getTableTitle()->getTag(TitleType::KVX));
  if (const KVXETitle* pilot = table->getPilotColumnTitle()) {
    const AttributeVector config = {{"PilotCol", pilot->getTag(TitleType::KVX)}};
    out.add("config", config);
    reportDuplicatePilots(table, *pilot);
  }
  if (const KVXEHeaderRow* header = table->getHeaderRow()) {
    const std::vector<SavedColumn> columns = savedColumns(*header);
    for (unsigned int i = 1; i < table->getRowCount(); ++i)
      out.add("params", attributesOf(table->getRow(i), columns));
  }
  // The choice of the device stands behind the rows that the table has itself.
  if (table->getTableTitle() == &KVXEPowerDesignTitles::m_currentSelectionTable) writeDevice(out);
  out.close();
}

void KVXEVersion::writeDevice(kvxe::XmlOutput& out) const {
  const KVXEPartSelection& selection = *KVXEPartSelection::getGlobal();
  const std::string computed = KVXEEnums::nameOf(ValueSource::FORMULA);
  const auto add = [&](const std::string& option, const std::string& value) {
    const AttributeVector row = {{"Option", option},
                                 {"Option_SOURCE", computed},
                                 {"Selection", value},
                                 {"Selection_SOURCE", computed}};
    out.add("params", row);
  };
  add(KVXEPartSelection::m_archStr, selection.getArchName());
  for (const auto& [option, value] : selection.getCurrentSettings())
    if (option != KVXEPartSelection::m_archStr) add(option, value);
}

void KVXEVersion::writeIPConfigurations(kvxe::XmlOutput& out) const {
  out.open("_IpConfiguration");
  for (const auto& [uid, properties] : KVXEWizardMgr::getGlobal().getSavedConfigs()) {
    AttributeVector row(properties.begin(), properties.end());
    std::erase_if(row, [](const auto& property) { return property.first == IpUid; });
    row.emplace_back(IpUid, uid);
    out.add("ip", row);
  }
  out.close();
}
