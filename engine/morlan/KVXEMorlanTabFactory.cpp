#include "engine/morlan/KVXEMorlanTabFactory.h"

#include "engine/base/workbook/KVXETabMaker.h"
#include "engine/morlan/KVXEMorlanBramTab.h"
#include "engine/morlan/KVXEMorlanClockTab.h"
#include "engine/morlan/KVXEMorlanDspTab.h"
#include "engine/morlan/KVXEMorlanIoTab.h"
#include "engine/morlan/KVXEMorlanLogicTab.h"
#include "engine/morlan/KVXEMorlanPowerDesignTab.h"
#include "engine/morlan/KVXEMorlanPsTab.h"
#include "engine/morlan/KVXEMorlanSummaryConsoleTab.h"
#include "engine/morlan/KVXEMorlanSummaryTab.h"
#include "engine/morlan/KVXEMorlanWramTab.h"

namespace {

using KVXEEnums::TabType;

// A tab type that is not listed has no class of its own here.
const KVXETabMaker makers[] = {
    {TabType::SUMMARY_CONSOLE, &makeTab<KVXEMorlanSummaryConsoleTab>},
    {TabType::SUMMARY, &makeTab<KVXEMorlanSummaryTab>},
    {TabType::PS, &makeTab<KVXEMorlanPsTab>},
    {TabType::CLOCK, &makeTab<KVXEMorlanClockTab>},
    {TabType::LOGIC, &makeTab<KVXEMorlanLogicTab>},
    {TabType::WRAM, &makeTab<KVXEMorlanWramTab>},
    {TabType::BRAM, &makeTab<KVXEMorlanBramTab>},
    {TabType::DSP, &makeTab<KVXEMorlanDspTab>},
    {TabType::IO, &makeTab<KVXEMorlanIoTab>},
    {TabType::POWER_DESIGN, &makeTab<KVXEMorlanPowerDesignTab>},
};

}  // namespace

KVXETab* KVXEMorlanTabFactory::createTab(KVXEEnums::TabType type) {
  if (auto tab = makeFrom(makers, m_book, type)) return tab.release();
  return KVXETabFactory::createTab(type);
}
