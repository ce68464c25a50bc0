#pragma once

#include <string>

#include "engine/base/workbook/KVXEEnums.h"
#include "models/common/KVXMHelperUtils.h"

namespace kvxe {

/// A title as it goes out: what not everybody sees says so in brackets.
inline std::string withVisibility(std::string title, KVXEEnums::Visibility visibility) {
  if (visibility == KVXEEnums::Visibility::EXTERNAL) return title;
  std::string level = KVXEEnums::nameOf(visibility);
  KVXMHelperUtils::convertToCamelString(level);
  return title + " [" + level + "]";
}

}  // namespace kvxe
