#include "tests/kit/RandomDesign.h"

using namespace KVXEEnums;
using Clock = KVXEClockTab;
using Summary = KVXESummaryTab;

std::string RandomDesign::changeDevice() {
  KVXEPartSelection* selection = KVXEPartSelection::getGlobal();
  const std::string part = oneOf(selection->getAvailableParts());
  const std::string process = oneOf({KVXEPartSelection::m_typStr, KVXEPartSelection::m_maxStr});
  EXPECT_TRUE(selection->selectPart(part, process)) << part;
  selection->redrawTabs(true);
  if (m_rows != 0) m_book.trim(m_rows);
  m_fixedCells.clear();
  forEachTable([&](KVXETable* table) {
    if (isFixed(table))
      forEachCell(table, [&](KVXECell* cell) {
        if (cell->getIsEditable()) m_fixedCells.emplace_back(cell, textIn(cell));
      });
  });
  return part + " " + process;
}

void RandomDesign::make() {
  clear();
  setAmbient();
  for (const auto& [cell, start] : m_fixedCells) fill(cell);
  fillTables(true);
  m_book.settle();
  readClockTags();
  fillTables(false);
  for (int pass = 0; pass < 2; ++pass) {  // some lists follow from what other cells hold
    m_book.settle();
    replaceWhatIsNoLongerOffered();
  }
  m_book.settle();
}

void RandomDesign::clear() {
  forEachTable([](KVXETable* table) {
    if (table->getHasTableEditingFeatures()) table->resetDefaults(1, table->getRowCount() - 1);
  });
  for (const auto& [cell, start] : m_fixedCells) {
    if (start.empty()) {
      cell->setBlankAndState(CellState::DIRTY_DIRTY);
    } else {
      cell->setValAndState(start, CellState::DIRTY_DIRTY);
    }
    cell->setValueSource(ValueSource::DEFAULT);
  }
  m_book.settle();
}

void RandomDesign::doubleRows() {
  forEachTable([](KVXETable* table) {
    if (!table->getHasTableEditingFeatures() || table->getTab()->getType() == TabType::CLOCK) return;
    const unsigned int half = (table->getRowCount() - 1) / 2;
    for (unsigned int row = 1; row <= half; ++row)
      table->getRow(row)->copyAssignElements(table->getRow(row + half));
  });
  m_book.settle();
}

void RandomDesign::doubleFrequencies() {
  KVXETable* clocks = m_book.book()->getTable(TabType::CLOCK, &Clock::m_ClockConfigTable);
  for (unsigned int row = 1; row < clocks->getRowCount(); ++row) {
    KVXECell* frequency = clocks->getCellAt(row, &Clock::m_ClockFreq);
    if (!std::isnan(numberIn(frequency))) m_book.put(frequency, 2.0f * numberIn(frequency));
  }
  m_book.settle();
}

const std::string& RandomDesign::oneOf(const std::vector<std::string>& list) {
  return list[below(static_cast<unsigned int>(list.size()))];
}
float RandomDesign::between(float low, float high) {
  return low + (high - low) * static_cast<float>(below(1001)) / 1000.0f;
}

/// Whether the table is one of an estimation tab whose rows are given.
bool RandomDesign::isFixed(const KVXETable* table) {
  const TabType type = table->getTab()->getType();
  return !table->getHasTableEditingFeatures() && type > TabType::ESTIMATION_START &&
         type < TabType::ESTIMATION_END;
}

void RandomDesign::fillTables(bool areClocks) {
  forEachTable([&](KVXETable* table) {
    if (!table->getHasTableEditingFeatures() || (table->getTab()->getType() == TabType::CLOCK) != areClocks ||
        below(4) == 0)
      return;
    const unsigned int rows = 1 + below((table->getRowCount() - 1) / 2);
    for (unsigned int row = 1; row <= rows; ++row)
      for (unsigned int column = 0; column < table->getColumnCount(); ++column)
        fill(table->getCellAt(row, column));
  });
}

void RandomDesign::fill(KVXECell* cell) {
  const KVXETable* table = cell->getRow()->getTable();
  const bool isKey =
      table->getHasTableEditingFeatures() && cell->getColumnIndex() == table->getFirstContentColumn();
  if (!cell->getIsEditable() || (!isKey && below(8) == 0)) return;
  std::vector<std::string> list;
  if (cell->getFormula() == &Clock::updateClockDropdown) {
    if (!m_tags.empty()) m_book.put(cell, oneOf(m_tags));
  } else if (cell->getDDVals(list)) {
    m_book.put(cell, oneOf(list));
  } else if (cell->getCellType() == CellType::INT) {
    m_book.put(cell, integerFor(static_cast<KVXEIntCell*>(cell)));
  } else if (cell->getCellType() == CellType::FLOAT) {
    m_book.put(cell, numberFor(static_cast<KVXEFloatCell*>(cell)));
  } else if (isKey) {
    m_book.put(cell, "n" + std::to_string(cell->getRow()->getIndex()));
  }
}

int RandomDesign::integerFor(const KVXEIntCell* cell) {
  const auto [low, high] = cell->getRange();
  const int least = low == kvxeBlank<int> ? 0 : low;
  const int most = high == kvxeBlank<int> ? 2000 : high;
  return least + static_cast<int>(below(static_cast<unsigned int>(std::min(most - least, 2000)) + 1));
}

float RandomDesign::numberFor(const KVXEFloatCell* cell) {
  const auto [low, high] = cell->getRange();
  const bool isShare = cell->getUnit() == Unit::PERCENTAGE_SHOW || cell->getUnit() == Unit::PERCENTAGE_HIDE;
  const bool isFrequency = cell->getUnit() == Unit::FREQUENCY_SHOW || cell->getUnit() == Unit::FREQUENCY_HIDE;
  const float usual = isShare ? 1.0f : isFrequency ? 500.0f : 20.0f;
  const float least = low == kvxeBlank<float> ? 0.0f : low;
  return between(least, high == kvxeBlank<float> ? least + usual : high);
}

void RandomDesign::readClockTags() {
  m_tags.clear();
  KVXETable* clocks = m_book.book()->getTable(TabType::CLOCK, &Clock::m_ClockConfigTable);
  for (unsigned int row = 1; row < clocks->getRowCount(); ++row)
    if (const std::string tag = textIn(clocks->getCellAt(row, &Clock::m_ClockTag)); !tag.empty())
      m_tags.push_back(tag);
}

void RandomDesign::replaceWhatIsNoLongerOffered() {
  forEachTable([&](KVXETable* table) {
    if (!table->getHasTableEditingFeatures() && !isFixed(table)) return;
    forEachCell(table, [&](KVXECell* cell) {
      std::vector<std::string> list;
      const std::string text = textIn(cell);
      if (text.empty() || !cell->getIsEditable() || !cell->getDDVals(list)) return;
      if (cell->getFormula() == &Clock::updateClockDropdown) return;
      if (std::find(list.begin(), list.end(), text) == list.end()) m_book.put(cell, oneOf(list));
    });
  });
}

void RandomDesign::setAmbient() {
  KVXETable* environment = m_book.book()->getTable(TabType::SUMMARY, &Summary::m_envTableHeader);
  KVXECell* cell = environment
                       ? m_book.cell(TabType::SUMMARY, Summary::m_envTableHeader, Summary::m_AmbientTempStr,
                                     Summary::m_envTypeColumn, Summary::m_envValColumn)
                       : nullptr;
  if (cell) m_book.put(cell, between(-20.0f, 80.0f));
}
