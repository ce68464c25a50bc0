#pragma once

#include <string>
#include <vector>

namespace kvxm {

/// Mistakes in the directory that KVX_MODEL_DATA names, one line each: "file:line: key: what; expected form".
/// While there is one, the built-in data stays in force as a whole. Loads the data if that has not happened.
std::vector<std::string> modelDataErrors();

/// What the loaded data leaves doubtful, in the same form: values far outside their believable band.
std::vector<std::string> modelDataWarnings();

/// Reads the data again, with the present value of KVX_MODEL_DATA. Ends the validity of every reference into
/// the catalogue and the characterisation.
void reloadModelData();

}  // namespace kvxm
