#pragma once

#include <string>

#include "clients/cli/Sheet.h"

namespace kvx {

/// The sheet as text, one key a line, in the sheet's order, so that versions of it compare well. Numbers have
/// the fewest digits that read back to the same value.
/// @throws std::runtime_error for a text that TOML cannot hold.
std::string writeSheetText(const Sheet& sheet);

/// Puts a text in the place of a file, which holds the old text or the new one at every moment.
/// @throws std::exception when the file cannot be written.
void replaceFile(const std::string& path, const std::string& text);

}  // namespace kvx
