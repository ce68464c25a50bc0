#pragma once

#include <memory>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "engine/base/workbook/KVXEEnums.h"
#include "engine/base/workbook/KVXETabButton.h"
#include "engine/base/workbook/KVXETable.h"
#include "engine/base/workbook/KVXEUID.h"

class KVXEBook;
class KVXEImage;
class KvxBookBundleNodeData;
class KvxGridComponentsContentData;

/// One sheet of a book. The base class holds tables, images, buttons and the helpers with which concrete
/// tabs define themselves; a tab that has no class of its own is an empty sheet of this class.
class KVXETab {
 public:
  // Shared titles, defined in one place as a table.
  static const KVXETitle m_RowID;
  static const KVXETitle m_SpacerTable;
  static const KVXETitle m_UtilTable, m_TypeColumn, m_AvailColumn, m_UsedColumn, m_UtilColumn,
      m_BlockPowerColumn;
  static const KVXETitle m_PowerTable, m_RailColumn, m_InternalRailColumn, m_VoltageColumn,
      m_ActivePowerColumn, m_StaticPowerColumn, m_TotalPowerColumn;
  static const KVXETitle m_UnitsTable, m_UnitsQuantity, m_UnitsEnum, m_UnitsMultiplier, m_UnitsOffset,
      m_UnitsSuffix;
  static const KVXETitle m_powerSupplyTable, m_supplyColumn, m_internalSupplyColumn, m_voltageColumn,
      m_minVoltageColumn, m_maxVoltageColumn, m_stepLoadColumn, m_voltageFromLvrColumn,
      m_powerRailGroupColumn, m_dynamicCurrentColumn, m_staticCurrentColumn, m_totalCurrentColumn,
      m_powerupCurrentColumn;
  static const KVXETitle m_deviceTable, m_optionColumn, m_selectionColumn;  // of the power design tab
  static const KVXETitle m_StoreInfoTable, m_KeyCol, m_ValueCol;            // of the summary tab
  static const KVXETitle m_Power;

  /// A row of the power table: the rail, and the formulas of its active and its static power.
  struct PowerTableRow {
    std::string rail;
    KVXEFormula activeFormula;
    KVXEFormula staticFormula;
  };
  /// A row of the utilization table: its type, and the formula of its four value cells.
  struct UtilizationTableRow {
    std::string type;
    KVXEFormula formula;
  };

  KVXETab(KVXEBook* book, KVXEEnums::TabType type);
  KVXETab(const KVXETab&) = delete;
  KVXETab& operator=(const KVXETab&) = delete;
  virtual ~KVXETab();

  virtual std::string className() const { return "KVXETab"; }
  /// The tab's name on screen.
  virtual std::string getPBTitle() const;
  /// What follows the name: the tab's power and its share of the chip's.
  virtual std::string getPBSuffix();
  /// What the screen shows in place of a tab that is not built yet; empty for a concrete tab.
  virtual std::string getPlaceholderText() const;
  virtual void reservedHook() {}
  /// The gravest severity among the tab's cells that the present viewer sees; 0 for none.
  virtual int getTabSeverity();
  /// Fills the tab of a book that goes out whole: tables, images and buttons. False for a null message.
  virtual bool populate(KvxBookBundleNodeData* node);
  /// Defines the tab's content; the factory calls it once.
  virtual void init();
  virtual void initSpacerTable();

  KVXEBook* getBook() const { return m_book; }
  KVXEEnums::TabType getType() const { return m_type; }
  unsigned int getIndex() const { return static_cast<unsigned int>(m_type); }
  std::string getTypeAsStr() const { return KVXEEnums::nameOf(m_type); }
  bool getIsEnabled() const { return m_isEnabled; }
  void setIsEnabled(bool isEnabled);
  KVXEEnums::Visibility getVisibility() const { return m_visibility; }
  void setVisibility(KVXEEnums::Visibility visibility);

  // Tables and images; null when there is none.
  KVXETable* getTable(const KVXETitle* title) const;
  KVXETable* getTable(const std::string& name) const;
  KVXETable* getTable(unsigned int index) const;
  unsigned int getTableCount() const { return static_cast<unsigned int>(m_tables.size()); }
  KVXEImage* getImage(const KVXETitle* title) const;
  KVXEImage* getImage(const std::string& name) const;
  KVXEImage* getImage(unsigned int index) const;
  unsigned int getImageCount() const { return static_cast<unsigned int>(m_images.size()); }
  KVXETable* createTable(const KVXETitle* title, bool showRowIds, bool gridOptionA, bool gridOptionB,
                         KVXEEnums::GridComponentType kind);
  KVXEImage* createImage(const KVXETitle* title, std::string& file, KVXEFormula formula, bool gridOptionA);
  void incrementTabWidgetTitleCount(const std::string& title) { ++m_tabWidgetTitleCounts[title]; }
  bool hasMultipleTablesInTabWidget(const std::string& title) const;

  // Buttons.
  KVXETabButton& addButton(const std::string& id, const std::string& text, const std::string& toolTip,
                           std::optional<unsigned int> operation);
  KVXETabButton& addFileChooserButton(const std::string& id, const std::string& text,
                                      const std::string& toolTip, const std::string& fileFilter,
                                      unsigned int dialogWidth);
  void enableButton(const std::string& id, const std::string& toolTip);
  void enableButton(const std::string& id, const std::string& toolTip, const std::string& text);
  void disableButton(const std::string& id, const std::string& toolTip);
  const std::vector<std::unique_ptr<KVXETabButton>>& getButtons() const { return m_buttons; }

  // Reading.

  /// The `to` cell of the first row whose `from` cell reads `key`; null when there is none.
  template <class T>
  KVXECell* lookup(const KVXETitle* table, T key, const KVXETitle* from, const KVXETitle* to, bool useRegex);
  /// All such cells; false when there are none.
  template <class T>
  bool lookup(const KVXETitle* table, T key, const KVXETitle* from, const KVXETitle* to,
              std::vector<KVXECell*>& cells, bool useRegex);
  /// The column's values from row 1 on, blank or not, evaluated.
  template <class T>
  void readColumn(const KVXETitle* table, const KVXETitle* column, std::vector<T>& values);
  /// The sum of a float column without its blank cells.
  float sumColumn(const KVXETitle* table, const KVXETitle* column);
  bool getTabTotalPower(float& watts);
  bool getTabActivePower(float& watts);
  bool getTabStaticPower(float& watts);
  /// The share of the chip's total power in percent, as text with two decimals at most.
  std::string getPercentOfTotalChipPowerStr(float watts);

  // Formulas that tabs share.
  static void updateColumnTotal(const KVXEUID& uid);
  static void updateTotalPowerColumn(const KVXEUID& uid);
  static void updateRailAndVoltage(const KVXEUID& uid);

  /// The device as the models know it, and as the user does, from the power design tab's device table.
  static std::string getInternalDeviceName(const KVXEUID& uid);
  static std::string getDeviceName(const KVXEUID& uid);
  /// Whether the utilization table of the tab has more of the type available than used.
  static bool isResourceAvailable(KVXEEnums::TabType type, std::string name);

  void registerMsgCell(KVXECell* cell) { m_msgCells.insert(cell); }
  void unregisterMsgCell(KVXECell* cell) { m_msgCells.erase(cell); }

  /// The voltage, active, static and total columns of the power table, the rows and the total row.
  KVXETable* initPowerTableRows(std::vector<PowerTableRow>& rows);
  KVXETable* initUtilizationTableRows(std::vector<UtilizationTableRow>& rows);

 private:
  bool getPowerTableTotal(const KVXETitle* column, float& watts);
  bool populateComponents(KvxGridComponentsContentData* content);
  bool isGroupHeading() const;

  KVXEBook* m_book;
  KVXEEnums::TabType m_type;
  std::vector<KVXETable*> m_tables;  // owned
  std::vector<KVXEImage*> m_images;  // owned
  std::unordered_map<std::string, unsigned int> m_tabWidgetTitleCounts;
  std::vector<std::unique_ptr<KVXETabButton>> m_buttons;
  bool m_isEnabled = true;
  std::unordered_set<KVXECell*> m_msgCells;
  KVXEEnums::Visibility m_visibility = KVXEEnums::Visibility::EXTERNAL;
};

/// The gravest severity among cells of tables and columns that the present viewer sees.
int severityOfVisible(const std::unordered_set<KVXECell*>& cells);
