#pragma once

#include <nlohmann/json.hpp>

namespace kvx {

/// JSON with members in the order of their making. Numbers are the workbook's floats: as doubles they would
/// be written with digits that mean nothing.
using Json = nlohmann::basic_json<nlohmann::ordered_map, std::vector, std::string, bool, std::int64_t,
                                  std::uint64_t, float>;

/// The document as text. Bytes that are no UTF-8 are replaced.
inline std::string toText(const Json& document) {
  return document.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
}

}  // namespace kvx
