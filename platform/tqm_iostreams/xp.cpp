#include "platform/tqm_iostreams/xp.h"

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "platform/tqm_iostreams/header.h"

namespace tqm::iostreams::xp {

namespace {

template <class T>
void put(unsigned char*& at, T value) {
  for (std::size_t i = 0; i < sizeof value; ++i) *at++ = static_cast<unsigned char>(value >> (8 * i));
}

template <class T>
void get(const unsigned char*& at, T& value) {
  value = 0;
  for (std::size_t i = 0; i < sizeof value; ++i) value |= static_cast<T>(T{*at++} << (8 * i));
}

}  // namespace

header_bytes encode(const header& header) {
  header_bytes bytes;
  unsigned char* at = std::copy(std::begin(magic), std::end(magic), bytes.data());
  put(at, header.version);
  put(at, header.checksum);
  put(at, header.length);
  return bytes;
}

std::optional<header> decode(const header_bytes& bytes) {
  if (!std::equal(std::begin(magic), std::end(magic), reinterpret_cast<const char*>(bytes.data())))
    return std::nullopt;
  header decoded;
  const unsigned char* at = bytes.data() + sizeof magic;
  get(at, decoded.version);
  get(at, decoded.checksum);
  get(at, decoded.length);
  return decoded;
}

bool is_xp_format(const std::string& path) {
  std::error_code error;
  if (!std::filesystem::is_regular_file(path, error)) return false;
  std::ifstream file(path, std::ios::binary);
  header_bytes bytes;
  return file.read(reinterpret_cast<char*>(bytes.data()), sizeof bytes) && decode(bytes).has_value();
}

}  // namespace tqm::iostreams::xp
