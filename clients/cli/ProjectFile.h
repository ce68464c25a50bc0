#pragma once

#include <string>

#include "clients/cli/Diagnostics.h"

namespace kvx {

/// Whether the path names a project: it ends in ".kvx", in small letters. Anything else is a sheet.
bool isProjectPath(const std::string& path);

/// Whether there is such a file; if not, the diagnostics say why.
bool isReadableProject(const std::string& path, Diagnostics& diagnostics);

/// Makes the book that of a project file, without a calculation. False with a mistake in the diagnostics for
/// a file that is no whole project. Nothing is left on disk.
/// @throws std::exception for a failure of the machine.
bool readProject(const std::string& path, Diagnostics& diagnostics);

/// Saves the book as a project, in place of any file of that name.
/// @throws std::exception for a failure of the machine.
void writeProject(const std::string& path, Diagnostics& diagnostics);

}  // namespace kvx
