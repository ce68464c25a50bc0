#pragma once

/// Access to the process environment.
class NDUEnv {
 public:
  /// The value of the environment variable, or null when it is not set. The text belongs to the environment.
  static const char* getEnv(const char* name);
};
