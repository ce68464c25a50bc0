#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "models/catalogue/DeviceCatalogue.h"

namespace kvxe {

/// Longest text that is looked at as a part name.
inline constexpr std::size_t maxPartNameLength = 128;

/// Splits a part name into its fields and forms its printed name and key. Takes the printed form
/// ("AK1080-VSVA1024_2-MP-E-S"), the catalogue's key ("AK1080_VSVA1024_2MPES") and whatever else separates
/// the fields by "-" or "_", in any letter case. Whether such a part exists is not looked at.
std::optional<kvxm::Part> parsePartName(kvxm::Architecture architecture, std::string_view name);

/// A copy with the letters a to z as capitals, whatever the locale.
std::string upperCase(std::string_view text);

/// Whether the leading letters of a name are those of one of the devices, in any letter case.
bool sharesLeadingLetters(std::string_view name, const std::vector<std::string>& devices);

}  // namespace kvxe
