#include "engine/base/project/KVXEZip.h"

#include <minizip/unzip.h>
#include <minizip/zip.h>

#include <algorithm>
#include <boost/algorithm/string.hpp>
#include <boost/filesystem/fstream.hpp>
#include <boost/filesystem/operations.hpp>
#include <memory>
#include <optional>

#include "platform/wyr_common/ArchiveLimits.h"

namespace fs = boost::filesystem;

namespace {

constexpr std::size_t BlockSize = 8192;
constexpr std::size_t NameSize = 256;

using Block = std::unique_ptr<char[]>;

// Packing.

std::vector<fs::path> filesBelow(const fs::path& directory, const fs::path& archive) {
  std::vector<fs::path> files;
  boost::system::error_code error, ignored;
  for (fs::recursive_directory_iterator entry(directory, error), end; !error && entry != end;
       entry.increment(error))
    // An archive inside the directory would be packed into itself without end.
    if (fs::is_regular_file(entry->path(), ignored) && !fs::equivalent(entry->path(), archive, ignored))
      files.push_back(entry->path());
  return files;
}

/// The name of a file relative to the directory in which it was found.
std::string nameBelow(const fs::path& directory, const fs::path& file) {
  const std::string name = file.generic_string().substr(directory.generic_string().size());
  return name.substr(std::min(name.find_first_not_of('/'), name.size()));
}

bool pack(zipFile zip, const std::string& name, const fs::path& file, const Block& block) {
  fs::ifstream in(file, std::ios::binary);
  if (!in || zipOpenNewFileInZip64(zip, name.c_str(), nullptr, nullptr, 0, nullptr, 0, nullptr, Z_DEFLATED,
                                   Z_DEFAULT_COMPRESSION, 0) != ZIP_OK)
    return false;
  bool isWell = true;
  while (in.read(block.get(), BlockSize).gcount() > 0)
    isWell &= zipWriteInFileInZip(zip, block.get(), static_cast<unsigned int>(in.gcount())) == ZIP_OK;
  return (zipCloseFileInZip(zip) == ZIP_OK) && isWell && in.eof();
}

// Unpacking.

using Reader = std::unique_ptr<void, decltype(&unzClose)>;

Reader openArchive(const fs::path& archive) {
  boost::system::error_code ignored;
  return {fs::is_regular_file(archive, ignored) ? unzOpen64(archive.c_str()) : nullptr, &unzClose};
}

/// Calls `visit` for each entry, as far as an archive may go; false when it goes further.
template <class Visit>
bool forEachEntry(unzFile zip, Visit visit) {
  for (std::uint64_t count = 0; count < ArchiveLimits::maxEntries; ++count) {
    visit();
    if (unzGoToNextFile(zip) != UNZ_OK) return true;
  }
  return false;
}

/// The name of the present entry; nothing when it cannot be read.
std::optional<std::string> nameOfEntry(unzFile zip) {
  std::string name(NameSize, '\0');
  unz_file_info64 info{};
  if (unzGetCurrentFileInfo64(zip, &info, name.data(), NameSize, nullptr, 0, nullptr, 0) != UNZ_OK)
    return std::nullopt;
  // A name that fills the buffer comes without an end.
  name.resize(std::min({name.find('\0'), NameSize, static_cast<std::size_t>(info.size_filename)}));
  return name;
}

/// The present entry is stored or deflated. Of bzip2 the library would hand out the packed bytes.
bool hasKnownMethod(unzFile zip) {
  unz_file_info64 info{};
  return unzGetCurrentFileInfo64(zip, &info, nullptr, 0, nullptr, 0, nullptr, 0) == UNZ_OK &&
         (info.compression_method == 0 || info.compression_method == Z_DEFLATED);
}

fs::path pathOfName(const std::string& name) {
  std::vector<std::string> parts;
  boost::split(parts, name, boost::is_any_of("\\,/"));
  fs::path path;
  for (const std::string& part : parts) path /= part;
  return path;
}

bool isAbsolute(const std::string& name) {
  return name.starts_with('/') || name.starts_with('\\');
}

/// Makes the directory, which is to be below another, without following a link on the way.
bool makeDirectory(const fs::path& top, const fs::path& below) {
  boost::system::error_code error;
  fs::path directory = top;
  fs::create_directories(top, error);
  for (const fs::path& part : below) {
    directory /= part;
    const fs::file_type type = fs::symlink_status(directory, error).type();
    if (type == fs::directory_file) continue;
    if (type != fs::file_not_found || !fs::create_directory(directory, error)) return false;
  }
  return fs::is_directory(directory, error);
}

class Unpacker {
 public:
  Unpacker(unzFile zip, const fs::path& directory) : m_zip(zip), m_directory(directory) {}

  bool unpackEntry() {
    const auto name = nameOfEntry(m_zip);
    if (!name || isAbsolute(*name)) return false;
    const fs::path below = pathOfName(*name).lexically_normal();
    if (below.empty() || *below.begin() == "..") return false;
    if (name->ends_with('/')) return makeDirectory(m_directory, below);
    if (!makeDirectory(m_directory, below.parent_path())) return false;
    if (!hasKnownMethod(m_zip) || unzOpenCurrentFile(m_zip) != UNZ_OK) return false;
    const bool isWell = unpackTo(m_directory / below);
    return (unzCloseCurrentFile(m_zip) == UNZ_OK) && isWell;
  }

 private:
  bool unpackTo(const fs::path& file) {
    boost::system::error_code ignored;
    const fs::file_type type = fs::symlink_status(file, ignored).type();
    if (type != fs::file_not_found && type != fs::regular_file) return false;
    fs::ofstream out(file, std::ios::binary | std::ios::trunc);
    std::uint64_t size = 0;
    int got = 0;
    while (out && (got = unzReadCurrentFile(m_zip, m_block.get(), BlockSize)) > 0) {
      size += static_cast<std::uint64_t>(got);
      m_total += static_cast<std::uint64_t>(got);
      if (size > ArchiveLimits::maxEntrySize || m_total > ArchiveLimits::maxTotalSize) return false;
      out.write(m_block.get(), got);
    }
    out.close();
    return out && got == 0;
  }

  unzFile m_zip;
  fs::path m_directory;
  std::uint64_t m_total = 0;  // unpacked, in bytes
  Block m_block = std::make_unique<char[]>(BlockSize);
};

}  // namespace

bool KVXEZip::kvxCompress(const fs::path& sourceDir, const fs::path& archive) {
  boost::system::error_code ignored;
  if (sourceDir.empty() || archive.empty() || !fs::exists(sourceDir, ignored)) return false;
  const std::vector<fs::path> files = filesBelow(sourceDir, archive);
  if (files.empty()) return false;
  const zipFile zip = zipOpen64(archive.c_str(), APPEND_STATUS_CREATE);
  if (!zip) return false;
  const Block block = std::make_unique<char[]>(BlockSize);
  bool isWell = true;
  for (const fs::path& file : files) isWell &= pack(zip, nameBelow(sourceDir, file), file, block);
  return (zipClose(zip, nullptr) == ZIP_OK) && isWell;
}

bool KVXEZip::kvxUncompress(const fs::path& archive, const fs::path& targetDir) {
  if (archive.empty() || targetDir.empty()) return false;
  const Reader zip = openArchive(archive);
  if (!zip) return false;
  Unpacker unpacker(zip.get(), targetDir);
  bool isWell = true;
  return forEachEntry(zip.get(), [&] { isWell &= unpacker.unpackEntry(); }) && isWell;
}

void KVXEZip::getPathsInZip(const fs::path& archive, std::vector<std::string>& paths) {
  const Reader zip = openArchive(archive);
  if (!zip) return;
  forEachEntry(zip.get(), [&] {
    if (const auto name = nameOfEntry(zip.get())) paths.push_back(pathOfName(*name).string());
  });
}
