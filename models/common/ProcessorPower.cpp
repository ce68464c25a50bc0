#include "models/common/ProcessorPower.h"

#include "models/common/InterconnectPower.h"

namespace kvxm {

namespace {

constexpr double faradsPerPicofarad = 1e-12;
constexpr double amperesPerMilliampere = 1e-3;
constexpr double randomDataToggleRate = 0.5;

double valueOf(const Characterisation& coefficients, const std::optional<Coefficient>& coefficient) {
  return coefficient ? coefficients[*coefficient] : 0.0;
}

template <class Entry>
const Entry* findIn(std::span<const Entry> entries, std::string_view name) {
  for (const Entry& entry : entries)
    if (entry.name == name) return &entry;
  return nullptr;
}

}  // namespace

const ProcessorBlock* ProcessorBlocks::findBlock(std::string_view name) const {
  return findIn(m_blocks, name);
}

const ProcessorMemory* ProcessorBlocks::findMemory(std::string_view name) const {
  return findIn(m_memories, name);
}

std::vector<std::string> ProcessorBlocks::getMemoryTypes() const {
  std::vector<std::string> types{"None"};
  for (const ProcessorMemory& memory : m_memories) types.emplace_back(memory.name);
  return types;
}

float limitOf(const float (&limits)[3], std::string_view speed) {
  const bool isKnown = !speed.empty() && speed.front() >= '1' && speed.front() <= '3';
  return limits[isKnown ? speed.front() - '1' : 0];
}

double processorCorePower(const Characterisation& coefficients, const ProcessorBlock& block,
                          const ProcessorUse& use, double volts) {
  const double energy = valueOf(coefficients, block.idle) + use.load * valueOf(coefficients, block.work);
  return use.count * use.hertz * block.size * energy * joulesPerFemtojoule *
         voltageScale(volts, coefficients[Coefficient::NominalVccps]);
}

double processorPadPower(const Characterisation& coefficients, const ProcessorBlock& block,
                         const ProcessorUse& use, double volts) {
  const double farads = coefficients[Coefficient::PsPadCapacitance] * faradsPerPicofarad;
  return switchingPower(use.load, farads, volts, use.hertz, use.count * block.pads);
}

double processorBiasPower(const Characterisation& coefficients, const ProcessorBlock& block,
                          const ProcessorUse& use, double volts) {
  return use.count * valueOf(coefficients, block.bias) * amperesPerMilliampere * volts;
}

double processorMemoryCorePower(const Characterisation& coefficients, const ProcessorMemoryUse& use,
                                double volts) {
  const MemoryInterfacePower power =
      memoryInterfacePower(coefficients,
                           {.bitsPerSecond = use.bits * use.transfersPerSecond * use.activity,
                            .toggleRate = randomDataToggleRate,
                            .transfersPerPin = use.transfersPerSecond,
                            .dataPins = use.bits},
                           {.controller = volts, .phy = volts});
  return power.controller + power.phy;
}

double processorMemoryPadPower(const Characterisation& coefficients, const ProcessorMemory& memory,
                               const ProcessorMemoryUse& use, double volts) {
  return use.bits * use.transfersPerSecond * use.activity * coefficients[memory.pads] * joulesPerFemtojoule *
         voltageScale(volts, memory.padVolts);
}

}  // namespace kvxm
