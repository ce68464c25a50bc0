#pragma once

#include <string>

namespace kvx {

/// How the command ends; the numbers are part of its interface.
enum class ExitStatus {
  Success = 0,
  Broken = 1,    ///< the budget is exceeded, the workbook has a message of the gravest kind, designs differ
  BadInput = 2,  ///< nothing was written
  Machine = 3,   ///< disk, memory
};

/// What a command leaves: its status, and its text for standard output.
struct Outcome {
  ExitStatus status = ExitStatus::Success;
  std::string output;
};

}  // namespace kvx
