#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kvx {

/// A name reduced to what counts when a user spells it: small letters and digits. Blanks, "_", punctuation
/// and anything in round brackets are dropped, so that "Toggle Rate", "toggle_rate" and "Frequency (MHz)" may
/// be written in any way. Letters beyond ASCII stay.
std::string plainSpelling(std::string_view name);

/// Whether both are spellings of the same name. Two names without a letter or digit are only equal to the
/// letter.
bool isSameSpelling(std::string_view a, std::string_view b);

/// Single-letter insertions, deletions, replacements and swaps of neighbours that lead from one text to the
/// other.
unsigned int editDistance(std::string_view a, std::string_view b);

/// The known names nearest to what was written, best first; none when nothing comes near.
std::vector<std::string> nearestNames(std::string_view written, const std::vector<std::string>& known);

/// Advice for an unknown name: "did you mean "a" or "b"?" when there is a near one, else "known are "a", "b",
/// ...".
std::string adviseName(std::string_view written, const std::vector<std::string>& known);

/// The texts in quotes with commas between them; from `limit` on only how many there are.
std::string listInQuotes(const std::vector<std::string>& texts, std::size_t limit = 12);

/// The text in double quotes, without control characters and shortened where it is very long.
std::string inQuotes(std::string_view text);

}  // namespace kvx
