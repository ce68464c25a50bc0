#include "models/tarvek/KVXMTarvekDspConfigData.h"

namespace {

// A floating point operand is its mantissa of 24 bits. A complex product takes four real ones and two slices.
// A dot product adds up three products. An adder behind the multiplier works alone as well, so there the user
// says whether the multiplier is used; "Dynamic" configurations change that while they run.
// clang-format off
constexpr kvxm::DspConfiguration configurations[] = {
    // key, display, mode, width A, width B, products, slices, adder, output, derived, pre-adder, AD register
    {"12x12", "12x12", "INT24", 12, 12, 1, 1, 0, 24, true, false, true},
    {"18x18", "18x18", "INT24", 18, 18, 1, 1, 0, 36, true, false, true},
    {"18x18_58", "18x18 + 58", "INT24", 18, 18, 1, 1, 58, 40, false, false, true},
    {"18x18_58_DYNAMIC", "18x18 + 58 Dynamic", "INT24", 18, 18, 1, 1, 58, 48, false, false, true},
    {"18x18_58_PREADD", "18x18 + 58 Pre-add", "INT24", 18, 18, 1, 1, 58, 40, true, true, true},
    {"18x18_PREADD", "18x18 Pre-add", "INT24", 18, 18, 1, 1, 0, 36, true, true, true},
    {"27x24", "27x24", "INT24", 27, 24, 1, 1, 0, 51, true, false, true},
    {"27x24_58", "27x24 + 58", "INT24", 27, 24, 1, 1, 58, 54, false, false, true},
    {"27x24_58_DYNAMIC", "27x24 + 58 Dynamic", "INT24", 27, 24, 1, 1, 58, 58, false, false, true},
    {"27x24_58_PREADD", "27x24 + 58 Pre-add", "INT24", 27, 24, 1, 1, 58, 54, true, true, true},
    {"27x24_PREADD", "27x24 Pre-add", "INT24", 27, 24, 1, 1, 0, 51, true, true, true},
    {"58_ADD", "58 Add", "INT24", 0, 0, 0, 1, 58, 58, true, false, false},
    {"CPLX_18x18", "18x18 Complex", "CPLX", 18, 18, 4, 2, 37, 37, true, false, false},
    {"CPLX_18x18_58", "18x18 Complex + 58", "CPLX", 18, 18, 4, 2, 58, 42, true, false, false},
    {"FP32_ADD", "FP32 Add", "FP32", 0, 0, 0, 1, 32, 32, true, false, false},
    {"FP32_MULTIPLY", "FP32 Multiply", "FP32", 24, 24, 1, 1, 0, 32, true, false, false},
    {"FP32_MULTIPLY_ADD", "FP32 Multiply + Add", "FP32", 24, 24, 1, 1, 32, 32, true, false, false},
    {"INT8_DOT", "INT8 Dot Product", "INT8", 9, 8, 3, 1, 19, 19, true, false, false},
    {"INT8_DOT_58", "INT8 Dot Product + 58", "INT8", 9, 8, 3, 1, 58, 32, true, false, false},
    {"48_25x18", "25x18 + 48 Legacy", "LEGACY", 25, 18, 1, 1, 48, 48, false, false, true},
    {"48_27x18", "27x18 + 48 Legacy", "LEGACY", 27, 18, 1, 1, 48, 48, false, false, true},
    {"48_27x18_PREADD", "27x18 + 48 Legacy Pre-add", "LEGACY", 27, 18, 1, 1, 48, 48, true, true, true},
    {"48_ADD", "48 Add Legacy", "LEGACY", 0, 0, 0, 1, 48, 48, true, false, false},
};
// clang-format on

}  // namespace

const KVXMTarvekDspConfigData& KVXMTarvekDspConfigData::getGlobal() {
  static const KVXMTarvekDspConfigData data;
  return data;
}

std::map<std::string, std::string> KVXMTarvekDspConfigData::getDspConfigMap() const {
  std::map<std::string, std::string> texts;
  for (const kvxm::DspConfiguration& entry : configurations) texts.emplace(entry.key, entry.display);
  return texts;
}

const kvxm::DspConfiguration* KVXMTarvekDspConfigData::getDspConfigData(std::string_view keyOrText) const {
  for (const kvxm::DspConfiguration& entry : configurations)
    if (keyOrText == entry.key || keyOrText == entry.display) return &entry;
  return nullptr;
}
