#include "clients/cli/PartChoice.h"

#include "clients/cli/Spelling.h"
#include "engine/base/selection/KVXEPartSelection.h"
#include "engine/base/workbook/KVXEBookMgr.h"
#include "models/catalogue/DeviceCatalogue.h"

namespace kvx {

namespace {

using kvxm::Architecture;
using kvxm::DeviceCatalogue;

const std::string& engineName(Architecture architecture) {
  switch (architecture) {
    case Architecture::Morlan:
      return KVXEPartSelection::m_morlanArchName;
    case Architecture::Som:
      return KVXEPartSelection::m_somVisionArchName;
    default:
      return KVXEPartSelection::m_arkeonArchName;
  }
}

std::vector<std::string> partNames(const kvxm::Device& device) {
  std::vector<std::string> names;
  for (const kvxm::Part& part : device.parts) names.push_back(part.name);
  for (const kvxm::SomModule& module : DeviceCatalogue::getGlobal().modules())
    if (device.architecture == Architecture::Som && module.device == device.name)
      names.push_back(module.talmorDevice);
  return names;
}

/// The names nearest to a part that does not exist: of the device that it begins with, else of all devices.
std::string advisePart(const std::string& written) {
  const std::string plain = plainSpelling(written);
  std::vector<std::string> names;
  for (const kvxm::Device& device : DeviceCatalogue::getGlobal().devices()) {
    const bool isItsDevice = plain.starts_with(plainSpelling(device.name));
    if (isItsDevice) names.clear();
    for (std::string& name : partNames(device)) names.push_back(std::move(name));
    if (isItsDevice) break;
  }
  return adviseName(written, names) + " \"kvx parts\" lists all";
}

std::string readProcess(const Sheet& sheet, Diagnostics& diagnostics) {
  const std::string remedy = "write process = " + inQuotes(KVXEPartSelection::m_typStr) + " or " +
                             inQuotes(KVXEPartSelection::m_maxStr);
  if (!sheet.process) {
    if (!sheet.isDamaged) diagnostics.add(sheet.place, "the sheet names no process", remedy);
    return "";
  }
  const auto& text = std::get<std::string>(sheet.process->value);
  for (const std::string& process : {KVXEPartSelection::m_typStr, KVXEPartSelection::m_maxStr})
    if (isSameSpelling(text, process)) return process;
  if (!text.empty() || !sheet.isDamaged)
    diagnostics.add(sheet.process->place, inQuotes(text) + " is no process", remedy);
  return "";
}

}  // namespace

ChosenPart choosePart(const Sheet& sheet, Diagnostics& diagnostics) {
  ChosenPart chosen;
  const std::string process = readProcess(sheet, diagnostics);
  if (!sheet.part) {
    if (!sheet.isDamaged)
      diagnostics.add(sheet.place, "the sheet names no part",
                      "write part = \"...\"; \"kvx parts\" lists all");
    return chosen;
  }
  const auto& part = std::get<std::string>(sheet.part->value);
  if (part.empty() && sheet.isDamaged) return chosen;
  const kvxm::Device* device = DeviceCatalogue::getGlobal().findDevice(part);
  const std::string fallback = process.empty() ? KVXEPartSelection::m_typStr : process;
  KVXEPartSelection* selection =
      device ? KVXEPartSelection::resetToArch(engineName(device->architecture)) : nullptr;
  if (!selection || !selection->selectPart(part, fallback)) {
    diagnostics.add(sheet.part->place, "there is no part " + inQuotes(part), advisePart(part));
    return chosen;
  }
  selection->redrawTabs(true);
  chosen.book = KVXEBookMgr::getGlobal().getCurrentBook();
  chosen.device = device;
  chosen.architecture = kvxm::architectureText(device->architecture);
  return chosen;
}

}  // namespace kvx
