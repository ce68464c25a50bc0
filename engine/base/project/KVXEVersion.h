#pragma once

#include <boost/filesystem/path.hpp>
#include <boost/property_tree/ptree_fwd.hpp>
#include <string>
#include <unordered_map>
#include <vector>

#include "engine/base/project/TableId.h"

class KVXETab;
class KVXETable;
class KVXEXmlReadWrite;
namespace kvxe {
class XmlOutline;
class XmlOutput;
}  // namespace kvxe

/// The book as a file. It holds no objects: of each table it has the rows, of each row the value of each cell
/// with a note of where the value came from. On reading, the book is made anew for the saved device, and only
/// what the user supplied is poured back, so that all that is computed is computed afresh.
class KVXEVersion {
 public:
  using Rows = std::vector<std::unordered_map<std::string, std::string>>;

  /// More cells than a book has in use; a file that asks for more is refused, and such a book is not saved.
  static constexpr std::size_t MaxCells = 800'000;

  explicit KVXEVersion(const boost::filesystem::path& stagingDir);

  /// Writes the current book; an empty path means the project's own file. Without a device or a book nothing
  /// is written. NException when the file cannot be written, or could not be read again.
  void write(const std::string& xmlPath);
  /// Makes the book that of the file, as yet without a calculation. False for a file without a device, and,
  /// with a message, for one that cannot be taken; a damaged file throws what the XML reader throws. What the
  /// present book does not have (tabs, tables, rows, columns) is passed over.
  bool read(const std::string& xmlPath);

  // The steps of reading and writing.

  /// The tables of a tree in document order; `stack` holds the names of the elements above.
  void getAllParamPaths(std::vector<TableId>& out, const boost::property_tree::ptree& node,
                        std::vector<std::string>& stack) const;
  /// The path of the rows that hold the device; empty when there is none.
  std::string getCurrentSelectionTablePath(const std::vector<TableId>& tables) const;
  /// The column by whose value saved rows find theirs; empty when they go by position.
  std::string getPilotCol(const KVXEXmlReadWrite& xml, const TableId& table) const;
  void populateParams(const TableId& tableId, const Rows& rows, const std::string& pilotTag);
  void writeIPConfigurations(kvxe::XmlOutput& out) const;
  void readIPConfigurations(const KVXEXmlReadWrite& xml) const;

 private:
  std::string fileOr(const std::string& xmlPath) const;
  void writeTab(kvxe::XmlOutput& out, KVXETab* tab) const;
  void writeTable(kvxe::XmlOutput& out, KVXETable* table) const;
  void writeDevice(kvxe::XmlOutput& out) const;
  using Settings = std::unordered_map<std::string, std::string>;
  Settings readDevice(const kvxe::XmlOutline& outline, const std::vector<TableId>& tables) const;
  bool makeBookOf(Settings settings) const;
  void populateTable(KVXETable* table, const Rows& rows, const std::string& pilotTag) const;

  boost::filesystem::path m_versionsDir;
  std::string m_version;
};
