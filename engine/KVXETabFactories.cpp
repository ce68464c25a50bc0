// Where the architectures are known by name: the one place of the engine above all of them.

#include "engine/base/selection/KVXEPartSelection.h"
#include "engine/base/workbook/KVXETabFactory.h"
#include "engine/morlan/KVXEMorlanTabFactory.h"
#include "engine/som/KVXESomMorlanTabFactory.h"
#include "engine/tarvek/KVXETarvekTabFactory.h"

std::unique_ptr<KVXETabFactory> KVXETabFactory::createFor(const std::string& archName, KVXEBook* book) {
  if (archName == KVXEPartSelection::m_somVisionArchName)
    return std::make_unique<KVXESomMorlanTabFactory>(book);
  if (archName == KVXEPartSelection::m_morlanArchName) return std::make_unique<KVXEMorlanTabFactory>(book);
  return std::make_unique<KVXETarvekTabFactory>(book);
}
