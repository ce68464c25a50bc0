#include "platform/wyr_common/TemporaryFile.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <random>
#include <system_error>

#include "platform/wyr_common/NException.h"

namespace fs = std::filesystem;

namespace {

constexpr const char* Suffix = ".tmp";
constexpr std::size_t MaxNumber = 10;  // digits
constexpr std::size_t MaxName = 255;

[[noreturn]] void fail(const std::string& what, int error) {
  throw NException(what + ": " + std::generic_category().message(error));
}

fs::path directoryOf(const std::string& target) {
  const fs::path directory = fs::path(target).parent_path();
  return directory.empty() ? "." : directory;
}

/// What the names of a target's temporary files begin with.
std::string prefixOf(const std::string& target) {
  std::string name = fs::path(target).filename().string();
  const std::size_t room = MaxName - MaxNumber - std::char_traits<char>::length(Suffix) - 2;
  if (name.size() > room) name.resize(room);
  return "." + name + ".";
}

bool isTemporaryOf(const std::string& prefix, const std::string& name) {
  if (!name.starts_with(prefix) || !name.ends_with(Suffix)) return false;
  const std::size_t length = name.size() - prefix.size();
  const std::size_t suffix = std::char_traits<char>::length(Suffix);
  if (length <= suffix || length > suffix + MaxNumber) return false;
  return name.substr(prefix.size(), length - suffix).find_first_not_of("0123456789") == std::string::npos;
}

/// Holds a file that was just made. False when a sweep came in between, which takes or has taken it away.
bool hold(int descriptor) {
  if (flock(descriptor, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) return false;
  struct stat status {};
  return fstat(descriptor, &status) == 0 && status.st_nlink > 0;
}

void syncDirectory(const fs::path& directory) {
  const int descriptor = open(directory.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (descriptor < 0) return;
  fsync(descriptor);  // not every file system can; the file itself is safe
  close(descriptor);
}

}  // namespace

TemporaryFile::TemporaryFile(const std::string& target) : m_target(target) {
  std::random_device random;
  const std::string prefix = prefixOf(target);
  do {
    m_path = (directoryOf(target) / (prefix + std::to_string(random()) + Suffix)).string();
    m_descriptor = open(m_path.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW, 0666);
    if (m_descriptor >= 0 && !hold(m_descriptor)) {
      close(m_descriptor);
      m_descriptor = -1;
      errno = EEXIST;
    }
  } while (m_descriptor < 0 && errno == EEXIST);
  if (m_descriptor < 0) {
    const int error = errno;
    m_path.clear();
    fail("Cannot write to " + directoryOf(target).string(), error);
  }
  struct stat status {};
  if (stat(target.c_str(), &status) == 0) fchmod(m_descriptor, status.st_mode & 07777);
}

TemporaryFile::~TemporaryFile() {
  if (!m_path.empty()) unlink(m_path.c_str());
  if (m_descriptor >= 0) close(m_descriptor);
}

void TemporaryFile::flush() {
  if (fsync(m_descriptor) != 0) fail("Cannot write " + m_path, errno);
}

void TemporaryFile::replaceTarget() {
  if (rename(m_path.c_str(), m_target.c_str()) != 0) fail("Cannot replace " + m_target, errno);
  m_path.clear();
  syncDirectory(directoryOf(m_target));
}

void TemporaryFile::sweep(const std::string& target) noexcept {
  try {
    const std::string prefix = prefixOf(target);
    std::error_code error;
    for (fs::directory_iterator entry(directoryOf(target), error), end; !error && entry != end;
         entry.increment(error)) {
      if (!isTemporaryOf(prefix, entry->path().filename().string())) continue;
      const int descriptor = open(entry->path().c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
      if (descriptor < 0) continue;
      if (flock(descriptor, LOCK_EX | LOCK_NB) == 0) unlink(entry->path().c_str());
      close(descriptor);
    }
  } catch (const std::exception&) {
    // A sweep is a courtesy: what stays costs room on the disk.
  }
}
