#pragma once

#include <string>

namespace kvxe {

/// A copy in which each run of ASCII letters and digits begins with a capital and goes on in small letters:
/// "GEN3X8 LINK" becomes "Gen3x8 Link", whatever the locale.
std::string toTitleCase(std::string text);

}  // namespace kvxe
