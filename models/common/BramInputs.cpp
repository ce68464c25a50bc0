#include "models/common/BramInputs.h"

#include <algorithm>
#include <iterator>

namespace kvxm {

namespace {

struct NamedMode {
  std::string_view name;
  BramMode mode;
};
// name; capacity, simple dual port, encodes, decodes
constexpr NamedMode modes[] = {
    {"BMEM18", {18.0}},
    {"BMEM36", {36.0}},
    {"BMEM18SDP", {18.0, true}},
    {"BMEM36SDP", {36.0, true}},
    {"BMEM36SDP_ECC", {36.0, true, true, true}},
    {"BMEM36SDP_ECC_ENCODE_ONLY", {36.0, true, true, false}},
    {"BMEM36SDP_ECC_DECODE_ONLY", {36.0, true, false, true}},
};

}  // namespace

BramMode bramMode(std::string_view mode) {
  const auto* found = std::find_if(std::begin(modes), std::end(modes),
                                   [&](const NamedMode& known) { return known.name == mode; });
  return found == std::end(modes) ? BramMode() : found->mode;
}

MemoryPort bramPort(double megahertz, double enable, double write, double width, std::string_view writeMode) {
  MemoryPort port{.hertz = megahertz * hertzPerMegahertz, .enable = enable, .write = write, .width = width};
  port.readsInWrite = writeMode == "READ_FIRST" ? 1.0 : 0.0;
  port.outputsInWrite = writeMode == "NO_CHANGE" ? 0.0 : 1.0;
  return port;
}

double bramNets(const MemoryUse& use, const MemoryPort& port) {
  const double perNet = port.hertz * use.toggleRate;
  return perNet > 0.0 ? memoryOutputActivity(use, port) / perNet : 0.0;
}

}  // namespace kvxm
