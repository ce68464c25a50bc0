#include "engine/tarvek/KVXETarvekTabFactory.h"

#include "engine/base/workbook/KVXETabMaker.h"
#include "engine/tarvek/KVXETarvekBramTab.h"
#include "engine/tarvek/KVXETarvekClockTab.h"
#include "engine/tarvek/KVXETarvekDspTab.h"
#include "engine/tarvek/KVXETarvekIoTab.h"
#include "engine/tarvek/KVXETarvekLogicTab.h"
#include "engine/tarvek/KVXETarvekMpramTab.h"
#include "engine/tarvek/KVXETarvekNocDdrmcTab.h"
#include "engine/tarvek/KVXETarvekPowerDesignTab.h"
#include "engine/tarvek/KVXETarvekPsTab.h"
#include "engine/tarvek/KVXETarvekPwrManagementTab.h"
#include "engine/tarvek/KVXETarvekSummaryConsoleTab.h"
#include "engine/tarvek/KVXETarvekSummaryTab.h"
#include "engine/tarvek/KVXETarvekWramTab.h"

namespace {

using KVXEEnums::TabType;

// A tab type that is not listed has no class of its own here.
const KVXETabMaker makers[] = {
    {TabType::SUMMARY_CONSOLE, &makeTab<KVXETarvekSummaryConsoleTab>},
    {TabType::SUMMARY, &makeTab<KVXETarvekSummaryTab>},
    {TabType::NOC_DDRMC, &makeTab<KVXETarvekNocDdrmcTab>},
    {TabType::PS, &makeTab<KVXETarvekPsTab>},
    {TabType::CLOCK, &makeTab<KVXETarvekClockTab>},
    {TabType::LOGIC, &makeTab<KVXETarvekLogicTab>},
    {TabType::WRAM, &makeTab<KVXETarvekWramTab>},
    {TabType::MPRAM, &makeTab<KVXETarvekMpramTab>},
    {TabType::BRAM, &makeTab<KVXETarvekBramTab>},
    {TabType::DSP, &makeTab<KVXETarvekDspTab>},
    {TabType::IO, &makeTab<KVXETarvekIoTab>},
    {TabType::POWER_DESIGN, &makeTab<KVXETarvekPowerDesignTab>},
    {TabType::POWER_MANAGEMENT, &makeTab<KVXETarvekPwrManagementTab>},
};

}  // namespace

KVXETab* KVXETarvekTabFactory::createTab(KVXEEnums::TabType type) {
  if (auto tab = makeFrom(makers, m_book, type)) return tab.release();
  return KVXETabFactory::createTab(type);
}
