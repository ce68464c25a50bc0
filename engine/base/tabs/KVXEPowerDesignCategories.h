#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace kvxe {

/// A group of rails in the power design, in the order of the supply table.
struct RailCategory {
  std::string_view key;         ///< as the catalogue groups rails
  std::string_view detailed;    ///< as shown; blank where the key is shown
  std::string_view domain;      ///< power domain that gives the colour

  std::string_view shown() const { return detailed.empty() ? key : detailed; }
};

std::span<const RailCategory> railCategories();

/// Whether a supply text of the table heads a category rather than names a rail.
bool isCategoryStr(std::string_view text);
/// The short key of a category from its shown text, and the reverse; blank for any other text.
std::string getCategoryStr(std::string_view detailed);
std::string getCategoryDetailedStr(std::string_view key);

/// Background of the cells of a power domain: "PMC", "SYSTEM", "LPD", "FPD", "PL", "IO", "BATT".
std::uint32_t powerDomainBackground(std::string_view domain);

}  // namespace kvxe
