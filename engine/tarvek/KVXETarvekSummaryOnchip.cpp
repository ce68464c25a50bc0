// The blocks of a Tarvek device: what is listed, where its dynamic power stands, and how its static power is
// made up.

#include "engine/tarvek/KVXETarvekSummaryTab.h"

using Join = kvxe::OnchipSource::Join;
using enum KVXEEnums::TabType;

std::span<const kvxe::OnchipCategory> KVXETarvekSummaryTab::dynamicCategories() const {
  // text, resources of which it needs any, resources that exclude it
  static const kvxe::OnchipCategory categories[] = {
      {"PMC", {{"PMC"}}},
      {"PS", {{"LPD", {}, {"PSW"}}, {"FPD", {}, {"PSW"}}}},
      {"PSW", {{"LPD (PSW)", {"PSW"}}, {"FPD (PSW)", {"PSW"}}}},
      {"Mx Engine", {{"Mx Engine", {"MXE"}}}},
      {"Mx Engine-ML", {{"Mx Engine-ML", {"MXE2"}}}},
      {"NICB", {{"NICB", {"NICB"}}}},
      {"NoC", {{"NoC"}}},
      {"Programmable Logic",
       {{"Clocking"}, {"Logic "}, {"BRAM"}, {"WRAM"}, {"MPRAM", {"MPRAM"}}, {"DSP"}, {"Other"}}},
      {"I/O", {{"Interface"}, {"Hard MC"}}},
      {"Transceiver", {{"XCVRA", {"XCVRA"}}, {"XCVRD", {"XCVRD"}}, {"XCVRC", {"XCVRC"}}}},
      {"Hard IP",
       {{"HIC", {"HIC"}},
        {"HIC5", {"HIC5", "HIC5C"}, {"HIC5N"}},
        {"HIC5N", {"HIC5N"}},
        {"EMMAC", {"EMMAC"}},
        {"PCIE", {"PCIE"}},
        {"CRE", {"CRE"}},
        {"EBMAC", {"EBMAC"}},
        {"ILKN", {"ILKN"}},
        {"VDU", {"VDU"}},
        {"PCIE5", {"PCIE5"}}}},
  };
  return categories;
}

std::span<const kvxe::OnchipSource> KVXETarvekSummaryTab::dynamicSources() const {
  // row, tab, table, row of the table, its key column, its value column, how it joins the row's other sources
  static const kvxe::OnchipSource sources[] = {
      {"PMC", PS, "PS_STATE_SUMMARY", "Platform Management Controller", "DOMAIN", "POWER"},
      {"LPD", PS, "PS_STATE_SUMMARY", "Low Power Domain", "DOMAIN", "POWER"},
      {"FPD", PS, "PS_STATE_SUMMARY", "Full Power Domain", "DOMAIN", "POWER"},
      {"LPD (PSW)", PSW, "LPD_ON_CHIP_POWER", "Total", "TYPE", "POWER"},
      {"FPD (PSW)", PSW, "FPD_ON_CHIP_POWER", "Total", "TYPE", "POWER"},
      {"Mx Engine", MXE},
      {"Mx Engine-ML", MXE2},
      {"NICB", NICB},
      {"NoC", NOC_DDRMC, "UTILIZATION", "NoC", "TYPE", "POWER"},
      {"NoC", NOC_DDRMC, "UTILIZATION", "NoC Clock Buffers", "TYPE", "POWER"},
      {"Clocking", CLOCK},
      {"Logic ", LOGIC},
      {"BRAM", BRAM},
      {"WRAM", WRAM},
      {"MPRAM", MPRAM},
      {"DSP", DSP},
      {"Other", OTHER},
      {"FSYN", CLOCK, "UTILIZATION", "FSYN", "TYPE", "POWER"},
      {"DPLL", CLOCK, "UTILIZATION", "DPLL", "TYPE", "POWER"},
      {"IOPLL", CLOCK, "UTILIZATION", "IOPLL", "TYPE", "POWER"},
      {"Y7PLL", CLOCK, "UTILIZATION", "Y7PLL", "TYPE", "POWER"},
      {"Interface", Y7IO},
      {.row = "Interface", .tab = IO, .join = Join::Else},
      {"Hard MC", NOC_DDRMC, "UTILIZATION", "DDRMC5", "TYPE", "POWER", Join::Else},
      {"Hard MC", NOC_DDRMC, "UTILIZATION", "DDRMC5C", "TYPE", "POWER", Join::Else},
      {"Hard MC", NOC_DDRMC, "UTILIZATION", "DDRMC", "TYPE", "POWER", Join::Else},
      {"HBMMC", NOC_DDRMC, "UTILIZATION", "HBMMC", "TYPE", "POWER"},
      {"XCVRA", XCVRA},
      {"XCVRD", XCVRD},
      {"XCVRC", XCVRC},
      {"HIC", HIC},
      {"HIC5", HIC5},
      {"HIC5N", HIC5},
      {"EMMAC", EMMAC},
      {"PCIE", PCIE},
      {"CRE", CRE},
      {"EBMAC", EBMAC},
      {"ILKN", ILKN},
      {"VDU", VDU},
      {"PCIE5", PCIE5},
      {"FEC", FEC},
      {"DAC", HARD_BLOCKS},
      {"ADC", HARD_BLOCKS},
  };
  return sources;
}

std::span<const kvxe::OnchipCategory> KVXETarvekSummaryTab::staticCategories() const {
  static const kvxe::OnchipCategory categories[] = {
      {"Static",
       {{"PL"},
        {"PS+PMC", {}, {"PSW"}},
        {"PSW", {"PSW"}},
        {"MXE", {"MXE"}},
        {"MXE-ML", {"MXE2"}, {"MXE"}},
        {"NoC+DDRMC", {}, {"DDRMC5", "DDRMC5C"}},
        {"NoC+DDRMC5", {"DDRMC5"}, {"DDRMC5C"}},
        {"NoC+DDRMC5C", {"DDRMC5C"}},
        {"XCVRs"}}},
      {"XCVRs", {{"XCVRA", {"XCVRA"}}, {"XCVRD", {"XCVRD"}}, {"XCVRC", {"XCVRC"}}}},
  };
  return categories;
}

std::span<const kvxe::OnchipStaticTerm> KVXETarvekSummaryTab::staticTerms() const {
  // Watts, or amperes times volts, by the keys of the static model. Rows that share a key exclude each other.
  static const kvxe::OnchipStaticTerm terms[] = {
      {"PL", {{{152}}}},
      {"PS+PMC", {{{158}}}},
      {"PSW", {{{158}}}},
      {"MXE", {{{83}}}},
      {"MXE-ML", {{{83}}}},
      {"NoC+DDRMC", {{{148}}}},
      {"NoC+DDRMC5", {{{148}}}},
      {"NoC+DDRMC5C", {{{148}}}},
      {"XCVRA", {{{131, 18}, {134, 19}, {146, 23}}}, true},
      {"XCVRC", {{{214, 45}, {122, 15}, {125, 16}, {128, 17}}}, true},
      {"XCVRD", {{{137, 20}, {140, 21}, {143, 22}}}, true},
  };
  return terms;
}
