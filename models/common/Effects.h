#pragma once

/// The physical effects behind the blocks, one equation each. Inside the library energies are in joules,
/// powers in watts, frequencies in hertz, temperatures in degrees Celsius, and sums are made in double
/// precision; units of the workbook (MHz, fJ) are converted where a record or a coefficient is read.
///
/// An amount that is negative, not a number or blank (the sentinels of the workbook's blank cells, 2147483646
/// and the largest float) counts as not used, so that it draws no power.
namespace kvxm {

inline constexpr double hertzPerMegahertz = 1e6;
inline constexpr double joulesPerFemtojoule = 1e-15;

/// A count, rate, voltage or frequency as the equations take it: 0 if nothing is used.
double used(float amount);
double used(int amount);

/// A result as a record stores it; what exceeds every float is cut to the largest one.
float toFloat(double value);

/// Dynamic power by capacitance: 1/2 * activity * C * V^2 * f * N, with `activity` transitions per clock (2
/// for a clock net). (Weste and Harris, CMOS VLSI Design, 5.2.)
double switchingPower(double activity, double farads, double volts, double hertz, double count);

/// The factor (V / Vnominal)^2 by which a switching energy that was characterised at the nominal voltage
/// scales. The direct path's few percent are part of the characterised energy. (Weste and Harris, CMOS VLSI
/// Design, 5.2.)
double voltageScale(double volts, double nominalVolts);

/// Transitions per clock of a combinational output: glitches multiply the rate of its inputs, which
/// flip-flops stop. (Najm, A survey of power estimation techniques in VLSI circuits, IEEE TVLSI 1994.) A
/// factor below 1 has no meaning and counts as 1.
double combinationalActivity(double toggleRate, double glitchFactor);

/// How a rail of a device leaks, as characterised at a nominal voltage and a reference temperature.
struct LeakageLaw {
  double watts = 0.0;                  ///< at nominal voltage and reference temperature, typical process
  double nominalVolts = 1.0;           ///< of the rail
  double voltageExponent = 1.0;        ///< n of current ~ (V / Vnominal)^n, 1 to 5
  double perKelvin = 0.0;              ///< beta of current ~ e^(beta * T), 0.012 to 0.040
  double referenceTemperature = 25.0;  ///< degrees Celsius
};

/// Leakage power P0 * corner * (V/Vnominal)^(n+1) * e^(beta * (T - T0)); power takes one more V than the
/// current. `cornerFactor` is 1 for typical process. (Butts and Sohi, A static power model for architects,
/// MICRO 2000; temperature law as in HotSpot and McPAT.)
double leakagePower(const LeakageLaw& law, double volts, double temperature, double cornerFactor);

/// Frequency of a clock manager's oscillator in the unit of the reference: f_ref * M / D; 0 for a divider of
/// 0. (Razavi, Design of Analog CMOS Integrated Circuits, frequency multiplication in phase-locked loops.)
double oscillatorFrequency(double reference, double multiply, double divide);

}  // namespace kvxm
