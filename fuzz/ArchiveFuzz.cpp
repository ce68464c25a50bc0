// Archives that somebody made to do harm, past their digest: each input gets one that holds. Whatever is
// unpacked must lie in its directory and within the limits, or be refused with a reason.

#include <cstdint>

#include "fuzz/ScratchPlace.h"
#include "platform/wyr_common/ArchiveLimits.h"
#include "platform/wyr_common/NDUZip.h"
#include "platform/wyr_common/NException.h"
#include "platform/wyr_common/Sha256.h"

#include <fcntl.h>
#include <unistd.h>

namespace {

using namespace kvxe::fuzz;
namespace fs = std::filesystem;

constexpr std::string_view DigestPrefix = "KVX SHA-256 ";
constexpr std::size_t DigestLength = 76;

std::string digestOf(const fs::path& file, std::size_t size) {
  const int descriptor = open(file.c_str(), O_RDONLY | O_CLOEXEC);
  const std::string digest = sha256OfFile(descriptor, size);
  close(descriptor);
  return std::string(DigestPrefix) + digest;
}

/// The input as a project file, with a digest that holds in place of any other.
void writeSealed(const fs::path& file, std::string bytes) {
  if (bytes.size() >= DigestLength &&
      bytes.compare(bytes.size() - DigestLength, DigestPrefix.size(), DigestPrefix) == 0)
    bytes.resize(bytes.size() - DigestLength);
  writeFile(file, bytes);
  writeFile(file, bytes + digestOf(file, bytes.size()));
}

void checkUnpacked(const ScratchPlace& place) {
  std::uint64_t total = 0;
  std::size_t files = 0;
  for (const auto& entry : fs::recursive_directory_iterator(place.path() / "out")) {
    if (entry.is_symlink() || (!entry.is_directory() && !entry.is_regular_file()))
      stop("Something else than a file was unpacked.", entry.path());
    if (!entry.is_regular_file()) continue;
    total += entry.file_size();
    ++files;
  }
  if (total > ArchiveLimits::maxTotalSize || files > ArchiveLimits::maxEntries)
    stop("More was unpacked than the limits allow.", std::to_string(total));
  std::size_t beside = 0;
  for ([[maybe_unused]] const auto& entry : fs::directory_iterator(place.path())) ++beside;
  if (beside != 2) stop("Something was unpacked beside the directory.", std::to_string(beside));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  static const ScratchPlace place;
  writeSealed("a.kvx", std::string(reinterpret_cast<const char*>(bytes), size));
  fs::create_directory("out");
  const NDUFile archive("a.kvx");
  if (NDUZip::checkIntegrity(archive) != 0) stop("A digest that holds is refused.", "");
  try {
    NDUZip::uncompress(archive, "out", NDUZip::UNZIP_OPTIONS(1), nullptr);
  } catch (const NException& refusal) {
    if (std::string(refusal.what()).empty()) stop("A refusal without a reason.", "");
  }
  checkUnpacked(place);
  place.clear();
  return 0;
}
