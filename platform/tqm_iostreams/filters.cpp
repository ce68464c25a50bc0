#include "platform/tqm_iostreams/filters.h"

#include <fcntl.h>
#include <unistd.h>
#include <zlib.h>

#include <boost/iostreams/concepts.hpp>
#include <cerrno>
#include <system_error>
#include <vector>

#include "platform/tqm_iostreams/header.h"
#include "platform/wyr_common/NException.h"

namespace tqm::iostreams {

namespace {

constexpr std::streamsize BufferSize = 1 << 16;

std::string reason(int error) {
  return std::generic_category().message(error);
}

[[noreturn]] void fail(const std::string& path, const std::string& what) {
  throw NException(path + ": " + what);
}

/// A file descriptor that closes itself.
class File {
 public:
  File(const std::string& path, int flags) : m_descriptor(::open(path.c_str(), flags | O_CLOEXEC, 0666)) {
    if (m_descriptor < 0) fail(path, reason(errno));
  }
  File(const File&) = delete;
  File& operator=(const File&) = delete;
  ~File() { close(); }

  /// True when the system has taken everything.
  bool close() {
    const int descriptor = std::exchange(m_descriptor, -1);
    return descriptor < 0 || ::close(descriptor) == 0;
  }
  bool write(const void* bytes, std::size_t count) const {
    for (const char* at = static_cast<const char*>(bytes); count > 0;) {
      const ssize_t written = ::write(m_descriptor, at, count);
      if (written < 0 && errno == EINTR) continue;
      if (written <= 0) return false;
      at += written;
      count -= static_cast<std::size_t>(written);
    }
    return true;
  }
  /// How many bytes there were; -1 for an error.
  ssize_t read(void* bytes, std::size_t count) const {
    std::size_t done = 0;
    while (done < count) {
      const ssize_t got = ::read(m_descriptor, static_cast<char*>(bytes) + done, count - done);
      if (got < 0 && errno == EINTR) continue;
      if (got < 0) return -1;
      if (got == 0) break;
      done += static_cast<std::size_t>(got);
    }
    return static_cast<ssize_t>(done);
  }
  bool rewind() const { return ::lseek(m_descriptor, 0, SEEK_SET) == 0; }

 private:
  int m_descriptor;
};

/// Writes the payload behind a header that is blank until all of it is there.
class Sealer {
 public:
  explicit Sealer(std::shared_ptr<seal_state> state)
      : m_file(state->path, O_WRONLY | O_CREAT | O_TRUNC), m_state(std::move(state)) {
    const xp::header_bytes blank{};
    note(m_file.write(blank.data(), blank.size()));
  }

  void write(const char* bytes, std::streamsize count) {
    if (!m_state->error.empty()) return;
    const auto size = static_cast<std::size_t>(count);
    m_header.checksum = static_cast<std::uint32_t>(
        crc32_z(m_header.checksum, reinterpret_cast<const unsigned char*>(bytes), size));
    m_header.length += size;
    if (m_header.length > xp::maxPayload) {
      m_state->error = m_state->path + ": more than " + std::to_string(xp::maxPayload) + " bytes";
      return;
    }
    note(m_file.write(bytes, size));
  }

  void close() {
    if (m_state->is_whole && m_state->error.empty()) {
      const xp::header_bytes header = xp::encode(m_header);
      note(m_file.rewind() && m_file.write(header.data(), header.size()));
    }
    note(m_file.close());
  }

 private:
  void note(bool isWell) {
    if (!isWell && m_state->error.empty()) m_state->error = m_state->path + ": " + reason(errno);
  }

  File m_file;
  std::shared_ptr<seal_state> m_state;
  xp::header m_header;
};

/// Sealer as the library copies it.
struct SealingSink : boost::iostreams::device<output> {
  std::shared_ptr<Sealer> sealer;

  explicit SealingSink(std::shared_ptr<Sealer> s) : sealer(std::move(s)) {}
  std::streamsize write(const char* bytes, std::streamsize count) {
    sealer->write(bytes, count);
    return count;
  }
  void close() {
    if (sealer) sealer->close();
    sealer.reset();
  }
};

/// A verified payload as the library copies it.
struct PayloadSource : boost::iostreams::device<input> {
  std::shared_ptr<const std::vector<char>> payload;
  std::size_t at = 0;

  explicit PayloadSource(std::shared_ptr<const std::vector<char>> p) : payload(std::move(p)) {}
  std::streamsize read(char* bytes, std::streamsize count) {
    const std::size_t size = std::min(static_cast<std::size_t>(count), payload->size() - at);
    if (size == 0) return -1;
    std::copy_n(payload->data() + at, size, bytes);
    at += size;
    return static_cast<std::streamsize>(size);
  }
};

xp::header readHeader(const File& file, const std::string& path) {
  xp::header_bytes bytes;
  const ssize_t got = file.read(bytes.data(), bytes.size());
  if (got < 0) fail(path, reason(errno));
  const auto header = static_cast<std::size_t>(got) == bytes.size() ? xp::decode(bytes) : std::nullopt;
  if (!header) fail(path, "not a wrapped stream");
  if (header->version != xp::formatVersion)
    fail(path, "version " + std::to_string(header->version) +
                   " of the stream format is not known; a newer release may read it");
  if (header->length > xp::maxPayload)
    fail(path, "a stream of " + std::to_string(header->length) + " bytes is too long");
  return *header;
}

std::vector<char> readPayload(const std::string& path) {
  const File file(path, O_RDONLY);
  const xp::header header = readHeader(file, path);
  std::vector<char> payload;
  // What the header says is not trusted with memory before the file has shown as much.
  while (payload.size() < header.length) {
    const std::size_t before = payload.size();
    const std::size_t step = std::min<std::size_t>(header.length - before, std::size_t{1} << 22);
    payload.resize(before + step);
    const ssize_t got = file.read(payload.data() + before, step);
    if (got < 0) fail(path, reason(errno));
    if (static_cast<std::size_t>(got) != step) fail(path, "the stream is cut short");
  }
  if (char further; file.read(&further, 1) != 0) fail(path, "something stands behind the stream");
  const auto checksum = crc32_z(0, reinterpret_cast<const unsigned char*>(payload.data()), payload.size());
  if (checksum != header.checksum) fail(path, "the checksum does not match: the file is damaged");
  return payload;
}

}  // namespace

void xp_latest::operator()(filtering_stream<output>& stream, const std::string& path) const {
  auto state = std::make_shared<seal_state>();
  state->path = path;
  stream.push(SealingSink(std::make_shared<Sealer>(state)), BufferSize);
  stream.watch(std::move(state));
}

void xp_version18::operator()(filtering_stream<input>& stream, const std::string& path) const {
  stream.push(PayloadSource(std::make_shared<const std::vector<char>>(readPayload(path))), BufferSize);
}

template <class Mode>
void filtering_stream<Mode>::close() {
  if (m_state && this->fail() && m_state->error.empty())
    m_state->error = m_state->path + ": not all of it was written";
  if (m_state) m_state->is_whole = true;
  this->reset();
  if (m_state && !m_state->error.empty()) throw NException(m_state->error);
}

template class filtering_stream<input>;
template class filtering_stream<output>;

}  // namespace tqm::iostreams
