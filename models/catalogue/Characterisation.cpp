#include "models/catalogue/Characterisation.h"

#include "models/catalogue/ModelDataStore.h"

namespace kvxm {

const std::array<CoefficientInfo, coefficientCount + 1>& coefficientInfos() {
  static constexpr std::array<CoefficientInfo, coefficientCount + 1> infos{{
#define KVXM_COEFFICIENT(name, key, unit, bandMin, bandMax, meaning) \
  {key, unit, static_cast<float>(bandMin), static_cast<float>(bandMax), meaning},
#include "models/catalogue/coefficients.def"
#undef KVXM_COEFFICIENT
      {}}};
  return infos;
}

void CharacterisationIndex::add(const Characterisation& set, const std::vector<std::string>& names) {
  const auto index = static_cast<unsigned>(m_sets.size());
  m_sets.push_back(set);
  for (const std::string& name : names) m_byName[name] = index;
}

const Characterisation& CharacterisationIndex::find(std::string_view architecture,
                                                    std::string_view deviceOrPart) const {
  const auto found = m_byName.find(deviceOrPart);
  if (found != m_byName.end()) return m_sets[found->second];
  return defaults[static_cast<std::size_t>(architectureFromText(architecture))];
}

const Characterisation& characterisation(std::string_view architecture, std::string_view deviceOrPart) {
  return ModelDataStore::current().characterisations.find(architecture, deviceOrPart);
}

}  // namespace kvxm
