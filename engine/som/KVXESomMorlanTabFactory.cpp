#include "engine/som/KVXESomMorlanTabFactory.h"

#include "engine/base/workbook/KVXETabMaker.h"
#if __has_include("engine/som/KVXESomMorlanSummaryConsoleTab.h")
#include "engine/som/KVXESomMorlanSummaryConsoleTab.h"
#endif
#if __has_include("engine/som/KVXESomMorlanSummaryTab.h")
#include "engine/som/KVXESomMorlanSummaryTab.h"
#endif
#if __has_include("engine/morlan/KVXEMorlanClockTab.h")
#include "engine/morlan/KVXEMorlanClockTab.h"
#endif
#if __has_include("engine/morlan/KVXEMorlanLogicTab.h")
#include "engine/morlan/KVXEMorlanLogicTab.h"
#endif
#if __has_include("engine/som/KVXESomMorlanPowerDesignTab.h")
#include "engine/som/KVXESomMorlanPowerDesignTab.h"
#endif

namespace {

using KVXEEnums::TabType;

// A tab type that is not listed has no class of its own here.
const KVXETabMaker makers[] = {
    {TabType::NumItems, nullptr},
#if __has_include("engine/som/KVXESomMorlanSummaryConsoleTab.h")
    {TabType::SUMMARY_CONSOLE, &makeTab<KVXESomMorlanSummaryConsoleTab>},
#endif
#if __has_include("engine/som/KVXESomMorlanSummaryTab.h")
    {TabType::SUMMARY, &makeTab<KVXESomMorlanSummaryTab>},
#endif
#if __has_include("engine/morlan/KVXEMorlanClockTab.h")
    {TabType::CLOCK, &makeTab<KVXEMorlanClockTab>},
#endif
#if __has_include("engine/morlan/KVXEMorlanLogicTab.h")
    {TabType::LOGIC, &makeTab<KVXEMorlanLogicTab>},
#endif
#if __has_include("engine/som/KVXESomMorlanPowerDesignTab.h")
    {TabType::POWER_DESIGN, &makeTab<KVXESomMorlanPowerDesignTab>},
#endif
};

}  // namespace

KVXETab* KVXESomMorlanTabFactory::createTab(KVXEEnums::TabType type) {
  if (auto tab = makeFrom(makers, m_book, type)) return tab.release();
  return KVXETabFactory::createTab(type);
}
