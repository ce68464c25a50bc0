#pragma once

#include "engine/base/config/ClockMgrConfig.h"
#include "engine/base/config/ConfigMgr.h"
#include "engine/base/config/LogicConfig.h"
#include "engine/base/config/ValueSource.h"
#include "engine/base/tabs/KVXEClockTab.h"
#include "engine/base/tabs/KVXELogicTab.h"
#include "tests/kit/DeviceBook.h"

/// All that an operation may change: value, state, editability and source of every cell of the book.
inline std::string snapshot(KVXEBook* book) {
  std::string text;
  for (unsigned int i = 0; i < book->getTabCount(); ++i) {
    KVXETab* tab = book->getTab(i);
    for (unsigned int j = 0; tab && j < tab->getTableCount(); ++j) {
      KVXETable* table = tab->getTable(j);
      for (unsigned int r = 1; r < table->getRowCount(); ++r)
        for (unsigned int c = 0; c < table->getColumnCount(); ++c) {
          KVXECell* cell = table->getCellAt(r, c);
          std::string value;
          cell->getVal(value, false);
          text += value + '|' + KVXEEnums::nameOf(cell->getState()) + '|' +
                  KVXEEnums::nameOf(cell->getValueSource()) + (cell->getIsEditable() ? "|e\n" : "|r\n");
        }
    }
  }
  return text;
}

/// A device's book with short tables and its typed records.
template <class A>
class ConfigBook : public DeviceBook {
 public:
  explicit ConfigBook(unsigned int rows)
      : DeviceBook(std::is_same_v<A, kvxe::Tarvek> ? KVXEPartSelection::m_arkeonArchName
                                                   : KVXEPartSelection::m_morlanArchName) {
    trim(rows);
  }
  ~ConfigBook() { kvxe::utils::ValueSource::set(KVXEEnums::ValueSource::USER); }

  template <class T>
  std::shared_ptr<kvxe::ConfigIfc<T>> records() const {
    return kvxe::ConfigMgr::getGlobal<A>().template getConfigIfc<T>();
  }
  std::string now() const { return snapshot(book()); }
  void calculate() const { KVXECalculationMgr::getGlobal().incrCalculate(); }
};

template <class T>
std::vector<std::string> namesOf(const std::vector<std::unique_ptr<T>>& records) {
  std::vector<std::string> names;
  for (const auto& record : records) names.push_back(record->name);
  return names;
}
