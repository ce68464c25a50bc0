#pragma once

#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <memory>
#include <set>
#include <string>

#include "engine/base/tabs/KVXELogicTab.h"
#include "engine/base/tabs/KVXEPowerDesignTab.h"
#include "engine/base/tabs/KVXESummaryTab.h"
#include "engine/base/workbook/KVXERow.h"
#include "models/catalogue/DeviceCatalogue.h"
#include "tests/kit/Captured.h"
#include "tests/kit/Consistency.h"
#include "tests/kit/DeviceBook.h"

/// The power design of a real book with short tables, by rail and by supply.
class PowerDelivery : public testing::Test {
 protected:
  using Tab = KVXEPowerDesignTab;
  using TabType = KVXEEnums::TabType;

  void SetUp() override { open(KVXEPartSelection::m_arkeonArchName); }

  void open(const std::string& architecture) {
    m_book.reset();
    m_book = std::make_unique<DeviceBook>(architecture);
    m_book->trim(1);
  }
  void use(const std::string& part, const std::string& process = KVXEPartSelection::m_typStr) {
    ASSERT_TRUE(KVXEPartSelection::getGlobal()->selectPart(part, process)) << part;
    KVXEPartSelection::getGlobal()->redrawTabs(false);
    m_book->settle();
  }

  KVXETab* design() { return m_book->book()->getTab(TabType::POWER_DESIGN); }
  KVXEUID uid() { return KVXEUID(design()); }
  KVXECell* rail(const std::string& name, const KVXETitle& column) {
    return m_book->cell(TabType::POWER_DESIGN, KVXETab::m_powerSupplyTable, name,
                        KVXETab::m_internalSupplyColumn, column);
  }
  KVXECell* supply(const std::string& group, const KVXETitle& column) {
    return m_book->cell(TabType::POWER_DESIGN, Tab::m_powerSupplyDesignTable, group,
                        KVXETab::m_powerRailGroupColumn, column);
  }
  KVXECell* choice(const KVXETitle& table) {
    return design()->getTable(&table)->getCellAt(1, &KVXETab::m_selectionColumn);
  }
  KVXECell* environment(const std::string& row, const KVXETitle& column) {
    return m_book->cell(TabType::SUMMARY, KVXESummaryTab::m_envTableHeader, row,
                        KVXESummaryTab::m_envTypeColumn, column);
  }
  float amps(const std::string& name, const KVXETitle& column) {
    const float value = numberIn(rail(name, column));
    return std::isnan(value) ? 0.0f : value;
  }
  std::string groupOf(const std::string& name) { return textIn(rail(name, KVXETab::m_powerRailGroupColumn)); }
  static bool isShown(KVXECell* cell) { return cell->getRow()->hasPlaceOnScreen(); }
  static std::string message(KVXECell* cell) {
    return cell->getMsg() ? cell->getMsg()->getDisplayText() : "";
  }

  /// A user's edit; what it changes equals what a full calculation finds.
  template <class T>
  void edit(KVXECell* cell, const T& value) {
    m_book->edit(cell, value);
    expectConsistent();
  }
  void blank(KVXECell* cell) {
    cell->setBlankAndState(KVXEEnums::CellState::DIRTY_DIRTY);
    calculateEdits();
  }
  void consolidate(const std::string& consolidation) {
    edit(choice(Tab::m_powerRailConsolidationTable), consolidation);
  }
  void useLogic() {
    KVXETable* table = m_book->book()->getTable(TabType::LOGIC, &KVXELogicTab::m_LogicConfigTable);
    m_book->put(table->getCellAt(1, &KVXELogicTab::m_Clock), std::string("400.000 MHz (clk)"));
    edit(table->getCellAt(1, &KVXELogicTab::m_LutAsLogic), 60000);
  }

  /// The supplies in use: what the delivery design shows, each with its rails by internal name.
  std::map<std::string, std::set<std::string>> groups(const kvxm::Device& device) {
    std::map<std::string, std::set<std::string>> found;
    KVXETable* table = design()->getTable(&Tab::m_powerSupplyDesignTable);
    for (unsigned int i = 1; i < table->getRowCount(); ++i) {
      const std::string supplies = textIn(table->getCellAt(i, &Tab::m_psdSuppliesColumn));
      EXPECT_EQ(supplies.empty(), !table->getRow(i)->hasPlaceOnScreen()) << supplies;
      if (supplies.empty()) continue;
      std::set<std::string>& rails = found[textIn(table->getCellAt(i, &KVXETab::m_powerRailGroupColumn))];
      for (size_t at = 0; at < supplies.size();) {
        const size_t end = std::min(supplies.find(", ", at), supplies.size());
        const kvxm::Supply* one = device.supply(supplies.substr(at, end - at));
        EXPECT_TRUE(one && rails.insert(one->rail).second) << supplies;
        at = end + 2;
      }
    }
    return found;
  }

  std::unique_ptr<DeviceBook> m_book;
};
