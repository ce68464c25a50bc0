#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "models/catalogue/CsvTable.h"
#include "models/catalogue/DataFile.h"
#include "models/catalogue/DeviceCatalogue.h"
#include "models/catalogue/ModelDataStore.h"

namespace kvxm {

/// Puts the catalogue together from data files, the built-in ones first. A row replaces the one with the same
/// key from an earlier layer; the same key twice in one layer is a mistake. What the rows leave unsaid about
/// a known device stays as it was.
class CatalogueBuilder {
 public:
  explicit CatalogueBuilder(Problems& problems) : m_problems(problems) {}

  /// Takes in one CSV file. Files come ordered by kind, then by layer.
  void read(const DataFile& file);
  /// Gives each device its supplies and checks that everything refers to something and no device lacks a
  /// part, a resource, a supply or a maximum current.
  void finish();

  /// Names that a section of coefficients.toml may carry.
  std::vector<std::string_view> deviceNames(Architecture architecture) const;
  std::vector<std::string_view> familyNames(Architecture architecture) const;
  /// Names of its supplies, once for each row that says something of them.
  std::vector<std::string_view> railNames(Architecture architecture) const;

  std::vector<Family> families;
  std::vector<Device> devices;
  std::vector<SomModule> modules;
  std::vector<ParameterDefault> parameters;
  std::vector<std::pair<std::string, std::string>> aliases;

 private:
  /// Where a record was written, for mistakes that show only later.
  struct Origin {
    DataFile file;  ///< without its text
    int line = 0;
  };
  /// One row of supplies.csv: a rail with its limits for some grades of some devices.
  struct SupplyRule {
    Architecture architecture;
    std::vector<std::string> scope;  ///< devices, none for all
    Supply supply;                   ///< with one range
  };

  void readFamily(CsvRow& row, const DataFile& file);
  void readDevice(CsvRow& row, const DataFile& file);
  void readModule(CsvRow& row, const DataFile& file);
  void readSupply(CsvRow& row, const DataFile& file);
  void readPackage(CsvRow& row, const DataFile& file);
  void readParts(CsvRow& row, const DataFile& file);
  void readParameter(CsvRow& row, const DataFile& file);
  void readAlias(CsvRow& row, const DataFile& file);
  void readResources(CsvTable& table);
  void readLeakage(CsvTable& table);

  /// A table of one row per name and one column per device: calls set(device, name, cell text, line).
  template <class Set>
  void readMatrix(CsvTable& table, std::string_view nameColumn, const std::vector<std::string_view>& names,
                  Set set);
  /// Reports a key that its layer has already; false if so.
  bool firstInLayer(CsvRow& row, const DataFile& file, std::string_view column, const std::string& key);
  bool overridesBuiltIn(const DataFile& file, const std::string& key) const;
  void noteOrigin(const std::string& key, const DataFile& file, int line);
  void lack(const std::string& key, std::string_view what, std::string_view expected);
  Device* findDevice(Architecture architecture, std::string_view name);
  Device* knownDevice(CsvRow& row, const DataFile& file, std::string_view column);
  void addPart(Device& device, const DataFile& file, Part part);

  void resolveSupplies(Device& device);
  void applyRule(Device& device, const SupplyRule& rule);
  void adoptBaseDevices();
  void checkFamilies();
  void checkDevice(const Device& device);

  Problems& m_problems;
  std::vector<SupplyRule> m_supplyRules;
  std::map<std::string, std::map<std::string, float, std::less<>>> m_leakage;  ///< watts by device and rail
  std::set<std::string> m_seen;  ///< layer, kind and key of each row
  std::map<std::string, Origin> m_origins;
};

/// The resources that the workbook knows on an architecture.
const std::vector<std::string_view>& knownResources(Architecture architecture);

/// Keys of the groups of the power design, in its order.
const std::vector<std::string_view>& supplyCategories();

/// The architecture of a data directory.
Architecture architectureOf(const DataFile& file);

}  // namespace kvxm
