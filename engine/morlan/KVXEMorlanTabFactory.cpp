#include "engine/morlan/KVXEMorlanTabFactory.h"

#include "engine/base/workbook/KVXETabMaker.h"
#if __has_include("engine/morlan/KVXEMorlanSummaryConsoleTab.h")
#include "engine/morlan/KVXEMorlanSummaryConsoleTab.h"
#endif
#if __has_include("engine/morlan/KVXEMorlanSummaryTab.h")
#include "engine/morlan/KVXEMorlanSummaryTab.h"
#endif
#if __has_include("engine/morlan/KVXEMorlanClockTab.h")
#include "engine/morlan/KVXEMorlanClockTab.h"
#endif
#if __has_include("engine/morlan/KVXEMorlanLogicTab.h")
#include "engine/morlan/KVXEMorlanLogicTab.h"
#endif
#if __has_include("engine/morlan/KVXEMorlanPowerDesignTab.h")
#include "engine/morlan/KVXEMorlanPowerDesignTab.h"
#endif

namespace {

using KVXEEnums::TabType;

// A tab type that is not listed has no class of its own here.
const KVXETabMaker makers[] = {
    {TabType::NumItems, nullptr},
#if __has_include("engine/morlan/KVXEMorlanSummaryConsoleTab.h")
    {TabType::SUMMARY_CONSOLE, &makeTab<KVXEMorlanSummaryConsoleTab>},
#endif
#if __has_include("engine/morlan/KVXEMorlanSummaryTab.h")
    {TabType::SUMMARY, &makeTab<KVXEMorlanSummaryTab>},
#endif
#if __has_include("engine/morlan/KVXEMorlanClockTab.h")
    {TabType::CLOCK, &makeTab<KVXEMorlanClockTab>},
#endif
#if __has_include("engine/morlan/KVXEMorlanLogicTab.h")
    {TabType::LOGIC, &makeTab<KVXEMorlanLogicTab>},
#endif
#if __has_include("engine/morlan/KVXEMorlanPowerDesignTab.h")
    {TabType::POWER_DESIGN, &makeTab<KVXEMorlanPowerDesignTab>},
#endif
};

}  // namespace

KVXETab* KVXEMorlanTabFactory::createTab(KVXEEnums::TabType type) {
  if (auto tab = makeFrom(makers, m_book, type)) return tab.release();
  return KVXETabFactory::createTab(type);
}
