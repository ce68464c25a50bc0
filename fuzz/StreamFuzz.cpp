// Wrapped streams: what was written reads back; what was not is refused with a reason.
// The first byte of an input says which parts of the header are made right for the rest.

#include <zlib.h>

#include <cstdint>
#include <cstring>

#include "fuzz/ScratchPlace.h"
#include "platform/tqm_iostreams/filters.h"
#include "platform/tqm_iostreams/header.h"
#include "platform/tqm_iostreams/xp.h"
#include "platform/wyr_common/NException.h"

namespace {

using namespace kvxe::fuzz;
namespace xp = tqm::iostreams::xp;

enum Repair : std::uint8_t { Magic = 1, FormatVersion = 2, Checksum = 4, Length = 8 };

std::string repaired(std::string stream, std::uint8_t repairs) {
  if (stream.size() < xp::headerSize) return stream;
  const std::string payload = stream.substr(xp::headerSize);
  xp::header_bytes right =
      xp::encode({.version = xp::formatVersion,
                  .checksum = static_cast<std::uint32_t>(
                      crc32_z(0, reinterpret_cast<const unsigned char*>(payload.data()), payload.size())),
                  .length = payload.size()});
  const auto repair = [&](Repair what, std::size_t begin, std::size_t count) {
    if (repairs & what) std::memcpy(stream.data() + begin, right.data() + begin, count);
  };
  repair(Magic, 0, 8);
  repair(FormatVersion, 8, 4);
  repair(Checksum, 12, 4);
  repair(Length, 16, 8);
  return stream;
}

/// What the stream holds; nothing for a refused one.
std::optional<std::string> read(const char* path) {
  try {
    tqm::iostreams::filtering_stream<tqm::iostreams::input> in;
    tqm::iostreams::xp_version18{std::ios::binary}(in, path);
    return std::string(std::istreambuf_iterator<char>(in), {});
  } catch (const NException& refusal) {
    if (std::string(refusal.what()).find(path) == std::string::npos)
      stop("A refusal does not name the file.", refusal.what());
    return std::nullopt;
  }
}

void write(const char* path, const std::string& payload) {
  tqm::iostreams::filtering_stream<tqm::iostreams::output> out;
  tqm::iostreams::xp_latest{std::ios::binary}(out, path);
  out.write(payload.data(), static_cast<std::streamsize>(payload.size()));
  out.close();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  static const ScratchPlace place;
  if (size == 0) return -1;
  const std::string stream =
      repaired(std::string(reinterpret_cast<const char*>(bytes + 1), size - 1), *bytes);
  writeFile("a.xml", stream);
  const bool isFormat = xp::is_xp_format("a.xml");
  const std::optional<std::string> payload = read("a.xml");
  if (payload && !isFormat) stop("A stream was read that is none.", "");
  if (payload && *payload != stream.substr(xp::headerSize)) stop("The payload came out changed.", "");
  if (!payload) return 0;
  write("b.xml", *payload);
  if (readFile("b.xml") != stream) stop("The same payload gives another stream.", "");
  return 0;
}
