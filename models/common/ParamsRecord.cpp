#include "models/common/ParamsRecord.h"

#include <stdexcept>

#include "models/common/KVXMHelperUtils.h"

namespace kvxm {

namespace {

std::string lackOf(std::string_view block, SlotGroup group) {
  constexpr const char* kinds[] = {"int", "float", "string"};
  return std::string(block) + "Params has no " + kinds[static_cast<std::size_t>(group)] + " slot ";
}

}  // namespace

void throwUnknownKey(std::string_view block, SlotGroup group, int key) {
  throw std::out_of_range(lackOf(block, group) + "with key " + KVXMHelperUtils::ToString(key));
}

void throwUnknownName(std::string_view block, SlotGroup group, std::string_view name) {
  throw std::out_of_range(lackOf(block, group) + "named \"" + std::string(name) + "\"");
}

}  // namespace kvxm
