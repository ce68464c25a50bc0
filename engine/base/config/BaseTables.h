#pragma once

#include "engine/base/config/BramConfig.h"
#include "engine/base/config/ConfigTraits.h"
#include "engine/base/config/IoConfig.h"
#include "engine/base/config/LogicConfig.h"
#include "engine/base/tabs/KVXEBramTab.h"
#include "engine/base/tabs/KVXEIoTab.h"
#include "engine/base/tabs/KVXELogicTab.h"

/// The tables that all architectures have in the same form. Those of clocks stand with their rules.
namespace kvxe {

template <class A>
struct TableTraits<A, IoConfig>
    : TableOf<KVXEEnums::TabType::IO, KVXEIoTab::m_IoConfigTable, KVXEIoTab::m_Name, KVXEIoTab::m_IoType,
              KVXEIoTab::m_IoStandard, KVXEIoTab::m_Inputs, KVXEIoTab::m_Outputs, KVXEIoTab::m_Bidirs,
              KVXEIoTab::m_TotalPins, KVXEIoTab::m_Clock, KVXEIoTab::m_ToggleRate, KVXEIoTab::m_DataRate,
              KVXEIoTab::m_OutputEnable, KVXEIoTab::m_InputTermination, KVXEIoTab::m_OutputTermination,
              KVXEIoTab::m_TermDisable, KVXEIoTab::m_LoadCapacitance, KVXEIoTab::m_BankVoltage,
              KVXEIoTab::m_UserComments> {};

template <class A>
struct TableTraits<A, BramConfig>
    : TableOf<KVXEEnums::TabType::BRAM, KVXEBramTab::m_BramConfigTable, KVXEBramTab::m_Name,
              KVXEBramTab::m_BramCount, KVXEBramTab::m_CascadeGroupSize, KVXEBramTab::m_Mode,
              KVXEBramTab::m_ToggleRate, KVXEBramTab::m_PortAClock, KVXEBramTab::m_PortAEnableRate,
              KVXEBramTab::m_PortABitWidth, KVXEBramTab::m_PortAWriteMode, KVXEBramTab::m_PortAWriteEnable,
              KVXEBramTab::m_PortBClock, KVXEBramTab::m_PortBEnableRate, KVXEBramTab::m_PortBBitWidth,
              KVXEBramTab::m_PortBWriteMode, KVXEBramTab::m_PortBWriteEnable, KVXEBramTab::m_UserComments> {};

template <class A>
struct TableTraits<A, LogicConfig>
    : TableOf<KVXEEnums::TabType::LOGIC, KVXELogicTab::m_LogicConfigTable, KVXELogicTab::m_Name,
              KVXELogicTab::m_Clock, KVXELogicTab::m_LutAsLogic, KVXELogicTab::m_LutAsSRL,
              KVXELogicTab::m_LutAsDRAM, KVXELogicTab::m_Registers, KVXELogicTab::m_ToggleRate,
              KVXELogicTab::m_RoutingComplexity, KVXELogicTab::m_UserComments> {};

}  // namespace kvxe
