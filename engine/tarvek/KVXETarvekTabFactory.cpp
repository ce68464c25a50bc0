#include "engine/tarvek/KVXETarvekTabFactory.h"

#include "engine/base/workbook/KVXETabMaker.h"
#include "engine/tarvek/KVXETarvekClockTab.h"
#include "engine/tarvek/KVXETarvekLogicTab.h"
#include "engine/tarvek/KVXETarvekPowerDesignTab.h"
#include "engine/tarvek/KVXETarvekSummaryConsoleTab.h"
#include "engine/tarvek/KVXETarvekSummaryTab.h"

namespace {

using KVXEEnums::TabType;

// A tab type that is not listed has no class of its own here.
const KVXETabMaker makers[] = {
    {TabType::SUMMARY_CONSOLE, &makeTab<KVXETarvekSummaryConsoleTab>},
    {TabType::SUMMARY, &makeTab<KVXETarvekSummaryTab>},
    {TabType::CLOCK, &makeTab<KVXETarvekClockTab>},
    {TabType::LOGIC, &makeTab<KVXETarvekLogicTab>},
    {TabType::POWER_DESIGN, &makeTab<KVXETarvekPowerDesignTab>},
};

}  // namespace

KVXETab* KVXETarvekTabFactory::createTab(KVXEEnums::TabType type) {
  if (auto tab = makeFrom(makers, m_book, type)) return tab.release();
  return KVXETabFactory::createTab(type);
}
