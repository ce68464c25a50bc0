#include "models/tarvek/KVXMTarvekDdrmcData.h"

namespace {

using kvxm::DramSupport;

constexpr const char* component = "Component";

std::span<const DramSupport> support() {
  static const std::vector<std::string> single{component}, any{component, "UDIMM", "SODIMM", "RDIMM"};
  static const std::vector<std::string> plain{"No"}, encrypted{"No", "Yes"};
  static const std::vector<int> narrow{16, 32}, wide{16, 32, 64};
  // controller, resource, type, rates of components, rates of modules, standards, widths, encryption
  static const std::vector<DramSupport> all{
      {"DDRMC", "HMC", "DDR4", {2667, 2933, 3200}, {2400, 2667, 2933}, any, wide, plain},
      {"DDRMC", "HMC", "LPDDR4", {3733, 3933, 4267}, {}, single, narrow, plain},
      {"DDRMC5", "DDRMC5", "DDR5", {5600, 6000, 6400}, {4800, 5200, 5600}, any, wide, plain},
      {"DDRMC5", "DDRMC5", "LPDDR5", {5600, 6000, 6400}, {}, single, narrow, plain},
      {"DDRMC5C", "DDRMC5C", "DDR5", {5600, 6000, 6400}, {4800, 5200, 5600}, any, wide, encrypted},
      {"DDRMC5C", "DDRMC5C", "LPDDR5X", {7500, 8000, 8533}, {}, single, narrow, encrypted},
  };
  return all;
}

}  // namespace

float kvxm::DramSupport::maximumRate(std::string_view standard, std::string_view speed) const {
  const std::array<float, 3>& rates =
      standard == component || standards.size() == 1 ? componentRates : moduleRates;
  const bool isGrade = !speed.empty() && speed.front() >= '1' && speed.front() <= '3';
  return isGrade ? rates[static_cast<std::size_t>(speed.front() - '1')] : rates.back();
}

const KVXMTarvekDdrmcData& KVXMTarvekDdrmcData::getGlobal() {
  static const KVXMTarvekDdrmcData data;
  return data;
}

std::span<const DramSupport> KVXMTarvekDdrmcData::getDramSupport() const {
  return support();
}

const DramSupport* KVXMTarvekDdrmcData::find(std::string_view controller, std::string_view dramType) const {
  for (const DramSupport& known : support())
    if (known.controller == controller && known.dramType == dramType) return &known;
  return nullptr;
}
