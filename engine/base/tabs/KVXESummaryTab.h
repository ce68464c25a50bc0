#pragma once

#include <initializer_list>
#include <map>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "engine/base/tabs/KVXEFixedRows.h"
#include "engine/base/tabs/KVXESummaryTabOnchip.h"
#include "engine/base/workbook/KVXECell.h"
#include "engine/base/workbook/KVXETab.h"

namespace kvxm {
class Record;
}

/// The first page of the estimate: totals, thermal environment and the split of power by block. It reads all
/// other tabs. The totals that others need stand in a hidden table of keys and values, and so do the display
/// units of the whole book.
///
/// The junction temperature is not computed here but on the power design tab, which takes ambient, theta-ja
/// and the user's override from the environment table. So that an override starts where the estimate stands,
/// its cell is seeded from the summary's own junction temperature as that was before.
///
/// The readers take the UID of any cell of the book, evaluate what they read, and give 0 for what is missing.
class KVXESummaryTab : public KVXETab {
 public:
  // Tables, each with its columns.
  static const KVXETitle m_deviceSelectionTable;
  static const KVXETitle m_summaryTableHeader, m_summaryOptionColumn, m_summarySelectionColumn;
  static const KVXETitle m_envTableHeader, m_hbmEnvTableHeader, m_envTypeColumn, m_envTempColumn,
      m_envValColumn;
  static const KVXETitle m_rcxTableHeader, m_rcxTypeColumn, m_rcxOptionColumn;
  static const KVXETitle m_onchipStaticTableHeader, m_onchipDynamicTableHeader, m_onchipTableHeader,
      m_onchipResourceColumn, m_onchipPowerColumn, m_onchipPowerPercentageColumn;
  static const KVXETitle m_resourceTable, m_resourceTypeColumn, m_resourceAvailCountColumn,
      m_resourceUsedCountColumn, m_resourceUtilColumn;

  // Rows of the summary table; the junction temperature is a row of the environment table, too.
  static const std::string m_onChipPowerStr, m_aplxOnChipPowerStr, m_staticOnChipPowerStr,
      m_dynamicOnChipPowerStr, m_junctionTempStr, m_thermalMarginStr, m_thermalPowerMarginStr,
      m_thermalPowerMarginWithExcursionStr, m_characterizationStr;
  // Further rows of the environment table, and those of the HBM environment table.
  static const std::string m_AmbientTempStr, m_thetaJaStr, m_maxJunctionTempStr,
      m_maxJunctionTempWithExcursionStr, m_PowerBudgetStr;
  static const std::string m_hbmOnChipPowerStr, m_hbmJunctionTempStr, m_hbmTjOverrideStr;
  static const std::string m_rcxUsageStr;
  // Entries of the override drop-downs.
  static const std::string m_userOverrideOffStr, m_userOverrideOnStr;
  // Rows of the table of totals.
  static const std::string m_staticKeyStr, m_dynamicKeyStr, m_totalKeyStr;
  // Identifiers of the buttons, which are those of the wizards they open.
  static const std::string m_lvrImportButtonUid, m_exportPwrReportDialogLid, m_resetToDefaultLid,
      m_exportzcfWDialogLid, m_powerDesignXmlExportButtonUid;

  /// Category to components, and the strings that are category rows: of the summary that was made last.
  static std::map<std::string, std::vector<std::string>> m_dynamicPowerSummaryMap, m_staticPowerSummaryMap;
  static std::vector<std::string> m_categoryList;

  KVXESummaryTab(KVXEBook* book, KVXEEnums::TabType type);
  ~KVXESummaryTab() override;
  std::string className() const override { return "KVXESummaryTab"; }

  // Degrees Celsius; theta-ja in degrees per watt.
  static constexpr float getDefaultMaxJunctionTemp() { return 100.0f; }
  static constexpr float getDefaultJunctionTemp() { return 25.0f; }
  static constexpr float getDefaultAmbientTemp() { return 25.0f; }
  static constexpr float getDefaultThetaJa() { return 1.23f; }
  static constexpr float getDefaultMaxAmbientTemp() { return 125.0f; }
  static constexpr float getDefaultMinAmbientTemp() { return -65.0f; }

  // Power in watts.
  static float getFpgaTotalPower(const KVXEUID& uid);
  static float getFpgaStaticPower(const KVXEUID& uid);
  static float getFpgaDynamicPower(const KVXEUID& uid);
  static float getHbmPower(const KVXEUID& uid);
  static float getHbmDynamicPower(const KVXEUID& uid);
  /// What the HBM dies leak before they heat up.
  static float getInitialHbmStaticPower(const KVXEUID& uid);
  /// "STATIC", "DYNAMIC" or "TOTAL" of the table of totals.
  static float getPower(const KVXEUID& uid, const std::string& key);

  // Thermal environment and results, in degrees C and C/W.
  static float getAmbientTemp(const KVXEUID& uid);
  /// The ambient temperature that brings the junction to its maximum.
  static float getMaxAmbientTemp(const KVXEUID& uid);
  static float getMaxJunctionTemp(const KVXEUID& uid);
  static float getUserJunctionTemp(const KVXEUID& uid);
  static float getHbmUserJunctionTemp(const KVXEUID& uid);
  static float getHbmJunctionTemp(const KVXEUID& uid);
  /// Of the power design; 25 while there is none.
  static float getCalculatedJunctionTemp(const KVXEUID& uid);
  static float getThetaJA(const KVXEUID& uid);
  static float getThermalMarginC(const KVXEUID& uid);
  static bool isJunctionTempOverrideOn(const KVXEUID& uid);
  static bool isHbmJunctionTempOverrideOn(const KVXEUID& uid);
  /// Whether the selected device carries HBM.
  static bool hasHbm();

  /// The value cell of a row of the summary, wherever the architecture has that; null for none.
  static KVXECell* summaryCell(const KVXEUID& uid, const std::string& row);

  // The lists of the on-chip tables.
  static std::vector<std::string> getStaticCompList();
  static std::vector<std::string> getDynamicCompList();
  static std::vector<std::string> getStaticCompList(const std::string& category);
  static std::vector<std::string> getDynamicCompList(const std::string& category);
  /// Rows that the on-chip tables need.
  static unsigned int getStaticPowerSummaryListSize();
  static unsigned int getDynamicPowerSummaryListSize();
  /// 1 for a component below a category, else 0.
  static unsigned int getStaticIndentLevel(const std::string& text);
  static unsigned int getDynamicIndentLevel(const std::string& text);
  static bool isCategoryStr(const std::string& text);

  /// (multiplier, offset) of each suffix of a quantity, which is named by its base unit: "W", "C", "MHz".
  static std::map<std::string, std::pair<float, float>> getUnitToMultMap(const std::string& unit);

  // Formulas of the summary table.
  static void updateTotalOnchipPower(const KVXEUID& uid);
  static void updateCalcJunctionTemp(const KVXEUID& uid);
  static void updateThermalMarginC(const KVXEUID& uid);
  static void updateThermalMarginW(const KVXEUID& uid);
  static void updateCharacterizationLabel(const KVXEUID& uid);
  // Of the environment table.
  static void updateJunctionTemp(const KVXEUID& uid);
  static void updateAmbientTemp(const KVXEUID& uid);
  static void updateThetaJa(const KVXEUID& uid);
  static void updateMaxJunctionTemp(const KVXEUID& uid);
  static void updateMaxJunctionTempWithExcursion(const KVXEUID& uid);
  static void updatePowerBudget(const KVXEUID& uid);
  // Of the HBM environment table.
  static void updateHbmOnchipPower(const KVXEUID& uid);
  static void updateHbmStaticPower(const KVXEUID& uid);
  static void updateHbmDynamicPower(const KVXEUID& uid);
  static void updateHbmJunctionTemp(const KVXEUID& uid);
  static void updateHbmTjOverride(const KVXEUID& uid);
  static void updateHbmAmbientTemp(const KVXEUID& uid);
  static void updateHbmThetaJa(const KVXEUID& uid);
  static void updateHbmMaxJunctionTemp(const KVXEUID& uid);
  // Of the on-chip tables and the hidden ones.
  static void updateOnchipStaticPowerInWattsTable(const KVXEUID& uid);
  static void updateOnchipDynamicPowerInWattsTable(const KVXEUID& uid);
  static void updateOnchipPowerInPercentageTable(const KVXEUID& uid);
  static void updateResourceTableResources(const KVXEUID& uid);
  static void updatePowerInfoTable(const KVXEUID& uid);
  static void updateUnitMultiplierOffset(const KVXEUID& uid);

 protected:
  static constexpr KVXECell::Color OrangeBackground = 0xffc000;
  static constexpr KVXECell::Color RedBackground = 0xff0000;
  /// Stands for a blank temperature in older projects, beside a cell's own blank.
  static constexpr float OldBlankTemp = -1000.0f;

  /// What is wrong with a junction temperature; white and no text when nothing is.
  struct JunctionCheck {
    KVXECell::Color background = KVXECell::White;
    const char* message = "";
  };
  /// The user's junction temperature against the letters of a temperature grade.
  static JunctionCheck checkJunctionTemp(const std::string& grade, float celsius);

  /// Where the summary stands.
  struct SummaryPlace {
    const KVXETitle* table;
    const KVXETitle* option;
    const KVXETitle* selection;
    const char* name;             ///< in the message of a formula that runs elsewhere
    const std::string* junction;  ///< its row of the junction temperature
  };

  // What the architectures differ in.
  virtual SummaryPlace summaryPlace() const;
  /// The devices' name in tool tips.
  virtual std::string productName() const { return {}; }
  virtual std::string partStatus(const std::string& /*part*/) const { return {}; }
  virtual std::span<const kvxe::OnchipCategory> dynamicCategories() const { return {}; }
  virtual std::span<const kvxe::OnchipCategory> staticCategories() const { return {}; }
  virtual std::span<const kvxe::OnchipSource> dynamicSources() const { return {}; }
  virtual std::span<const kvxe::OnchipStaticTerm> staticTerms() const { return {}; }
  /// The factor of the terms that are scaled.
  virtual float staticScale(kvxm::Record& /*result*/) const { return 1.0f; }
  /// An input record of the static model; null without one.
  virtual std::unique_ptr<kvxm::Record> makeStaticParams() const;
  virtual void calculateStatic(kvxm::Record&) const {}
  /// What the percentages of the on-chip tables relate to, in watts.
  virtual float percentageBase(const KVXEUID& uid);

  // Table by table, in the order in which a concrete tab wants them.
  /// Refills the static lists from what the architecture declares.
  void initSummaryMap();
  void initDeviceSelectionTable();
  void initSummaryTable(std::span<const KVXEFixedRow> rows, const std::string& message = {});
  /// All environment rows but the omitted ones.
  void initEnvironmentTable(std::initializer_list<const std::string*> omitted = {});
  void initHbmEnvironmentTable();
  void initOnchipStaticPowerTable();
  void initOnchipDynamicPowerTable();
  /// Dynamic and static power in one table; the text of a static row says that it is.
  void initOnchipPowerTable();
  /// An on-chip table of either kind without rows.
  KVXETable* createOnchipTable(const KVXETitle& title, KVXEFormula power);
  void initResourceTable();
  void initPowerInfoTable(KVXEFormula formula = &updatePowerInfoTable);
  void initUnitsTable();

  // What formulas share.
  /// The summary tab of the cell's book; null when there is none.
  static KVXESummaryTab* tabOf(const KVXEUID& uid);
  /// Whether the formula runs in one of its tables; if not, "Error: error occured in updating <what>." is
  /// printed.
  static bool isInTable(const KVXEUID& uid, std::initializer_list<const KVXETitle*> tables, const char* what);
  /// The text of a column of the formula's own row.
  static std::string textInRow(const KVXEUID& uid, const KVXETitle& column);
  /// Whether the formula runs in the summary; if not, that is printed.
  static bool isInSummary(const KVXEUID& uid);
  /// The value cell of a row of the environment or the HBM environment table; null for none.
  static KVXECell* environmentCell(const KVXEUID& uid, const std::string& row, const KVXETitle& column);
  static KVXECell* hbmEnvironmentCell(const KVXEUID& uid, const std::string& row, const KVXETitle& column);
  /// The number in a cell, nothing for no cell or either of the values that stand for a blank.
  static std::optional<float> readEntry(KVXECell* cell);
  /// The temperature grade of the selected part, as its letter.
  static std::string temperatureGrade(const KVXEUID& uid);
  /// "%.3f W".
  static std::string wattsText(float watts);
  /// Gives the cell the background of the environment's junction temperature, so that a temperature out of
  /// range marks every result that rests on it; white turns into the grey of read-only cells.
  static void copyJunctionBackground(const KVXEUID& uid, KVXECell* cell);
  static void setRowVisible(KVXERow* row, bool isVisible);
  /// Writes a margin in watts, and the message of a negative one.
  static void writeMargin(KVXECell* cell, float watts, const std::string& text, const char* message);
  /// The static model's results at a junction temperature, with the voltages and blocks of the book.
  std::unique_ptr<kvxm::Record> calculateStaticAt(const KVXEUID& uid, float celsius) const;
  /// Keeps the value of an override that is on, or starts it at the cell that `seed` gives; blanks it when it
  /// is off. True while it is on.
  static bool updateOverride(const KVXEUID& uid, KVXECell* (*seed)(const KVXEUID&));

  static const char* const m_negativeMarginMsg;

 private:
  void findStaticRunCell(const KVXETitle& table);
  void fillOnchipTable(KVXETable& table, std::span<const kvxe::OnchipCategory> categories);
  void createSummaryRow(KVXETable& table, const std::string& text);
  std::optional<float> readSources(const KVXEUID& uid, const std::string& row) const;
  bool isWholeTabRow(const std::string& row) const;
  void runStaticModel(const KVXEUID& uid);
  float staticWatts(const std::string& row) const;
  static float hbmStaticPowerAt(const KVXEUID& uid, float celsius);
  static bool beginHbm(const KVXEUID& uid);

  KVXECell* m_staticRunCell = nullptr;     ///< of the row that runs the static model for all rows
  std::unique_ptr<kvxm::Record> m_static;  ///< results behind m_staticRunCell
};
