#include "engine/base/project/FileStamp.h"

#include <sys/stat.h>

#include <boost/filesystem/operations.hpp>

namespace kvxe {

FileStamp FileStamp::of(const boost::filesystem::path& file) {
  struct stat status {};
  if (stat(file.c_str(), &status) != 0 || !S_ISREG(status.st_mode)) return {};
  constexpr std::int64_t nanoseconds = 1'000'000'000;
  return {.device = status.st_dev,
          .inode = status.st_ino,
          .size = status.st_size,
          .lastWriteTime = status.st_mtim.tv_sec * nanoseconds + status.st_mtim.tv_nsec};
}

KnownFiles& KnownFiles::getGlobal() {
  static KnownFiles files;
  return files;
}

void KnownFiles::add(const boost::filesystem::path& file, const FileStamp& stamp) {
  if (stamp.isOfFile()) m_stamps[boost::filesystem::absolute(file).string()] = stamp;
}

bool KnownFiles::holds(const boost::filesystem::path& file) const {
  const auto found = m_stamps.find(boost::filesystem::absolute(file).string());
  return found != m_stamps.end() && found->second == FileStamp::of(file);
}

}  // namespace kvxe
