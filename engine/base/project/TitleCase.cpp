#include "engine/base/project/TitleCase.h"

namespace kvxe {

std::string toTitleCase(std::string text) {
  bool inWord = false;
  for (char& c : text) {
    const bool isCapital = c >= 'A' && c <= 'Z';
    const bool isSmall = c >= 'a' && c <= 'z';
    if (inWord && isCapital) c = static_cast<char>(c - 'A' + 'a');
    if (!inWord && isSmall) c = static_cast<char>(c - 'a' + 'A');
    inWord = isCapital || isSmall || (c >= '0' && c <= '9');
  }
  return text;
}

}  // namespace kvxe
