#pragma once

#include "engine/base/config/CellText.h"
#include "engine/base/config/ConfigTraits.h"
#include "tests/docs/new_tab/KVXETarvekSysmonTab.h"

namespace kvxe {

/// A module of monitors: a row of "SYSMON_CONFIGURATION".
struct SysmonConfig {
  std::string name{};
  int monitors = blank;
  std::string clock{};  ///< a clock tag
  std::string userComments{};
};

template <class A>
struct TableTraits<A, SysmonConfig>
    : TableOf<KVXEEnums::TabType::SYSMON, KVXETarvekSysmonTab::m_SysmonTable, KVXETarvekSysmonTab::m_Name,
              KVXETarvekSysmonTab::m_Monitors, KVXETarvekSysmonTab::m_Clock,
              KVXETarvekSysmonTab::m_UserComments> {};

}  // namespace kvxe
