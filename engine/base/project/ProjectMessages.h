#pragma once

#include <string>

namespace kvxe {

/// Tells the user of an error in a project operation; the line orders and tells apart. False, for the
/// operation that failed.
bool reportError(int line, const std::string& text);
/// Tells the user something to know about an operation that goes on.
void reportWarning(int line, const std::string& text);

}  // namespace kvxe
