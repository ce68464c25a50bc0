#include "models/morlan/KVXMMorlanPssData.h"

namespace {

using enum kvxm::ProcessorGroup;
using kvxm::Coefficient;

constexpr const char* lpd = "Low Power Domain";
constexpr const char* fpd = "Full Power Domain";
constexpr const char* battery = "Battery Power Domain";

/// A peripheral whose logic is so many times that of a serial port.
constexpr kvxm::ProcessorBlock peripheral(std::string_view name, int most, float megahertz, float limit,
                                          float size, int pads) {
  return {.name = name,
          .domain = lpd,
          .most = most,
          .megahertz = megahertz,
          .limits = {limit, limit, limit},
          .coreRail = "VCCPSINTLP",
          .idle = Coefficient::PeripheralIdleEnergy,
          .work = Coefficient::PeripheralWorkEnergy,
          .size = size,
          .padRail = "VCCOPSIO",
          .pads = pads};
}

/// A PLL; the frequency is that of its oscillator.
constexpr kvxm::ProcessorBlock pll(std::string_view name, std::string_view domain,
                                   std::string_view coreRail) {
  return {.name = name,
          .group = Pll,
          .domain = domain,
          .megahertz = 2400,
          .limits = {3000, 3000, 3000},
          .coreRail = coreRail,
          .idle = Coefficient::PllOscillatorEnergy,
          .biasRail = "VCCPSPLL",
          .bias = Coefficient::PllBiasCurrent};
}

constexpr kvxm::ProcessorBlock blocks[] = {
    {.name = "Application Processors",
     .group = Processor,
     .domain = fpd,
     .most = 4,
     .megahertz = 1200,
     .limits = {1200, 1333, 1500},
     .coreRail = "VCCPSINTFP",
     .idle = Coefficient::ApplicationCoreIdleEnergy,
     .work = Coefficient::ApplicationCoreWorkEnergy},
    {.name = "Real-Time Processors",
     .group = Processor,
     .domain = lpd,
     .most = 2,
     .megahertz = 500,
     .limits = {500, 533, 600},
     .coreRail = "VCCPSINTLP",
     .idle = Coefficient::RealTimeCoreIdleEnergy,
     .work = Coefficient::RealTimeCoreWorkEnergy},
    {.name = "Graphics Processors",
     .group = Processor,
     .domain = fpd,
     .most = 2,
     .megahertz = 500,
     .limits = {600, 600, 667},
     .coreRail = "VCCPSINTFP",
     .idle = Coefficient::GraphicsCoreIdleEnergy,
     .work = Coefficient::GraphicsCoreWorkEnergy,
     .resource = "VCU"},  // the devices with a video codec have them
    {.name = "Full Power Interconnect",
     .domain = fpd,
     .megahertz = 533,
     .limits = {533, 533, 600},
     .coreRail = "VCCPSINTFP",
     .idle = Coefficient::PsInterconnectIdleEnergy,
     .work = Coefficient::PsInterconnectWorkEnergy,
     .size = 3},
    {.name = "Low Power Interconnect",
     .domain = lpd,
     .megahertz = 500,
     .limits = {500, 533, 600},
     .coreRail = "VCCPSINTLP",
     .idle = Coefficient::PsInterconnectIdleEnergy,
     .work = Coefficient::PsInterconnectWorkEnergy},
    {.name = "On-Chip Memory",
     .domain = lpd,
     .megahertz = 500,
     .limits = {500, 533, 600},
     .coreRail = "VCCPSINTLP",
     .idle = Coefficient::PsMemoryIdleEnergy,
     .work = Coefficient::PsMemoryWorkEnergy},
    // name, most, MHz, limit, size, pads
    peripheral("QSPI", 1, 150, 150, 4, 10),
    peripheral("eMMC/SD", 2, 200, 200, 8, 10),
    peripheral("USB", 2, 60, 60, 12, 10),
    peripheral("Gigabit Ethernet", 4, 125, 125, 10, 12),
    peripheral("UART", 2, 1, 12, 1, 2),
    peripheral("I2C", 2, 0.4f, 1, 1, 2),
    peripheral("SPI", 2, 50, 50, 1, 3),
    peripheral("CAN", 2, 8, 8, 2, 2),
    {.name = "System Monitor",
     .domain = lpd,
     .megahertz = 10,
     .limits = {26, 26, 26},
     .coreRail = "VCCPSINTLP",
     .idle = Coefficient::PeripheralIdleEnergy,
     .work = Coefficient::PeripheralWorkEnergy,
     .biasRail = "VCCPSAUX",
     .bias = Coefficient::SystemMonitorCurrent},
    // Lanes; half the line rate is the clock.
    {.name = "Serial Transceivers",
     .domain = fpd,
     .most = 4,
     .megahertz = 2500,
     .limits = {3000, 3000, 3000},
     .coreRail = "VPSMXCVRAVCC",
     .idle = Coefficient::PsTransceiverIdleEnergy,
     .work = Coefficient::PsTransceiverWorkEnergy,
     .biasRail = "VPSMXCVRAVTT",
     .bias = Coefficient::PsTransceiverCurrent},
    {.name = "Real-Time Clock",
     .domain = battery,
     .megahertz = 0.032768f,
     .limits = {0.032768f, 0.032768f, 0.032768f},
     .biasRail = "VCCBATT",
     .bias = Coefficient::RealTimeClockCurrent},
    pll("IO PLL", lpd, "VCCPSINTLP"),
    pll("Real-Time PLL", lpd, "VCCPSINTLP"),
    pll("Application PLL", fpd, "VCCPSINTFP"),
    pll("Memory PLL", fpd, "VCCPSINTFP"),
    pll("Video PLL", fpd, "VCCPSINTFP"),
};

constexpr int allWidths[] = {16, 32, 64};
constexpr int narrowWidths[] = {16, 32};
constexpr int ddr4Rates[] = {1600, 1866, 2133, 2400, 2666};
constexpr int lpddr4Rates[] = {1066, 1600, 2133, 2400};
constexpr int ddr3Rates[] = {1066, 1333, 1600, 1866, 2133};

// kind, widths, rates, Mb/s of the speed grades, volts of the pads, energy of the pads
constexpr kvxm::ProcessorMemory memories[] = {
    {"DDR4", allWidths, ddr4Rates, {2400, 2400, 2666}, 1.2, Coefficient::Ddr4PadEnergy},
    {"LPDDR4", narrowWidths, lpddr4Rates, {2400, 2400, 2400}, 1.1, Coefficient::Lpddr4PadEnergy},
    {"DDR3L", allWidths, ddr3Rates, {1866, 2133, 2133}, 1.35, Coefficient::Ddr3PadEnergy},
};

}  // namespace

KVXMMorlanPssData::KVXMMorlanPssData() : ProcessorBlocks(blocks, memories) {}

const KVXMMorlanPssData& KVXMMorlanPssData::getGlobal() {
  static const KVXMMorlanPssData data;
  return data;
}
