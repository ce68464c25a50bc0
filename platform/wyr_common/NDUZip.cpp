#include "platform/wyr_common/NDUZip.h"

#include <fcntl.h>
#include <minizip/zip.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <memory>
#include <system_error>
#include <vector>

#include "platform/wyr_common/ArchiveLimits.h"
#include "platform/wyr_common/ArchiveReader.h"
#include "platform/wyr_common/NException.h"
#include "platform/wyr_common/Sha256.h"

namespace fs = std::filesystem;

namespace {

constexpr std::string_view DigestPrefix = "KVX SHA-256 ";
constexpr std::size_t DigestLength = DigestPrefix.size() + 64;  // in bytes
// The end of central directory record (PKWARE APPNOTE 4.3.16): its length without a comment, its first bytes,
// and where in it the comment's length stands.
constexpr std::size_t EndRecordLength = 22;
constexpr std::string_view EndRecordSignature = "PK\x05\x06";
constexpr std::size_t CommentLengthOffset = 20;

constexpr std::size_t BlockSize = 1 << 16;
constexpr int DefaultLevel = Z_DEFAULT_COMPRESSION;

[[noreturn]] void fail(const std::string& path, const std::string& what) {
  throw NException(path + ": " + what);
}
[[noreturn]] void failWithReason(const std::string& path) {
  const int error = errno;
  fail(path, error ? std::generic_category().message(error) : "write error");
}

class Descriptor {
 public:
  /// A pipe of that name is not waited for.
  Descriptor(const std::string& path, int flags)
      : m_value(open(path.c_str(), flags | O_CLOEXEC | O_NONBLOCK)) {}
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  ~Descriptor() {
    if (m_value >= 0) close(m_value);
  }
  operator int() const { return m_value; }
  /// -1 for what is no regular file.
  std::int64_t size() const {
    struct stat status {};
    return m_value >= 0 && fstat(m_value, &status) == 0 && S_ISREG(status.st_mode) ? status.st_size : -1;
  }
  std::string read(std::int64_t at, std::size_t count) const {
    std::string bytes(count, '\0');
    return pread(m_value, bytes.data(), count, at) == static_cast<ssize_t>(count) ? bytes : std::string();
  }

 private:
  int m_value;
};

/// The files below a directory, by their names relative to it, in order.
std::vector<std::string> namesBelow(const std::string& directory) {
  std::vector<std::string> names;
  std::error_code error;
  for (fs::recursive_directory_iterator entry(directory, error), end; !error && entry != end;
       entry.increment(error))
    if (entry->is_regular_file(error))
      names.push_back(entry->path().lexically_relative(directory).generic_string());
  if (error) fail(directory, error.message());
  std::sort(names.begin(), names.end());
  return names;
}

/// An archive on its way to the disk.
class Writer {
 public:
  explicit Writer(const std::string& path) : m_path(path) {
    errno = 0;
    m_zip = zipOpen64(path.c_str(), APPEND_STATUS_CREATE);
    if (!m_zip) failWithReason(path);
  }
  Writer(const Writer&) = delete;
  Writer& operator=(const Writer&) = delete;
  ~Writer() {
    if (m_zip) zipClose(m_zip, nullptr);
  }

  void add(const std::string& name, const std::string& file) {
    const Descriptor in(file, O_RDONLY);
    if (in.size() < 0) failWithReason(file);
    zip_fileinfo info{};
    info.tmz_date = {.tm_sec = 0, .tm_min = 0, .tm_hour = 0, .tm_mday = 1, .tm_mon = 0, .tm_year = 1980};
    check(zipOpenNewFileInZip64(m_zip, name.c_str(), &info, nullptr, 0, nullptr, 0, nullptr, Z_DEFLATED,
                                DefaultLevel, 0));
    for (ssize_t got = 1; got > 0;) {
      got = read(in, m_block.get(), BlockSize);
      if (got < 0) failWithReason(file);
      if (got > 0) check(zipWriteInFileInZip(m_zip, m_block.get(), static_cast<unsigned int>(got)));
    }
    check(zipCloseFileInZip(m_zip));
  }

  void close() { check(zipClose(std::exchange(m_zip, nullptr), nullptr)); }

 private:
  void check(int result) const {
    if (result != ZIP_OK) failWithReason(m_path);
  }

  std::string m_path;
  zipFile m_zip;
  std::unique_ptr<char[]> m_block = std::make_unique<char[]>(BlockSize);
};

void writeAt(const Descriptor& file, const std::string& path, std::string_view bytes, std::int64_t at) {
  while (!bytes.empty()) {
    const ssize_t written = pwrite(file, bytes.data(), bytes.size(), at);
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) failWithReason(path);
    bytes.remove_prefix(static_cast<std::size_t>(written));
    at += written;
  }
}

/// The digest that belongs behind the first `length` bytes of the file.
std::string digestOf(const Descriptor& file, std::int64_t length) {
  const std::string digest = sha256OfFile(file, static_cast<std::uint64_t>(length));
  return digest.empty() ? digest : std::string(DigestPrefix) + digest;
}

}  // namespace

void NDUZip::compressDir(const NDUFile& archive, const std::string& directory, const std::string& prefix,
                         ZIP_OPTIONS) {
  Writer writer(archive.path());
  for (const std::string& name : namesBelow(directory))
    writer.add(prefix.empty() ? name : prefix + "/" + name, (fs::path(directory) / name).string());
  writer.close();
}

void NDUZip::attachDigest(const NDUFile& archive) {
  const Descriptor file(archive.path(), O_RDWR);
  const std::int64_t size = file.size();
  const std::int64_t end = size - static_cast<std::int64_t>(EndRecordLength);
  if (end < 0 || !file.read(end, EndRecordLength).starts_with(EndRecordSignature))
    fail(archive.path(), "not an archive without a comment");
  const char commentLength[2] = {static_cast<char>(DigestLength), 0};
  static_assert(DigestLength < 128);
  writeAt(file, archive.path(), {commentLength, 2}, end + static_cast<std::int64_t>(CommentLengthOffset));
  const std::string digest = digestOf(file, size);
  if (digest.empty()) failWithReason(archive.path());
  writeAt(file, archive.path(), digest, size);
}

int NDUZip::checkIntegrity(const NDUFile& archive) noexcept {
  try {
    const Descriptor file(archive.path(), O_RDONLY);
    const std::int64_t size = file.size();
    const std::int64_t length = size - static_cast<std::int64_t>(DigestLength);
    if (length < 0 || size > static_cast<std::int64_t>(ArchiveLimits::maxArchiveSize)) return 1;
    const std::string digest = digestOf(file, length);
    return !digest.empty() && file.read(length, DigestLength) == digest ? 0 : 1;
  } catch (const std::exception&) {
    return 1;
  }
}

void NDUZip::uncompress(const NDUFile& archive, const std::string& directory, UNZIP_OPTIONS,
                        const std::string*) {
  ArchiveReader(archive.path()).unpack(directory);
}
