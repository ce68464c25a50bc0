#pragma once

#include <string>

/// What the process runs in, and what it is.
class NDUEnv {
 public:
  /// The value of the environment variable, or null when it is not set. The text belongs to the environment.
  static const char* getEnv(const char* name);

  /// The release, such as "0.1.0".
  static std::string getProductVersion();
  /// The product with its release, for people.
  static std::string getFullProductStr();
  /// As above with the compiler and the kind of build.
  static std::string getFullBuildStr();
};
