#include "models/common/MemoryPower.h"

#include <algorithm>
#include <cmath>

namespace kvxm {

namespace {

constexpr double kilobitsOfCharacterisedArray = 18.0;

double coreEnergy(const Characterisation& coefficients, Coefficient femtojoules, double volts) {
  return coefficients[femtojoules] * joulesPerFemtojoule *
         voltageScale(volts, coefficients[Coefficient::NominalVccint]);
}

double arrayEnergy(const Characterisation& coefficients, Coefficient femtojoules, double volts) {
  return coefficients[femtojoules] * joulesPerFemtojoule *
         voltageScale(volts, coefficients[Coefficient::NominalVccram]);
}

double accessesPerSecond(const MemoryPort& port) {
  return port.hertz * std::min(port.enable, 1.0);
}

double writesPerSecond(const MemoryPort& port) {
  return accessesPerSecond(port) * std::min(port.write, 1.0);
}

double readsPerSecond(const MemoryPort& port) {
  return accessesPerSecond(port) - writesPerSecond(port) + writesPerSecond(port) * port.readsInWrite;
}

/// Words that appear at the outputs.
double outputsPerSecond(const MemoryPort& port) {
  return accessesPerSecond(port) - writesPerSecond(port) + writesPerSecond(port) * port.outputsInWrite;
}

MemoryPower portPower(const Characterisation& coefficients, const MemoryUse& use, const MemoryPort& port,
                      double coreVolts, double arrayVolts) {
  const double group = std::max(use.groupSize, 1.0);
  const double capacityScale = std::sqrt(use.kilobits / kilobitsOfCharacterisedArray);
  const double arrayAccesses = (writesPerSecond(port) + readsPerSecond(port)) / group;
  const auto core = [&](Coefficient part) { return coreEnergy(coefficients, part, coreVolts); };
  const auto array = [&](Coefficient part) { return arrayEnergy(coefficients, part, arrayVolts); };
  MemoryPower power;
  power.array = arrayAccesses * (capacityScale * array(Coefficient::RamAccessEnergy) +
                                 port.width * array(Coefficient::RamBitEnergy));
  const double outputBits = outputsPerSecond(port) * port.width * use.toggleRate;
  const double codedBits = port.width * ((use.isEncoding ? writesPerSecond(port) : 0.0) +
                                         (use.isDecoding ? readsPerSecond(port) : 0.0));
  power.core =
      arrayAccesses * core(Coefficient::RamDecodeEnergy) +
      outputBits / group *
          (core(Coefficient::RamOutputEnergy) + (group - 1.0) * core(Coefficient::RamCascadeEnergy)) +
      codedBits / group * core(Coefficient::RamEccEnergy);
  return power;
}

}  // namespace

MemoryPower memoryPower(const Characterisation& coefficients, const MemoryUse& use, double coreVolts,
                        double arrayVolts) {
  MemoryPower sum;
  for (const MemoryPort* port : {&use.portA, &use.portB}) {
    const MemoryPower power = portPower(coefficients, use, *port, coreVolts, arrayVolts);
    sum.core += use.count * power.core;
    sum.array += use.count * power.array;
  }
  return sum;
}

double memoryIdlePower(const Characterisation& coefficients, const MemoryUse& use, double hertz,
                       double sleepShare, double inactiveCycles, double coreVolts) {
  const double asleep = std::min(sleepShare, 1.0);
  const double wakeUps = inactiveCycles > 0.0 ? asleep / inactiveCycles : 0.0;
  return use.count * hertz *
         ((1.0 - asleep) * coreEnergy(coefficients, Coefficient::RamIdleEnergy, coreVolts) +
          wakeUps * coreEnergy(coefficients, Coefficient::RamWakeEnergy, coreVolts));
}

double memoryPipelinePower(const Characterisation& coefficients, const MemoryUse& use, double stages,
                           double coreVolts) {
  double perSecond = 0.0;
  for (const MemoryPort* port : {&use.portA, &use.portB})
    perSecond +=
        port->width * (port->hertz * coreEnergy(coefficients, Coefficient::RegisterClockEnergy, coreVolts) +
                       outputsPerSecond(*port) * use.toggleRate *
                           coreEnergy(coefficients, Coefficient::RegisterToggleEnergy, coreVolts));
  return use.count * stages * perSecond;
}

double memoryOutputActivity(const MemoryUse& use, const MemoryPort& port) {
  const double group = std::max(use.groupSize, 1.0);
  return use.count / group * outputsPerSecond(port) * port.width * use.toggleRate;
}

}  // namespace kvxm
