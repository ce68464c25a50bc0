#include "engine/morlan/KVXEMorlanPowerDesignTab.h"

#include "engine/morlan/KVXEMorlanPartSelection.h"
#include "models/catalogue/DeviceCatalogue.h"
#include "models/morlan/KVXMMorlanStatic.h"
#include "models/morlan/KVXMMorlanStaticData.h"

std::span<const KVXEPowerDesignTab::DeviceRow> KVXEMorlanPowerDesignTab::deviceRows() const {
  using Selection = KVXEMorlanPartSelection;
  static const DeviceRow rows[] = {
      {"Family", Selection::m_familyStr},   {"Device Grade", Selection::m_deviceGradeStr},
      {"Device", Selection::m_devStr},      {"Package", Selection::m_pkgStr},
      {"Speed", Selection::m_spdGradeStr},  {"Temperature", Selection::m_tempGradeStr},
      {"Process", Selection::m_processStr},
  };
  return rows;
}

kvxm::Architecture KVXEMorlanPowerDesignTab::architecture() const {
  return kvxm::Architecture::Morlan;
}

const kvxm::StaticQueries& KVXEMorlanPowerDesignTab::staticData() const {
  return KVXMMorlanStaticData::getGlobal();
}

std::unique_ptr<kvxm::Record> KVXEMorlanPowerDesignTab::makeStaticParams() const {
  return std::make_unique<KVXMMorlanStaticParams>();
}

void KVXEMorlanPowerDesignTab::calculateStatic(kvxm::Record& params) const {
  KVXMMorlanStaticModel::getGlobal().calculate(static_cast<KVXMMorlanStaticParams&>(params));
}

std::string KVXEMorlanPowerDesignTab::supplyGrade(const KVXEUID& uid) const {
  return getSpeedGrade(uid);
}
