#include "models/common/InterconnectPower.h"

#include "models/common/Effects.h"

namespace kvxm {

namespace {

constexpr double bitsPerBurst = 64 * 8;
constexpr double eccOverhead = 9.0 / 8.0;  // one check byte for eight of data
constexpr double amperesPerMilliampere = 1e-3;

/// Reads energies at one supply's voltage, in joules.
struct Energies {
  const Characterisation& coefficients;
  double scale;

  Energies(const Characterisation& all, Coefficient nominal, double volts)
      : coefficients(all), scale(voltageScale(volts, all[nominal])) {}
  double operator[](Coefficient femtojoules) const {
    return coefficients[femtojoules] * joulesPerFemtojoule * scale;
  }
};

}  // namespace

double nocDataPower(const Characterisation& coefficients, const NocUse& use, double volts) {
  const Energies energy(coefficients, Coefficient::NominalVccsoc, volts);
  return use.bitsPerSecond * use.toggleRate *
         (energy[Coefficient::NocEndpointEnergy] + use.switches * energy[Coefficient::NocHopEnergy]);
}

double nocClockPower(const Characterisation& coefficients, const NocUse& use, double volts) {
  const Energies energy(coefficients, Coefficient::NominalVccsoc, volts);
  return use.switches * use.hertz * energy[Coefficient::NocSwitchClockEnergy];
}

MemoryInterfacePower memoryInterfacePower(const Characterisation& coefficients, const MemoryInterfaceUse& use,
                                          const MemoryInterfaceVolts& volts) {
  const Energies soc(coefficients, Coefficient::NominalVccsoc, volts.controller);
  const Energies phy(coefficients, Coefficient::NominalVccintio, volts.phy);
  const double withEcc = use.hasEcc ? eccOverhead : 1.0;
  const double transitions = use.bitsPerSecond * withEcc * use.toggleRate;
  const double pins = use.dataPins * withEcc;
  const double slots = pins * use.transfersPerPin;
  const double commands = use.bitsPerSecond / bitsPerBurst * use.commandsPerBurst;
  const double encrypted = use.isEncrypted ? use.bitsPerSecond : 0.0;
  return {.controller =
              transitions * soc[Coefficient::McDataEnergy] + slots * soc[Coefficient::McClockEnergy] +
              commands * soc[Coefficient::McCommandEnergy] + encrypted * soc[Coefficient::McEncryptionEnergy],
          .phy = use.phyFactor * (transitions * phy[Coefficient::McPhyDataEnergy] +
                                  slots * phy[Coefficient::McPhyClockEnergy]),
          .bias = pins * coefficients[Coefficient::McBiasCurrent] * amperesPerMilliampere * volts.bias};
}

}  // namespace kvxm
