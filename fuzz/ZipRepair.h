#pragma once

#include <string>

namespace kvxe::fuzz {

/// The archive with its headers brought in line with what stands where: places, lengths and counts, and the
/// names and fields that an entry has twice. A mutation then shows as what it changed, not as a damaged
/// archive. Bytes without the parts of an archive come back as they are.
/// `withContents` does so for unpacked sizes and checksums too.
std::string repairZip(const std::string& bytes, bool withContents);

}  // namespace kvxe::fuzz
