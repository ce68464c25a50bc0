#include "engine/tarvek/KVXETarvekTabFactory.h"

#include "engine/base/workbook/KVXETabMaker.h"
#if __has_include("engine/tarvek/KVXETarvekSummaryConsoleTab.h")
#include "engine/tarvek/KVXETarvekSummaryConsoleTab.h"
#endif
#if __has_include("engine/tarvek/KVXETarvekSummaryTab.h")
#include "engine/tarvek/KVXETarvekSummaryTab.h"
#endif
#if __has_include("engine/tarvek/KVXETarvekClockTab.h")
#include "engine/tarvek/KVXETarvekClockTab.h"
#endif
#if __has_include("engine/tarvek/KVXETarvekLogicTab.h")
#include "engine/tarvek/KVXETarvekLogicTab.h"
#endif
#if __has_include("engine/tarvek/KVXETarvekPowerDesignTab.h")
#include "engine/tarvek/KVXETarvekPowerDesignTab.h"
#endif

namespace {

using KVXEEnums::TabType;

// A tab type that is not listed has no class of its own here.
const KVXETabMaker makers[] = {
    {TabType::NumItems, nullptr},
#if __has_include("engine/tarvek/KVXETarvekSummaryConsoleTab.h")
    {TabType::SUMMARY_CONSOLE, &makeTab<KVXETarvekSummaryConsoleTab>},
#endif
#if __has_include("engine/tarvek/KVXETarvekSummaryTab.h")
    {TabType::SUMMARY, &makeTab<KVXETarvekSummaryTab>},
#endif
#if __has_include("engine/tarvek/KVXETarvekClockTab.h")
    {TabType::CLOCK, &makeTab<KVXETarvekClockTab>},
#endif
#if __has_include("engine/tarvek/KVXETarvekLogicTab.h")
    {TabType::LOGIC, &makeTab<KVXETarvekLogicTab>},
#endif
#if __has_include("engine/tarvek/KVXETarvekPowerDesignTab.h")
    {TabType::POWER_DESIGN, &makeTab<KVXETarvekPowerDesignTab>},
#endif
};

}  // namespace

KVXETab* KVXETarvekTabFactory::createTab(KVXEEnums::TabType type) {
  if (auto tab = makeFrom(makers, m_book, type)) return tab.release();
  return KVXETabFactory::createTab(type);
}
