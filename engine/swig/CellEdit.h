#pragma once

#include <string>

class KVXECell;

namespace kvxe {

/// Stores what the user entered in a cell, given as the screen shows it, and makes it the user's value. A
/// value that the cell cannot hold leaves the cell as it was, with a message that says why: a number that is
/// none or lies beyond the type or the range, a text that is no number where one is wanted, a text that could
/// not be written to a file. A cell that the user may not edit stays as it is.
void editCell(KVXECell& cell, float value);
void editCell(KVXECell& cell, int value);
void editCell(KVXECell& cell, const std::string& value);

/// Blanks a cell; a formula that fills it may do so again.
void blankCell(KVXECell& cell);

}  // namespace kvxe
