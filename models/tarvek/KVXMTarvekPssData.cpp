#include "models/tarvek/KVXMTarvekPssData.h"

namespace {

using enum kvxm::ProcessorGroup;
using kvxm::Coefficient;

constexpr const char* pmc = "Platform Management Controller";
constexpr const char* lpd = "Low Power Domain";
constexpr const char* fpd = "Full Power Domain";

/// A peripheral whose logic is so many times that of a serial port.
constexpr kvxm::ProcessorBlock peripheral(std::string_view name, std::string_view domain, int most,
                                          float megahertz, float limit, float size, std::string_view padRail,
                                          int pads) {
  return {.name = name,
          .domain = domain,
          .most = most,
          .megahertz = megahertz,
          .limits = {limit, limit, limit},
          .coreRail = domain == pmc ? "VCCPMC" : "VCCPSLP",
          .idle = Coefficient::PeripheralIdleEnergy,
          .work = Coefficient::PeripheralWorkEnergy,
          .size = size,
          .padRail = padRail,
          .pads = pads};
}

/// A PLL; the frequency is that of its oscillator.
constexpr kvxm::ProcessorBlock pll(std::string_view name, std::string_view domain,
                                   std::string_view coreRail) {
  return {.name = name,
          .group = Pll,
          .domain = domain,
          .megahertz = 2400,
          .limits = {2800, 3000, 3200},
          .coreRail = coreRail,
          .idle = Coefficient::PllOscillatorEnergy,
          .biasRail = "VCCAUXPMC",
          .bias = Coefficient::PllBiasCurrent};
}

constexpr kvxm::ProcessorBlock blocks[] = {
    {.name = "Application Processors",
     .group = Processor,
     .domain = fpd,
     .most = 2,
     .megahertz = 1350,
     .limits = {1400, 1550, 1700},
     .coreRail = "VCCPSFP",
     .idle = Coefficient::ApplicationCoreIdleEnergy,
     .work = Coefficient::ApplicationCoreWorkEnergy},
    {.name = "Real-Time Processors",
     .group = Processor,
     .domain = lpd,
     .most = 2,
     .megahertz = 600,
     .limits = {600, 700, 750},
     .coreRail = "VCCPSLP",
     .idle = Coefficient::RealTimeCoreIdleEnergy,
     .work = Coefficient::RealTimeCoreWorkEnergy},
    {.name = "Platform Processors",
     .group = Processor,
     .domain = pmc,
     .most = 2,
     .megahertz = 320,
     .limits = {320, 360, 400},
     .coreRail = "VCCPMC",
     .idle = Coefficient::PlatformCoreIdleEnergy,
     .work = Coefficient::PlatformCoreWorkEnergy},
    {.name = "Full Power Interconnect",
     .domain = fpd,
     .megahertz = 800,
     .limits = {800, 900, 950},
     .coreRail = "VCCPSFP",
     .idle = Coefficient::PsInterconnectIdleEnergy,
     .work = Coefficient::PsInterconnectWorkEnergy,
     .size = 3},
    {.name = "Low Power Interconnect",
     .domain = lpd,
     .megahertz = 500,
     .limits = {500, 550, 600},
     .coreRail = "VCCPSLP",
     .idle = Coefficient::PsInterconnectIdleEnergy,
     .work = Coefficient::PsInterconnectWorkEnergy},
    {.name = "On-Chip Memory",
     .domain = lpd,
     .megahertz = 500,
     .limits = {500, 550, 600},
     .coreRail = "VCCPSLP",
     .idle = Coefficient::PsMemoryIdleEnergy,
     .work = Coefficient::PsMemoryWorkEnergy},
    // name, domain, most, MHz, limit, size, rail of the pads, pads
    peripheral("QSPI", pmc, 1, 150, 200, 4, "VCCO500", 10),
    peripheral("eMMC/SD", pmc, 2, 200, 200, 8, "VCCO501", 10),
    peripheral("Debug Port", pmc, 1, 25, 100, 2, "VCCO503", 3),
    peripheral("USB", lpd, 1, 60, 60, 12, "VCCO502", 10),
    peripheral("Gigabit Ethernet", lpd, 2, 125, 125, 10, "VCCO502", 12),
    peripheral("UART", lpd, 2, 1, 12, 1, "VCCO502", 2),
    peripheral("I2C", lpd, 2, 0.4f, 1, 1, "VCCO502", 2),
    peripheral("SPI", lpd, 2, 50, 50, 1, "VCCO502", 3),
    peripheral("CAN", lpd, 2, 8, 8, 2, "VCCO502", 2),
    {.name = "System Monitor",
     .domain = pmc,
     .megahertz = 10,
     .limits = {26, 26, 26},
     .coreRail = "VCCPMC",
     .idle = Coefficient::PeripheralIdleEnergy,
     .work = Coefficient::PeripheralWorkEnergy,
     .biasRail = "VCCAUXSMON",
     .bias = Coefficient::SystemMonitorCurrent},
    pll("PMC PLL", pmc, "VCCPMC"),
    pll("NoC PLL", pmc, "VCCPMC"),
    pll("Real-Time PLL", lpd, "VCCPSLP"),
    pll("Application PLL", fpd, "VCCPSFP"),
};

}  // namespace

KVXMTarvekPssData::KVXMTarvekPssData() : ProcessorBlocks(blocks, {}) {}

const KVXMTarvekPssData& KVXMTarvekPssData::getGlobal() {
  static const KVXMTarvekPssData data;
  return data;
}
