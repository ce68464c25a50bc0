#include "engine/base/project/BackwardCompatibility.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <utility>

#include "engine/base/config/ClockConfig.h"
#include "engine/base/config/ClockTag.h"
#include "engine/base/project/ConfigTables.h"
#include "engine/base/project/KVXEPrjMgr.h"
#include "engine/base/project/TitleCase.h"

namespace kvxe::BackwardCompatibility {

namespace {

/// The last release that wrote what is patched here.
constexpr std::string_view PatchedRelease = "2023.2";

struct Renaming {
  std::string_view before;
  std::string_view now;
};

constexpr Renaming architectures[] = {
    {"Hexaline Plus", "Hexaline+"},
};
constexpr Renaming families[] = {
    {"Belrinplus", "Belrin Hexaline+"},
    {"Corvaneplus", "Corvane Hexaline+"},
    {"Delmorplus", "Delmor Hexaline+"},
    {"Sorvikplus", "Sorvik Hexaline+ MPSoC"},
};
constexpr Renaming linkSpeeds[] = {
    {"GEN1", "GEN 1 (2.5 GT/s)"}, {"GEN2", "GEN 2 (5 GT/s)"},  {"GEN3", "GEN 3 (8 GT/s)"},
    {"GEN4", "GEN 4 (16 GT/s)"},  {"GEN5", "GEN 5 (32 GT/s)"},
};

template <size_t N>
void rename(std::string& text, const Renaming (&renamings)[N]) {
  const auto found = std::ranges::find(renamings, text, &Renaming::before);
  if (found != std::end(renamings)) text = found->now;
}

constexpr bool isDigit(char c) {
  return c >= '0' && c <= '9';
}

bool speaksOfClock(std::string_view tag) {
  constexpr std::string_view word = "clock";
  const auto sameLetter = [](char a, char b) {
    return (a >= 'A' && a <= 'Z' ? static_cast<char>(a - 'A' + 'a') : a) == b;
  };
  return std::search(tag.begin(), tag.end(), word.begin(), word.end(), sameLetter) != tag.end();
}

}  // namespace

void patchDeviceSelectionMap(std::unordered_map<std::string, std::string>& selection) {
  const std::string version = KVXEPrjMgr::getGlobal().getBuildInfo();
  if (!version.empty() && version != PatchedRelease) return;

  if (const auto architecture = selection.find("Architecture"); architecture != selection.end())
    rename(architecture->second, architectures);
  if (const auto family = selection.find("Family"); family != selection.end())
    rename(family->second, families);
  if (const auto device = selection.find("Device"); device != selection.end() && device->second.size() > 2)
    selection.insert_or_assign("Device Grade", device->second.substr(0, 2));
}

void patchCellValue(const std::string& tag, std::string& value, const KVXETable* table) {
  if (speaksOfClock(tag)) correctClockTag(value);
  if (!table) return;
  if (tag == "Mode" && isPcieConfigTable(*table)) correctSpeedLink(value);
  if (tag == "LinkSpeed" && isHicConfigTable(*table)) correctHicSpeed(value);
}

void correctClockTag(std::string& value) {
  const std::optional<ClockTag> clock = ClockTag::parse(value);
  if (!clock) return;
  std::string tag = ClockConfig::constructClockTag(std::string(clock->name), clock->megahertz);
  if (!tag.empty()) value = std::move(tag);
}

void correctSpeedLink(std::string& value) {
  constexpr std::string_view generation = "GEN";
  if (value.starts_with(generation) && value.size() > generation.size() && isDigit(value[generation.size()]))
    value = toTitleCase(std::move(value));
}

void correctHicSpeed(std::string& value) {
  rename(value, linkSpeeds);
}

}  // namespace kvxe::BackwardCompatibility
