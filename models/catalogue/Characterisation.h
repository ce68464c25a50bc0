#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace kvxm {

/// Names every characterisation coefficient of the power equations; see coefficients.def for units and
/// meaning.
enum class Coefficient : unsigned short {
#define KVXM_COEFFICIENT(name, key, unit, bandMin, bandMax, meaning) name,
#include "models/catalogue/coefficients.def"
#undef KVXM_COEFFICIENT
  Count
};

inline constexpr std::size_t coefficientCount = static_cast<std::size_t>(Coefficient::Count);

/// What is declared about one coefficient.
struct CoefficientInfo {
  std::string_view key;      ///< the key in coefficients.toml
  std::string_view unit;     ///< as text, "J" or "W"
  float bandMin;             ///< lower end of the believable band
  float bandMax;             ///< upper end of the believable band
  std::string_view meaning;  ///< one line for the reader of the data
};

/// All declarations, indexed by Coefficient.
const std::array<CoefficientInfo, coefficientCount + 1>& coefficientInfos();

/// The coefficients of one device: the architecture's set with the overrides of its family and of itself.
class Characterisation {
 public:
  float operator[](Coefficient coefficient) const { return m_values[static_cast<std::size_t>(coefficient)]; }
  void set(Coefficient coefficient, float value) { m_values[static_cast<std::size_t>(coefficient)] = value; }

 private:
  std::array<float, coefficientCount + 1> m_values{};
};

/// The coefficients of a device, found by device name, printed part name or part key in a single hash probe.
/// An unknown name gives the default set of the architecture ("Tarvek" or "Arkeon", "Morlan" or "Hexaline+",
/// "Som" or "Ludra"). The reference is valid until reloadModelData().
const Characterisation& characterisation(std::string_view architecture, std::string_view deviceOrPart);

}  // namespace kvxm
