#pragma once

#include <zlib.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

/// A zip archive put together by hand, so that it can lie in any field.
struct ForgedZip {
  struct Entry {
    std::string name;
    std::string packed = "text";             ///< as it stands in the archive
    std::uint16_t method = 0;                ///< 0 stored, 8 deflated
    std::optional<std::uint32_t> size = {};  ///< unpacked; that of `packed` if not given
    std::optional<std::uint32_t> crc = {};   ///< likewise
    std::uint16_t flags = 0;
    std::uint16_t madeBy = 0;      ///< 0x0300 for Unix
    std::uint32_t attributes = 0;  ///< the file mode in the upper half
  };

  std::vector<Entry> entries = {};
  int moreEntries = 0;               ///< that the end record counts beside those there are
  std::size_t missingDirectory = 0;  ///< bytes that lack at the end of the directory

  std::string bytes() const {
    std::string files, directory;
    for (const Entry& entry : entries) {
      const std::string fields = fieldsOf(entry);
      const auto offset = static_cast<std::uint32_t>(files.size());
      files += "PK\x03\x04" + number<2>(20) + fields + number<2>(0) + entry.name + entry.packed;
      directory += "PK\x01\x02" + number<2>(entry.madeBy) + number<2>(20) + fields + number<2>(0) +
                   number<2>(0) + number<2>(0) + number<2>(0) + number<4>(entry.attributes) +
                   number<4>(offset) + entry.name;
    }
    const std::string count = number<2>(entries.size() + static_cast<std::size_t>(moreEntries));
    const std::string end = "PK\x05\x06" + number<4>(0) + count + count + number<4>(directory.size()) +
                            number<4>(files.size()) + number<2>(0);
    return files + directory.substr(0, directory.size() - missingDirectory) + end;
  }

  /// A deflated run of zeros.
  static std::string deflatedZeros(std::size_t count) {
    constexpr std::size_t step = 1 << 20;
    std::string zeros(step, '\0'), packed(compressBound(count) / 200 + step, '\0');
    z_stream stream{};
    deflateInit2(&stream, 1, Z_DEFLATED, -MAX_WBITS, MAX_MEM_LEVEL, Z_DEFAULT_STRATEGY);
    stream.next_out = reinterpret_cast<Bytef*>(packed.data());
    stream.avail_out = static_cast<uInt>(packed.size());
    for (std::size_t left = count, now = 0; left > 0; left -= now) {
      now = std::min(left, step);
      stream.next_in = reinterpret_cast<Bytef*>(zeros.data());
      stream.avail_in = static_cast<uInt>(now);
      deflate(&stream, left == now ? Z_FINISH : Z_NO_FLUSH);
    }
    packed.resize(stream.total_out);
    deflateEnd(&stream);
    return packed;
  }

 private:
  template <std::size_t Bytes>
  static std::string number(std::uint64_t value) {
    std::string bytes;
    for (std::size_t i = 0; i < Bytes; ++i) bytes += static_cast<char>(value >> (8 * i));
    return bytes;
  }

  /// What the headers before the file and in the directory share.
  static std::string fieldsOf(const Entry& entry) {
    const auto* packed = reinterpret_cast<const Bytef*>(entry.packed.data());
    const std::uint64_t crc = entry.crc ? *entry.crc : crc32_z(0, packed, entry.packed.size());
    return number<2>(entry.flags) + number<2>(entry.method) + number<4>(0x00210000) + number<4>(crc) +
           number<4>(entry.packed.size()) + number<4>(entry.size.value_or(entry.packed.size())) +
           number<2>(entry.name.size());
  }
};
