#pragma once

#include "models/catalogue/Characterisation.h"
#include "models/common/Effects.h"

/// Power of DSP slices. Both architectures share these equations and differ by their coefficients. All of it
/// is linear in frequency and count and quadratic in voltage; the part that moves data is linear in the
/// toggle rate, the clocked part runs whether data move or not.
namespace kvxm {

/// What the slices of one row of a DSP table do.
struct DspUse {
  double slices = 0.0;
  double hertz = 0.0;
  double toggleRate = 0.0;  ///< transitions per clock of the operands
  double widthA = 0.0;      ///< bits of the operand that the pre-adder makes
  double widthB = 0.0;
  double products = 0.0;    ///< multiplications in a slice and cycle; a part where several slices share one
  double adderWidth = 0.0;  ///< bits of the adder behind the multiplier; 0 for none
  bool isMultiplierUsed = false;
  bool isMultiplierRegisterUsed = false;
  bool isPreadderUsed = false;
  bool isPreadderRegisterUsed = false;
};

/// The energy of a kind of arithmetic relative to integers of the same width.
struct DspArithmetic {
  double multiply = 1.0;
  double add = 1.0;
  double slice = 1.0;  ///< of the slice as a whole
};

/// Watts that depend on the data. The energy of an array multiplier grows with the product of its operands'
/// widths, that of an adder with its width (Horowitz, Computing's energy problem, ISSCC 2014); without a
/// register behind it the multiplier's glitches run on through the adder (Najm, A survey of power estimation
/// techniques in VLSI circuits, IEEE TVLSI 1994).
double dspDataPower(const Characterisation& coefficients, const DspUse& use, const DspArithmetic& arithmetic,
                    double volts);

/// Watts of the clock pins inside the slices.
double dspClockPower(const Characterisation& coefficients, const DspUse& use, const DspArithmetic& arithmetic,
                     double volts);

/// The inputs that the records of all kinds of slices name alike; the widths are the caller's.
template <class Params>
DspUse dspUse(const Params& params) {
  using I = typename Params::IntEnum;
  using F = typename Params::FloatEnum;
  return {.slices = used(params[I::SLICES]),
          .hertz = used(params[F::FREQUENCY]) * hertzPerMegahertz,
          .toggleRate = used(params[F::TOGGLE_RATE]),
          .isMultiplierUsed = used(params[I::MULT_USED]) > 0.0,
          .isMultiplierRegisterUsed = used(params[I::MREG_USED]) > 0.0,
          .isPreadderUsed = used(params[I::PREADD_USED]) > 0.0,
          .isPreadderRegisterUsed = used(params[I::ADREG_USED]) > 0.0};
}

}  // namespace kvxm
