#pragma once

#include <boost/filesystem/path.hpp>
#include <cstdint>
#include <map>
#include <string>

namespace kvxe {

/// What tells one state of a file from another without reading it.
struct FileStamp {
  std::uint64_t device = 0;
  std::uint64_t inode = 0;
  std::int64_t size = -1;          ///< bytes; -1 when there is no such regular file
  std::int64_t lastWriteTime = 0;  ///< in nanoseconds: two saves within a second must differ

  /// The file's present state; what a symbolic link names is the file.
  static FileStamp of(const boost::filesystem::path& file);

  bool isOfFile() const { return size >= 0; }
  bool operator==(const FileStamp&) const = default;
};

/// The project files whose content this process holds, because it has read them whole or written them. Any
/// other file is somebody else's work, and must not be replaced without a copy.
class KnownFiles {
 public:
  static KnownFiles& getGlobal();

  void add(const boost::filesystem::path& file, const FileStamp& stamp);
  /// Whether the file is still as this process knows it.
  bool holds(const boost::filesystem::path& file) const;

 private:
  std::map<std::string, FileStamp> m_stamps;  // by absolute path
};

}  // namespace kvxe
