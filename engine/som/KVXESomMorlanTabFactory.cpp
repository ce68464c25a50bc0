#include "engine/som/KVXESomMorlanTabFactory.h"

#include "engine/base/workbook/KVXETabMaker.h"
#include "engine/morlan/KVXEMorlanBramTab.h"
#include "engine/morlan/KVXEMorlanClockTab.h"
#include "engine/morlan/KVXEMorlanDspTab.h"
#include "engine/morlan/KVXEMorlanLogicTab.h"
#include "engine/morlan/KVXEMorlanWramTab.h"
#include "engine/som/KVXESomIoTab.h"
#include "engine/som/KVXESomMorlanPowerDesignTab.h"
#include "engine/som/KVXESomMorlanSummaryConsoleTab.h"
#include "engine/som/KVXESomMorlanSummaryTab.h"
#include "engine/som/KVXESomPsTab.h"

namespace {

using KVXEEnums::TabType;

// A tab type that is not listed has no class of its own here.
const KVXETabMaker makers[] = {
    {TabType::SUMMARY_CONSOLE, &makeTab<KVXESomMorlanSummaryConsoleTab>},
    {TabType::SUMMARY, &makeTab<KVXESomMorlanSummaryTab>},
    {TabType::PS, &makeTab<KVXESomPsTab>},
    {TabType::CLOCK, &makeTab<KVXEMorlanClockTab>},
    {TabType::LOGIC, &makeTab<KVXEMorlanLogicTab>},
    {TabType::WRAM, &makeTab<KVXEMorlanWramTab>},
    {TabType::BRAM, &makeTab<KVXEMorlanBramTab>},
    {TabType::DSP, &makeTab<KVXEMorlanDspTab>},
    {TabType::IO, &makeTab<KVXESomIoTab>},
    {TabType::POWER_DESIGN, &makeTab<KVXESomMorlanPowerDesignTab>},
};

}  // namespace

KVXETab* KVXESomMorlanTabFactory::createTab(KVXEEnums::TabType type) {
  if (auto tab = makeFrom(makers, m_book, type)) return tab.release();
  return KVXETabFactory::createTab(type);
}
