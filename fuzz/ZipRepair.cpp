#include "fuzz/ZipRepair.h"

#include <zlib.h>

#include <algorithm>
#include <cstdint>
#include <string_view>
#include <vector>

namespace kvxe::fuzz {
namespace {

// Of the headers (PKWARE APPNOTE 4.3): how they begin, and their lengths before names.
constexpr std::string_view LocalSignature = "PK\x03\x04", CentralSignature = "PK\x01\x02",
                           EndSignature = "PK\x05\x06";
constexpr std::size_t LocalLength = 30, CentralLength = 46, EndLength = 22;
// Where in an entry of the directory its fields stand.
constexpr std::size_t Shared = 6, Method = 10, Checksum = 16, PackedSize = 20, Size = 24, NameLength = 28,
                      ExtraLength = 30, CommentLength = 32, Offset = 42;

/// Inflated for its size and checksum no further than this.
constexpr std::size_t MostInflated = 1 << 20;

void put(std::string& bytes, std::size_t at, std::size_t value, int size) {
  for (int i = 0; i < size; ++i) bytes[at++] = static_cast<char>(value >> (8 * i));
}
std::size_t get16(const std::string& bytes, std::size_t at) {
  return static_cast<unsigned char>(bytes[at]) + 256U * static_cast<unsigned char>(bytes[at + 1]);
}

/// The pieces up to `end` that begin with the signature, none shorter than its header.
std::vector<std::string> piecesOf(const std::string& bytes, std::string_view signature, std::size_t end,
                                  std::size_t length) {
  std::vector<std::string> pieces;
  for (std::size_t at = bytes.find(signature); at < end;) {
    const std::size_t next = std::min(bytes.find(signature, at + 1), end);
    pieces.push_back(bytes.substr(at, next - at));
    if (pieces.back().size() < length) pieces.back().resize(length);
    at = next;
  }
  return pieces;
}

std::string contentOf(const std::string& local) {
  const std::size_t begin = LocalLength + get16(local, 26) + get16(local, 28);
  return begin < local.size() ? local.substr(begin) : std::string();
}

std::string inflated(const std::string& packed) {
  std::string content(MostInflated, '\0');
  z_stream stream{};
  if (inflateInit2(&stream, -MAX_WBITS) != Z_OK) return {};
  stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(packed.data()));
  stream.avail_in = static_cast<uInt>(packed.size());
  stream.next_out = reinterpret_cast<Bytef*>(content.data());
  stream.avail_out = static_cast<uInt>(content.size());
  inflate(&stream, Z_FINISH);
  content.resize(stream.total_out);
  inflateEnd(&stream);
  return content;
}

void repairContents(std::string& central, const std::string& packed) {
  const std::string content = get16(central, Method) == Z_DEFLATED ? inflated(packed) : packed;
  put(central, Size, content.size(), 4);
  put(central, Checksum, crc32_z(0, reinterpret_cast<const Bytef*>(content.data()), content.size()), 4);
}

/// Where the lengths of name, extra field and comment do not add up, all is name.
void repairLengths(std::string& central) {
  const std::size_t length = central.size() - CentralLength;
  const std::size_t name = get16(central, NameLength);
  if (name + get16(central, ExtraLength) + get16(central, CommentLength) == length) return;
  put(central, NameLength, length, 2);
  put(central, ExtraLength, 0, 2);
  put(central, CommentLength, 0, 2);
}

}  // namespace

std::string repairZip(const std::string& bytes, bool withContents) {
  const std::size_t end = bytes.rfind(EndSignature);
  const std::size_t directory = bytes.find(CentralSignature);
  if (end == std::string::npos || directory >= end) return bytes;
  std::vector<std::string> centrals = piecesOf(bytes, CentralSignature, end, CentralLength);
  const std::vector<std::string> locals = piecesOf(bytes, LocalSignature, directory, LocalLength);
  std::string files, entries;
  for (std::size_t i = 0; i < std::min(centrals.size(), locals.size()); ++i) {
    std::string& central = centrals[i];
    const std::string content = contentOf(locals[i]);
    repairLengths(central);
    put(central, PackedSize, content.size(), 4);
    put(central, Offset, files.size(), 4);
    if (withContents) repairContents(central, content);
    files += std::string(LocalSignature) + central.substr(Shared, ExtraLength - Shared) +
             std::string(2, '\0') + central.substr(CentralLength, get16(central, NameLength)) + content;
    entries += central;
  }
  std::string record = bytes.substr(end);
  record.resize(EndLength);
  const std::size_t count = std::min(centrals.size(), locals.size());
  put(record, 4, 0, 4);
  put(record, 8, count, 2);
  put(record, 10, count, 2);
  put(record, 12, entries.size(), 4);
  put(record, 16, files.size(), 4);
  put(record, 20, 0, 2);
  return files + entries + record;
}

}  // namespace kvxe::fuzz
