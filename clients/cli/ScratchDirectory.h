#pragma once

#include <filesystem>

namespace kvx {

/// A directory of its own among the system's temporary ones, which is gone with its contents when this is.
class ScratchDirectory {
 public:
  /// @throws std::system_error when there is no place for it.
  ScratchDirectory();
  ~ScratchDirectory();
  ScratchDirectory(const ScratchDirectory&) = delete;
  ScratchDirectory& operator=(const ScratchDirectory&) = delete;

  const std::filesystem::path& path() const { return m_path; }

 private:
  std::filesystem::path m_path;
};

}  // namespace kvx
