#pragma once

#include <array>
#include <optional>

#include "platform/tqm_iostreams/xp.h"

namespace tqm::iostreams::xp {

struct header {
  std::uint32_t version = formatVersion;
  std::uint32_t checksum = 0;  ///< CRC-32 of the payload
  std::uint64_t length = 0;    ///< of the payload, in bytes
};

using header_bytes = std::array<unsigned char, headerSize>;

header_bytes encode(const header& header);
/// Nothing without the magic number.
std::optional<header> decode(const header_bytes& bytes);

}  // namespace tqm::iostreams::xp
