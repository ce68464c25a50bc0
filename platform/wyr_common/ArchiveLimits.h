#pragma once

#include <cstddef>
#include <cstdint>

/// What an archive may ask of who unpacks it: far more than a project has, and little enough for any machine.
namespace ArchiveLimits {

inline constexpr std::uint64_t maxEntries = 1000;
inline constexpr std::uint64_t maxEntrySize = std::uint64_t{64} << 20;   ///< unpacked, in bytes
inline constexpr std::uint64_t maxTotalSize = std::uint64_t{128} << 20;  ///< of all entries, unpacked
inline constexpr std::uint64_t maxArchiveSize = std::uint64_t{64} << 20;
inline constexpr std::size_t maxNameLength = 255;  ///< in bytes

}  // namespace ArchiveLimits
