#include "platform/wyr_common/ArchiveReader.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <fstream>
#include <memory>
#include <system_error>

#include "platform/wyr_common/ArchiveLimits.h"
#include "platform/wyr_common/NException.h"

namespace fs = std::filesystem;

namespace {

constexpr std::size_t BlockSize = 1 << 16;
constexpr const char* MoreThanSaid = "has more bytes than the archive says";
constexpr unsigned long EncryptedFlag = 1;
constexpr unsigned long UnixHost = 3;
constexpr std::uint64_t DirectoryEntryLength = 46;  // before its name (PKWARE APPNOTE 4.3.12)
// What follows the directory: the end record, or that of large archives (4.3.16, 4.3.14).
constexpr std::string_view EndRecord = "PK\x05\x06", LargeEndRecord = "PK\x06\x06";

/// The parts of a name between slashes.
std::vector<std::string_view> partsOf(std::string_view name) {
  std::vector<std::string_view> parts;
  for (std::size_t begin = 0; begin <= name.size();) {
    const std::size_t end = std::min(name.find('/', begin), name.size());
    parts.push_back(name.substr(begin, end - begin));
    begin = end + 1;
  }
  return parts;
}

/// What is wrong with a name, or nothing.
const char* faultOf(const std::string& name) {
  if (name.empty()) return "has no name";
  if (name.find('\0') != std::string::npos) return "has a NUL character in its name";
  if (name.find('\\') != std::string::npos) return "has a backslash in its name";
  if (name.front() == '/') return "has an absolute name";
  for (const std::string_view part : partsOf(name)) {
    if (part == "..") return "leaves the directory";
    if (part.empty() || part == ".") return "is not a file";
  }
  return nullptr;
}

/// A name for a message: cut, and without characters that a terminal would act on.
std::string shown(std::string name) {
  constexpr std::size_t longest = 60;
  if (name.size() > longest) name = name.substr(0, longest) + "...";
  for (char& c : name)
    if (static_cast<unsigned char>(c) < 0x20 || c == 0x7F) c = '?';
  return name;
}

/// Whether the archive's maker says that the entry is anything but a plain file.
bool isSpecial(const unz_file_info64& info) {
  const unsigned long mode = info.external_fa >> 16;
  return info.version >> 8 == UnixHost && (mode & S_IFMT) != 0 && !S_ISREG(mode);
}

}  // namespace

void ArchiveReader::refuse(const std::string& what) const {
  throw NException(what);
}

void ArchiveReader::refuse(const Entry& entry, const std::string& what) const {
  refuse("the entry '" + shown(entry.name) + "' " + what);
}

ArchiveReader::ArchiveReader(const std::string& path) : m_path(path) {
  checkFile();
  if (isDirectoryEndAt(0)) return;  // an archive of no files, which the library does not take
  m_zip = unzOpen64(path.c_str());
  if (!m_zip) refuse("it is not an archive");
  try {
    unz_global_info64 info{};
    if (unzGetGlobalInfo64(m_zip, &info) != UNZ_OK) refuse("it is not an archive");
    for (int result = info.number_entry == 0 ? UNZ_END_OF_LIST_OF_FILE : unzGoToFirstFile(m_zip);
         result != UNZ_END_OF_LIST_OF_FILE; result = unzGoToNextFile(m_zip)) {
      if (result != UNZ_OK) refuse("its directory is damaged");
      if (m_entries.size() == ArchiveLimits::maxEntries)
        refuse("it has more than " + std::to_string(ArchiveLimits::maxEntries) + " entries");
      m_entries.push_back(readEntry());
    }
    // An end record that counts too few entries would hide the others.
    if (!isDirectoryEndAt(m_directoryEnd)) refuse("its directory is damaged");
    checkTogether();
  } catch (...) {
    unzClose(m_zip);
    throw;
  }
}

ArchiveReader::~ArchiveReader() {
  unzClose(m_zip);
}

void ArchiveReader::checkFile() const {
  std::error_code error;
  if (!fs::is_regular_file(m_path, error)) refuse(error ? error.message() : "it is not a file");
  if (fs::file_size(m_path, error) > ArchiveLimits::maxArchiveSize)
    refuse("it is larger than " + std::to_string(ArchiveLimits::maxArchiveSize) + " bytes");
}

bool ArchiveReader::isDirectoryEndAt(std::uint64_t position) const {
  std::ifstream file(m_path, std::ios::binary);
  file.seekg(static_cast<std::streamoff>(position));
  std::string signature(EndRecord.size(), '\0');
  file.read(signature.data(), static_cast<std::streamsize>(signature.size()));
  return signature == EndRecord || signature == LargeEndRecord;
}

ArchiveReader::Entry ArchiveReader::readEntry() {
  unz_file_info64 info{};
  if (unzGetCurrentFileInfo64(m_zip, &info, nullptr, 0, nullptr, 0, nullptr, 0) != UNZ_OK)
    refuse("its directory is damaged");
  if (info.size_filename > ArchiveLimits::maxNameLength)
    refuse("it has an entry with a name of " + std::to_string(info.size_filename) + " bytes");
  Entry entry{std::string(info.size_filename, '\0'), info.uncompressed_size, info.compressed_size};
  if (unzGetCurrentFileInfo64(m_zip, nullptr, entry.name.data(), info.size_filename, nullptr, 0, nullptr,
                              0) != UNZ_OK)
    refuse("its directory is damaged");
  check(entry, info);
  m_directoryEnd = unzGetOffset64(m_zip) + DirectoryEntryLength + info.size_filename + info.size_file_extra +
                   info.size_file_comment;
  return entry;
}

void ArchiveReader::check(const Entry& entry, const unz_file_info64& info) const {
  if (const char* fault = faultOf(entry.name)) refuse(entry, fault);
  if (info.flag & EncryptedFlag) refuse(entry, "is encrypted");
  if (info.compression_method != 0 && info.compression_method != Z_DEFLATED)
    refuse(entry,
           "is packed with method " + std::to_string(info.compression_method) + ", which is not known");
  if (isSpecial(info)) refuse(entry, "is not a plain file");
  if (entry.size > ArchiveLimits::maxEntrySize)
    refuse(entry, "has " + std::to_string(entry.size) + " bytes, more than " +
                      std::to_string(ArchiveLimits::maxEntrySize));
  if (entry.packed > compressBound(entry.size)) refuse(entry, MoreThanSaid);
}

void ArchiveReader::checkTogether() const {
  std::uint64_t total = 0;
  std::vector<std::string_view> names;
  for (const Entry& entry : m_entries) {
    total += entry.size;
    names.push_back(entry.name);
  }
  if (total > ArchiveLimits::maxTotalSize)
    refuse("its entries have " + std::to_string(total) + " bytes, more than " +
           std::to_string(ArchiveLimits::maxTotalSize));
  std::sort(names.begin(), names.end());
  for (const std::string_view name : names) {
    const auto range = std::equal_range(names.begin(), names.end(), name);
    if (range.second - range.first > 1) refuse({std::string(name)}, "is there twice");
    const std::string directory = std::string(name) + "/";
    const auto below = std::lower_bound(names.begin(), names.end(), directory);
    if (below != names.end() && below->starts_with(directory))
      refuse({std::string(name)}, "is a file and a directory");
  }
}

void ArchiveReader::unpack(const std::string& directory) {
  if (m_entries.empty()) return;
  int result = unzGoToFirstFile(m_zip);
  for (const Entry& entry : m_entries) {
    if (result != UNZ_OK) refuse("its directory is damaged");
    const fs::path file = fs::path(directory) / entry.name;
    std::error_code error;
    fs::create_directories(file.parent_path(), error);
    if (error) refuse(file.parent_path().string() + ": " + error.message());
    unpackCurrent(entry, file.string());
    result = unzGoToNextFile(m_zip);
  }
}

namespace {

/// A new file that closes itself.
class NewFile {
 public:
  explicit NewFile(const std::string& path)
      : m_path(path),
        m_descriptor(open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0666)) {
    if (m_descriptor < 0) fail();
  }
  NewFile(const NewFile&) = delete;
  NewFile& operator=(const NewFile&) = delete;
  ~NewFile() {
    if (m_descriptor >= 0) ::close(m_descriptor);
  }

  void write(const char* bytes, std::size_t count) {
    while (count > 0) {
      const ssize_t written = ::write(m_descriptor, bytes, count);
      if (written < 0 && errno == EINTR) continue;
      if (written <= 0) fail();
      bytes += written;
      count -= static_cast<std::size_t>(written);
    }
  }
  void close() {
    if (::close(std::exchange(m_descriptor, -1)) != 0) fail();
  }

 private:
  [[noreturn]] void fail() const { throw NException(m_path + ": " + std::generic_category().message(errno)); }

  std::string m_path;
  int m_descriptor;
};

}  // namespace

void ArchiveReader::unpackCurrent(const Entry& entry, const std::string& file) {
  if (unzOpenCurrentFile(m_zip) != UNZ_OK) refuse(entry, "cannot be unpacked");
  NewFile out(file);
  const auto block = std::make_unique<char[]>(BlockSize);
  std::uint64_t size = 0;
  int got = 0;
  while ((got = unzReadCurrentFile(m_zip, block.get(), BlockSize)) > 0) {
    size += static_cast<std::uint64_t>(got);
    if (size > entry.size) refuse(entry, MoreThanSaid);
    out.write(block.get(), static_cast<std::size_t>(got));
  }
  if (got < 0 || size != entry.size || unzCloseCurrentFile(m_zip) != UNZ_OK) refuse(entry, "is damaged");
  out.close();
}
