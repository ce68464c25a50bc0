#include "models/catalogue/IoStandards.h"

#include <algorithm>

#include "models/catalogue/CsvTable.h"
#include "models/catalogue/ModelDataStore.h"

namespace kvxm {
namespace {

const std::vector<std::string>& onlyNone() {
  static const std::vector<std::string> names{std::string(noTermination)};
  return names;
}

}  // namespace

const IoBankStandards& ioStandards(IoBank bank) {
  return ModelDataStore::current().ioBanks[static_cast<std::size_t>(bank)];
}

const IoStandard* findIoStandard(IoBank bank, std::string_view name) {
  const auto& known = ioStandards(bank).standards;
  const auto found = std::find_if(known.begin(), known.end(),
                                  [&](const IoStandard& standard) { return standard.name == name; });
  return found == known.end() ? nullptr : &*found;
}

double terminationOhms(std::string_view name) {
  float ohms = 0.0f;
  const std::size_t mark = name.rfind('_');
  return mark != name.npos && parseNumber(name.substr(mark + 1), ohms) ? static_cast<double>(ohms) : 0.0;
}

double offeredOhms(const std::vector<std::string>& offered, std::string_view name) {
  const bool isOffered = std::find(offered.begin(), offered.end(), name) != offered.end();
  return isOffered ? terminationOhms(name) : 0.0;
}

std::vector<std::string> IoQueries::getIoList(bool isDifferential) const {
  std::vector<std::string> names;
  for (const IoStandard& standard : ioStandards(m_bank).standards)
    if (standard.isDifferential == isDifferential) names.push_back(standard.name);
  return names;
}

const std::vector<std::string>& IoQueries::getIbuf(std::string_view standard) const {
  const IoStandard* known = find(standard);
  return known ? known->inputTerminations : onlyNone();
}

const std::vector<std::string>& IoQueries::getObuf(std::string_view standard) const {
  const IoStandard* known = find(standard);
  return known ? known->outputTerminations : onlyNone();
}

}  // namespace kvxm
