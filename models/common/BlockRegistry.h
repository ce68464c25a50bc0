#pragma once

#include <memory>
#include <span>
#include <string_view>

#include "models/common/ParamsRecord.h"

namespace kvxm {

/// A block without its types, for code that walks all of them: checks of the slot lists, reference documents.
struct BlockDescription {
  std::string_view name;  ///< "KVXMTarvekClkDist"
  std::span<const Slot> slots;
  std::unique_ptr<Record> (*makeRecord)();
  void (*calculate)(Record& params);  ///< params must come from this block's makeRecord
};

/// Every block of the library, Tarvek first, by name.
std::span<const BlockDescription> allBlocks();

}  // namespace kvxm
