#include "models/common/Effects.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace kvxm {

double used(float amount) {
  return amount > 0.0f && amount < std::numeric_limits<float>::max() ? static_cast<double>(amount) : 0.0;
}

double used(int amount) {
  constexpr int blank = 0x7FFFFFFE;
  return amount > 0 && amount < blank ? amount : 0.0;
}

float toFloat(double value) {
  constexpr double limit = std::numeric_limits<float>::max();
  return static_cast<float>(std::isnan(value) ? 0.0 : std::clamp(value, -limit, limit));
}

double switchingPower(double activity, double farads, double volts, double hertz, double count) {
  return 0.5 * activity * farads * volts * volts * hertz * count;
}

double voltageScale(double volts, double nominalVolts) {
  if (nominalVolts <= 0.0) return 0.0;
  const double ratio = volts / nominalVolts;
  return ratio * ratio;
}

double combinationalActivity(double toggleRate, double glitchFactor) {
  return toggleRate * std::max(glitchFactor, 1.0);
}

double leakagePower(const LeakageLaw& law, double volts, double temperature, double cornerFactor) {
  if (volts <= 0.0 || law.nominalVolts <= 0.0) return 0.0;
  return law.watts * cornerFactor * std::pow(volts / law.nominalVolts, law.voltageExponent + 1.0) *
         std::exp(law.perKelvin * (temperature - law.referenceTemperature));
}

double oscillatorFrequency(double reference, double multiply, double divide) {
  return divide > 0.0 ? reference * multiply / divide : 0.0;
}

}  // namespace kvxm
