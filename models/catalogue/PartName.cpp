#include "models/catalogue/PartName.h"

#include <algorithm>
#include <cstddef>

namespace kvxm {
namespace {

bool isCapital(char c) {
  return c >= 'A' && c <= 'Z';
}
bool isDigit(char c) {
  return c >= '0' && c <= '9';
}

std::size_t leadingCapitals(std::string_view text) {
  return static_cast<std::size_t>(std::find_if_not(text.begin(), text.end(), isCapital) - text.begin());
}

bool allDigits(std::string_view text) {
  return std::all_of(text.begin(), text.end(), isDigit);
}

}  // namespace

const std::vector<std::string_view>& speedCodes(Architecture architecture) {
  static const std::vector<std::string_view> tarvek{"1", "2", "3"};
  static const std::vector<std::string_view> morlan = [] {
    static constexpr std::string_view codes[] = {"1",  "1L", "1LV",  "1M", "1Q", "1LVI", "2",  "2L", "2LV",
                                                 "2M", "2Q", "2LVI", "3",  "3L", "3LV",  "3M", "3Q", "3LVI"};
    return std::vector<std::string_view>(std::begin(codes), std::end(codes));
  }();
  return architecture == Architecture::Tarvek ? tarvek : morlan;
}

const std::vector<std::string_view>& voltageCodes() {
  static const std::vector<std::string_view> codes{"LP", "LHP", "LLI", "MP", "MHP", "MM", "HP"};
  return codes;
}

const std::vector<std::string_view>& temperatureCodes(Architecture architecture) {
  static const std::vector<std::string_view> tarvek{"E", "I", "B", "M"};
  static const std::vector<std::string_view> morlan{"E", "I", "Q", "M"};
  return architecture == Architecture::Tarvek ? tarvek : morlan;
}

const std::vector<std::string_view>& screenCodes() {
  static const std::vector<std::string_view> codes{"S", "L"};
  return codes;
}

bool isDeviceName(Architecture architecture, std::string_view name) {
  const std::size_t letters = leadingCapitals(name);
  if (letters == 0 || letters == name.size()) return false;
  if (architecture == Architecture::Tarvek) {
    if (name.ends_with("_SE")) name.remove_suffix(3);
    return name.size() == letters + 4 && allDigits(name.substr(letters));
  }
  return std::all_of(name.begin(), name.end(), [](char c) { return isCapital(c) || isDigit(c); });
}

std::string_view deviceNameForm(Architecture architecture) {
  return architecture == Architecture::Tarvek ? "expected capital letters and four digits, as AK1080"
                                              : "expected capital letters and digits, as HB240";
}

bool isPackageName(std::string_view name) {
  return leadingCapitals(name) == 4 && (name.size() == 7 || name.size() == 8) && allDigits(name.substr(4));
}

void composeNames(Part& part, Architecture architecture) {
  part.name = part.device + "-" + part.package + "_" + part.speed;
  part.key = part.device + "_" + part.package + "_" + part.speed;
  if (architecture == Architecture::Tarvek) {
    part.name += "-" + part.voltage;
    part.key += part.voltage;
  }
  part.name += "-" + part.temperature;
  part.key += part.temperature;
  if (architecture == Architecture::Tarvek) {
    part.name += "-" + part.screen;
    part.key += part.screen;
  }
}

}  // namespace kvxm
