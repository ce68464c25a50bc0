// Archives that somebody made to do harm, past their digest: each input gets one that holds. Whatever is
// unpacked must lie in its directory and within the limits, or be refused with a reason.

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cstdint>

#include "fuzz/ScratchPlace.h"
#include "fuzz/ZipRepair.h"
#include "platform/wyr_common/ArchiveLimits.h"
#include "platform/wyr_common/NDUZip.h"
#include "platform/wyr_common/NException.h"
#include "platform/wyr_common/Sha256.h"

namespace {

using namespace kvxe::fuzz;
namespace fs = std::filesystem;

constexpr std::string_view DigestPrefix = "KVX SHA-256 ";
constexpr std::size_t DigestLength = 76;
/// Deep enough for a few ".." to stay where they are seen.
const fs::path Target = "1/2/3/out";

std::string digestOf(const fs::path& file, std::size_t size) {
  const int descriptor = open(file.c_str(), O_RDONLY | O_CLOEXEC);
  const std::string digest = sha256OfFile(descriptor, size);
  close(descriptor);
  return std::string(DigestPrefix) + digest;
}

bool hasDigest(const std::string& bytes) {
  return bytes.size() >= DigestLength &&
         bytes.compare(bytes.size() - DigestLength, DigestPrefix.size(), DigestPrefix) == 0;
}

/// Has the end record, if there is one, count what will follow it as its comment.
void countComment(std::string& bytes) {
  const std::size_t end = bytes.rfind("PK\x05\x06");
  if (end == std::string::npos || end + 22 > bytes.size()) return;
  const std::size_t length = bytes.size() - (end + 22) + DigestLength;
  bytes[end + 20] = static_cast<char>(length);
  bytes[end + 21] = static_cast<char>(length >> 8);
}

/// The input as a project file, with a digest that holds in place of any other.
void writeSealed(const fs::path& file, std::string bytes) {
  if (hasDigest(bytes)) bytes.resize(bytes.size() - DigestLength);
  countComment(bytes);
  writeFile(file, bytes);
  writeFile(file, bytes + digestOf(file, bytes.size()));
}

void checkUnpacked() {
  std::uint64_t total = 0;
  std::size_t files = 0;
  for (const auto& entry : fs::recursive_directory_iterator(Target)) {
    if (entry.is_symlink() || (!entry.is_directory() && !entry.is_regular_file()))
      stop("Something else than a file was unpacked.", entry.path());
    if (!entry.is_regular_file()) continue;
    total += entry.file_size();
    ++files;
  }
  if (total > ArchiveLimits::maxTotalSize || files > ArchiveLimits::maxEntries)
    stop("More was unpacked than the limits allow.", std::to_string(total));
  const auto countIn = [](const fs::path& directory) {
    return std::distance(fs::directory_iterator(directory), fs::directory_iterator());
  };
  if (countIn(".") != 2) stop("Something was unpacked beside the directory.", "");
  for (fs::path above = Target.parent_path(); !above.empty(); above = above.parent_path())
    if (countIn(above) != 1) stop("Something was unpacked above the directory.", above);
}

}  // namespace

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* bytes, std::size_t size, std::size_t most);

/// Most mutations leave an archive whose headers hold together, since little is found in any other.
extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* bytes, std::size_t size, std::size_t most,
                                               unsigned int seed) {
  size = LLVMFuzzerMutate(bytes, size, most);
  if (seed % 4 == 0) return size;
  const std::string repaired = repairZip(std::string(reinterpret_cast<char*>(bytes), size), seed % 2 == 0);
  if (repaired.size() > most) return size;
  std::copy(repaired.begin(), repaired.end(), bytes);
  return repaired.size();
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  static const ScratchPlace place;
  writeSealed("a.kvx", std::string(reinterpret_cast<const char*>(bytes), size));
  fs::create_directories(Target);
  const NDUFile archive("a.kvx");
  if (NDUZip::checkIntegrity(archive) != 0) stop("A digest that holds is refused.", "");
  try {
    NDUZip::uncompress(archive, Target, NDUZip::UNZIP_OPTIONS(1), nullptr);
  } catch (const NException& refusal) {
    if (std::string(refusal.what()).empty()) stop("A refusal without a reason.", "");
  }
  checkUnpacked();
  place.clear();
  return 0;
}
