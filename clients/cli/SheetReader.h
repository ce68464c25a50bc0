#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "clients/cli/Diagnostics.h"
#include "clients/cli/Sheet.h"

namespace kvx {

/// A file beyond this is no design sheet, and is refused before it is read.
inline constexpr std::size_t LargestSheetBytes = 16u << 20;

/// Reads a design sheet. Mistakes of form are added to the diagnostics; nothing is returned for a file that
/// cannot be read at all.
std::optional<Sheet> readSheetFile(const std::string& path, Diagnostics& diagnostics);

/// As above for a text; `source` names it in messages.
Sheet readSheetText(std::string text, const std::string& source, Diagnostics& diagnostics);

/// Adds an override "path=value" of the command line to a sheet. The path is "part", "process",
/// "environment.KEY" or "TAB.TABLE.ROW.COLUMN", where a part with a dot in it stands in double quotes, an
/// empty TABLE is the tab's main table, and ROW is the row's number on screen or its text.
void addOverride(const std::string& text, Sheet& sheet, Diagnostics& diagnostics);

}  // namespace kvx
