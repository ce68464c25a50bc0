#include "engine/base/project/StagingDirectory.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <boost/filesystem/directory.hpp>
#include <boost/filesystem/operations.hpp>
#include <cerrno>
#include <string_view>

namespace kvxe {

namespace fs = boost::filesystem;

namespace {

constexpr std::string_view NamePrefix = "kvx";

bool isStagingName(const std::string& name) {
  return name.size() > NamePrefix.size() && name.starts_with(NamePrefix) &&
         name.find_first_not_of("0123456789", NamePrefix.size()) == std::string::npos;
}

/// Between opening a directory and locking it, a sweep may have removed it.
bool isStillThere(int descriptor, const fs::path& directory) {
  struct stat opened {
  }, named{};
  return fstat(descriptor, &opened) == 0 && lstat(directory.c_str(), &named) == 0 &&
         opened.st_dev == named.st_dev && opened.st_ino == named.st_ino;
}

}  // namespace

fs::path stagingRoot() {
  return fs::current_path() / ".Kvx" / "projects";
}

StagingLock::StagingLock(const fs::path& directory)
    : m_descriptor(open(directory.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC)) {
  if (m_descriptor < 0) {
    m_isHeld = errno != ENOENT;  // a directory that cannot be opened cannot be locked by anybody
    return;
  }
  m_isLocked = flock(m_descriptor, LOCK_EX | LOCK_NB) == 0;
  const bool isTaken = !m_isLocked && errno == EWOULDBLOCK;
  m_isHeld = !isTaken && isStillThere(m_descriptor, directory);
}

StagingLock::StagingLock(StagingLock&& other) noexcept {
  *this = std::move(other);
}

StagingLock& StagingLock::operator=(StagingLock&& other) noexcept {
  std::swap(m_descriptor, other.m_descriptor);
  std::swap(m_isHeld, other.m_isHeld);
  std::swap(m_isLocked, other.m_isLocked);
  return *this;
}

StagingLock::~StagingLock() {
  if (m_descriptor >= 0) close(m_descriptor);
}

void sweepStagingDirectories(const fs::path& root) {
  boost::system::error_code error;
  for (fs::directory_iterator entry(root, error), end; !error && entry != end; entry.increment(error)) {
    if (!isStagingName(entry->path().filename().string())) continue;
    const StagingLock lock(entry->path());
    boost::system::error_code ignored;
    if (lock.isHeld() && lock.isLocked()) fs::remove_all(entry->path(), ignored);
  }
}

}  // namespace kvxe
