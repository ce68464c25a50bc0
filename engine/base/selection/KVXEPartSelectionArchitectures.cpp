// Where the selection classes are known by architecture: above the base class, which knows none of them.

#include <array>

#include "engine/base/selection/KVXEPartSelection.h"
#include "engine/morlan/KVXEMorlanPartSelection.h"
#include "engine/som/KVXESomPartSelection.h"
#include "engine/tarvek/KVXETarvekPartSelection.h"

namespace {

struct ArchitectureClass {
  const std::string* archName;
  std::unique_ptr<KVXEPartSelection> (*create)();
  bool (*hasValidArchPrefix)(const std::string& name);
};

template <class Selection>
std::unique_ptr<KVXEPartSelection> create() {
  return std::make_unique<Selection>();
}

/// In the order in which a device name is tried.
constexpr std::array<ArchitectureClass, 3> architectures{{
    {&KVXEPartSelection::m_arkeonArchName, create<KVXETarvekPartSelection>,
     KVXETarvekPartSelection::hasValidArchPrefix},
    {&KVXEPartSelection::m_somVisionArchName, create<KVXESomPartSelection>,
     KVXESomPartSelection::hasValidArchPrefix},
    {&KVXEPartSelection::m_morlanArchName, create<KVXEMorlanPartSelection>,
     KVXEMorlanPartSelection::hasValidArchPrefix},
}};

}  // namespace

KVXEPartSelection* KVXEPartSelection::resetToArch(const std::string& archName) {
  if (m_partSelection && m_partSelection->getArchName() == archName) return m_partSelection.get();
  m_partSelection.reset();
  for (const ArchitectureClass& architecture : architectures) {
    if (*architecture.archName == archName) m_partSelection = architecture.create();
  }
  return m_partSelection.get();
}

std::string KVXEPartSelection::getArchNameFromDeviceStr(const std::string& name) {
  for (const ArchitectureClass& architecture : architectures) {
    if (architecture.hasValidArchPrefix(name)) return *architecture.archName;
  }
  return {};
}
