#pragma once

#include <cstdint>

class KVXECell;

namespace kvxe {

/// A fingerprint of all that the front end shows of a cell: value, unit, message, colours, editability, list
/// of its own and bounds. Never 0, which stands for a look that the front end does not have.
std::uint64_t lookOf(KVXECell& cell);

}  // namespace kvxe
