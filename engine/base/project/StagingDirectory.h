#pragma once

#include <boost/filesystem/path.hpp>

namespace kvxe {

/// Where the directories lie in which projects are unpacked: ".Kvx/projects" under the current directory.
boost::filesystem::path stagingRoot();

/// Tells other processes that a staging directory is in use, as long as it lives. The system lets go of the
/// lock when the process ends in whatever way, so that what is not locked is nobody's.
class StagingLock {
 public:
  StagingLock() = default;
  /// Takes the directory unless somebody else has it.
  explicit StagingLock(const boost::filesystem::path& directory);
  StagingLock(StagingLock&& other) noexcept;
  StagingLock& operator=(StagingLock&& other) noexcept;
  ~StagingLock();

  /// Nobody else can take or sweep the directory. On a file system without locks nobody can ever take one,
  /// so there every directory counts as held by whom made it.
  bool isHeld() const { return m_isHeld; }
  /// The system says so: the directory was free, and is this object's.
  bool isLocked() const { return m_isLocked; }

 private:
  int m_descriptor = -1;
  bool m_isHeld = false;
  bool m_isLocked = false;
};

/// Removes the staging directories under `root` that no living process holds. What cannot be removed stays.
void sweepStagingDirectories(const boost::filesystem::path& root);

}  // namespace kvxe
