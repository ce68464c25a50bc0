#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

/// The wrapped stream: a header that says what the file is, how long its payload is and what its checksum is,
/// and the payload as it came. Numbers are little-endian.
namespace tqm::iostreams::xp {

inline constexpr char magic[8] = {'\x89', 'K', 'V', 'X', 'S', '\r', '\n', '\x1a'};
inline constexpr std::uint32_t formatVersion = 1;
/// Magic, format version (32 bits), CRC-32 of the payload (32 bits), length of the payload (64 bits).
inline constexpr std::size_t headerSize = sizeof magic + 4 + 4 + 8;
/// Longest payload, in bytes; a full book has some 10 MiB.
inline constexpr std::uint64_t maxPayload = std::uint64_t{64} << 20;

/// The file begins like a wrapped stream. False for a file that cannot be read, or is not finished.
bool is_xp_format(const std::string& path);

}  // namespace tqm::iostreams::xp
