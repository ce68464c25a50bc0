#pragma once

/// How grave a message is. Warnings and errors raise the severity of the table and the tab they stand in.
enum class KvxSeverity : int {
  NONE = 0,
  INFO = 1,  ///< a plain message, such as a tool tip
  WARNING = 2,
  ERROR = 3,
  OTHER = 4,
};

/// True for the severities that a table keeps account of.
constexpr bool raisesSeverity(KvxSeverity severity) {
  return severity == KvxSeverity::WARNING || severity == KvxSeverity::ERROR;
}
