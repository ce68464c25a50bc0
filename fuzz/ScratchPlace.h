#pragma once

#include <filesystem>
#include <fstream>
#include <span>
#include <string>

namespace kvxe::fuzz {

/// A directory of its own, in memory where the system has such a place, that is the current one.
class ScratchPlace {
 public:
  ScratchPlace();
  ~ScratchPlace();
  ScratchPlace(const ScratchPlace&) = delete;
  ScratchPlace& operator=(const ScratchPlace&) = delete;

  std::filesystem::path path() const { return m_path; }
  /// Empties the directory.
  void clear() const;

 private:
  std::filesystem::path m_path;
};

void writeFile(const std::filesystem::path& file, std::span<const char> bytes);
std::string readFile(const std::filesystem::path& file);

/// Ends the process, for the fuzzer to see.
[[noreturn]] void stop(const char* what, const std::string& detail);

}  // namespace kvxe::fuzz
