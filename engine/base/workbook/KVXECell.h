#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "engine/base/services/KVXEMsg.h"
#include "engine/base/workbook/CppStateManager.h"
#include "engine/base/workbook/KVXEEnums.h"
#include "engine/base/workbook/KVXEUID.h"

class GenericTreeTableCellData;
class KVXEHeaderCell;
class KVXEHeaderRow;
class KVXETable;

/// The atom of the workbook: one typed value in one column of one row, with a formula that may compute it, a
/// drop-down list, a range, a display unit, an editable flag, colours and at most one message.
///
/// Every cell answers in each of the three value types, converting where it must, so that a tab reads a
/// column without knowing its type. Every read and write reports itself to KVXECalculationMgr, which is how
/// dependencies are learned: nobody declares them. Misuse prints a line and goes on; nothing throws.
class KVXECell {
 public:
  using Colors = std::pair<std::uint32_t, std::uint32_t>;  ///< (text, background), 24-bit RGB
  using Color = std::uint32_t;
  using StateBundle = CppStateNodesBundle<KVXECell, KVXEEnums::CellState>;

  static constexpr Color Black = 0x000000;
  static constexpr Color White = 0xFFFFFF;
  static constexpr Color ReadOnlyBackground = 0xF5F5F5;

  /// A new blank cell in state `DIRTY_DISABLED`; the row becomes its owner. Null for a type without a class.
  static KVXECell* CreateCell(KVXEEnums::CellType type, KVXERow* row, unsigned int columnIndex);

  KVXECell(const KVXECell&) = delete;
  KVXECell& operator=(const KVXECell&) = delete;

  /// Copies value, range, list, editability, formula, unit and source to `target`, which becomes dirty; its
  /// state is not copied, and nothing is evaluated.
  virtual void copyAssignElements(KVXECell* target) const;
  /// Same value, range, list, editability and unit; brings both values up to date.
  virtual bool isEquivalentElements(KVXECell* other);
  virtual std::string className() const { return "KVXECell"; }
  virtual KVXEEnums::CellType getCellType() const = 0;
  virtual ~KVXECell();

  virtual void setValAndState(const int& value, KVXEEnums::CellState state) = 0;
  virtual void setValAndState(const float& value, KVXEEnums::CellState state) = 0;
  virtual void setValAndState(const std::string& value, KVXEEnums::CellState state) = 0;
  virtual void setValAndMarkEngineClean(const int& value) = 0;
  virtual void setValAndMarkEngineClean(const float& value) = 0;
  virtual void setValAndMarkEngineClean(const std::string& value) = 0;
  virtual void setDDValsAndMarkEngineClean(const std::vector<int>& values) = 0;
  virtual void setDDValsAndMarkEngineClean(const std::vector<float>& values) = 0;
  virtual void setDDValsAndMarkEngineClean(const std::vector<std::string>& values) = 0;
  virtual void setRange(const std::pair<int, int>& range) = 0;
  virtual void setRange(const std::pair<float, float>& range) = 0;
  virtual void setRange(const std::pair<std::string, std::string>& range) = 0;
  virtual void setBlankAndState(KVXEEnums::CellState state);
  virtual void setBlankAndMarkEngineClean();

  /// Reads the value, after running the formula of a dirty cell if asked. True unless it is blank.
  virtual bool getVal(int& value, bool evaluateIfDirty) = 0;
  virtual bool getVal(float& value, bool evaluateIfDirty) = 0;
  virtual bool getVal(std::string& value, bool evaluateIfDirty) = 0;
  /// The value as the screen shows it: in the display unit, with its suffix. True unless it is blank.
  virtual bool getValWithUnit(std::string& text, bool evaluateIfDirty) = 0;
  /// Converts between stored and displayed value, in place.
  virtual void unitAdjustment(int& value, bool toDisplay) = 0;
  virtual void unitAdjustment(float& value, bool toDisplay) = 0;
  virtual void unitAdjustment(std::string& value, bool toDisplay) = 0;
  /// The drop-down entries as text: the cell's own, or those of its column. True unless there are none.
  virtual bool getDDVals(std::vector<std::string>& values) = 0;
  /// Puts or clears the message on a value that is not in the drop-down list.
  virtual void addDDErrorMsgIfApplicable() = 0;
  /// The same for a value beyond the range, which a formula may have narrowed after the value was entered.
  virtual void addRangeErrorMsgIfApplicable() = 0;
  /// Fills the cell of a table that goes out whole, after which the front end knows the cell. False for a
  /// null message.
  virtual bool populate(GenericTreeTableCellData* data);

  KVXERow* getRow() const { return m_row; }
  unsigned int getColumnIndex() const { return m_columnIndex; }

  KVXEEnums::CellState getState() const;
  void setState(KVXEEnums::CellState state);
  void clearState();
  bool isEngineClean() const;
  bool isGuiClean() const;
  /// Against its name, true for a cell that has been disabled (see KVXECellStateMgr::isEnabled).
  bool isEnabled() const;
  void markEngineClean();
  void markGuiClean();
  void markBothDirty();
  void setIsEnabled(bool isEnabled);

  bool getIsEditable() const { return m_isEditable; }
  void setIsEditable(bool isEditable);
  void setColor(Colors colors);
  void setBackgroundColor(Color background) { setColor({m_color.first, background}); }
  /// The stored colours, or those that a warning or an error forces.
  Colors getColor() const;

  void assignFormula(KVXEFormula formula);
  KVXEFormula getFormula() const { return m_formula; }
  /// The formula of a cell that holds what was put into it.
  static void NoFormula(const KVXEUID& uid);
  /// Runs the formula if the cell is engine dirty. Cycles are reported and left.
  void evaluateFormula();
  /// Whether evaluating the cell reads other cells or can be observed: a plain value without a unit, which
  /// is what most cells are, only becomes clean.
  bool hasWorkToDo() const;
  /// The formula is running.
  bool getIsEvaluating() const { return m_isEvaluating; }
  /// Asks for one more evaluation of this cell and all that depends on it, in the next round.
  void markDirtyForNextCalculationIteration();

  /// The message, or null.
  const KVXEMsg* getMsg() const { return m_msg.get(); }
  void setMsg(const KvxSeverity& severity, const std::string& text);
  void clearMsg();
  /// Severity of the message, NONE without one.
  KvxSeverity getSeverity() const { return m_msg ? m_msg->getSeverity() : KvxSeverity::NONE; }

  KVXEEnums::Unit getUnit() const { return m_unit; }
  void setUnit(KVXEEnums::Unit unit);
  /// Reads multiplier, offset and suffix of the cell's unit from the units table of the UID's book.
  void updateUnitInfo(const KVXEUID& uid);
  float getUnitMultiplier() const { return m_unitMultiplier; }
  float getUnitOffset() const { return m_unitOffset; }
  const std::string& getUnitSuffix() const { return *m_unitSuffix; }

  KVXEEnums::ValueSource getValueSource() const { return m_valueSource; }
  void setValueSource(KVXEEnums::ValueSource source) { m_valueSource = source; }

  KVXEHeaderRow* getHeaderRow() const;
  /// The template of the cell's column: its type, default, formula, unit, range.
  KVXECell* getHeaderDefaultCell();
  /// The head of the cell's column.
  KVXEHeaderCell* getHeaderDisplayCell();
  bool isInADropdownColumn();

  /// The cell's path and value for messages; evaluates nothing.
  std::string describe(const std::string& separator) const;

  // Kept by the state manager.
  StateBundle* mp_state = nullptr;
  std::uint32_t m_stateSlot = 0;
  // Kept by the wire population: a fingerprint of what the front end has, 0 when that is not known.
  std::uint64_t m_sentLook = 0;
  // Kept by the dependency graph: the vertex, valid for the graph of that generation.
  std::uint32_t m_vertex = 0;
  std::uint32_t m_graphGeneration = 0;

 protected:
  KVXECell();
  /// Stores what was written by a formula: the value is in place, the state follows.
  void finishWrite(KVXEEnums::CellState state);
  void finishWriteEngineClean();
  /// Has the front end told of a change that it can see.
  void noteLookChanged();

 private:
  void reportCycle(const KVXEUID& uid);
  void updateUnitInfo(KVXEBook* book);
  void resetUnitInfo();
  KVXETable* getTable() const;

  std::unique_ptr<KVXEMsg> m_msg;
  KVXERow* m_row = nullptr;
  KVXEFormula m_formula = &KVXECell::NoFormula;
  const std::string* m_unitSuffix;  // interned: a handful of texts serve all cells
  std::uint32_t m_columnIndex = 0xFFFFFFFF;
  Colors m_color{Black, White};
  float m_unitMultiplier = 1.0f;
  float m_unitOffset = 0.0f;
  KVXEEnums::Unit m_unit = KVXEEnums::Unit::NO_UNIT;
  KVXEEnums::ValueSource m_valueSource = KVXEEnums::ValueSource::NumItems;
  bool m_isEditable = true;
  bool m_isEvaluating = false;
};
