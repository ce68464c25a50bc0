#pragma once

#include <minizip/unzip.h>

#include <cstdint>
#include <string>
#include <vector>

/// Unpacks an archive that may have been made to do harm. Nothing is taken from it on trust but what the
/// system can afford, and all of its directory is checked before the first file is written.
/// What is refused is an NException with the entry and the reason; the caller knows the archive.
class ArchiveReader {
 public:
  explicit ArchiveReader(const std::string& path);
  ArchiveReader(const ArchiveReader&) = delete;
  ArchiveReader& operator=(const ArchiveReader&) = delete;
  ~ArchiveReader();

  struct Entry {
    std::string name;
    std::uint64_t size = 0;    ///< unpacked, as the archive says
    std::uint64_t packed = 0;  ///< in the archive
  };

  /// The entries, once they are found to be safe.
  const std::vector<Entry>& entries() const { return m_entries; }
  /// Writes all of them below the directory, which must exist.
  void unpack(const std::string& directory);

 private:
  void checkFile() const;
  Entry readEntry();
  bool isDirectoryEndAt(std::uint64_t position) const;
  void check(const Entry& entry, const unz_file_info64& info) const;
  void checkTogether() const;
  void unpackCurrent(const Entry& entry, const std::string& file);
  [[noreturn]] void refuse(const std::string& what) const;
  [[noreturn]] void refuse(const Entry& entry, const std::string& what) const;

  std::string m_path;
  unzFile m_zip = nullptr;
  std::vector<Entry> m_entries;
  std::uint64_t m_directoryEnd = 0;  // where the last entry of the archive's directory ends in the file
};
