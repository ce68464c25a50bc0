#include "engine/tarvek/KVXETarvekLogicTab.h"

#include "engine/base/tabs/KVXERowReading.h"
#include "models/tarvek/KVXMTarvekCleLogic.h"
#include "models/tarvek/KVXMTarvekSignal.h"

void KVXETarvekLogicTab::init() {
  initTables(&updateLogicPowerRow, &updateSignalPowerRow);
}

void KVXETarvekLogicTab::updateLogicPowerRow(const KVXEUID& uid) {
  if (!kvxe::isInTable(uid, m_LogicConfigTable, "power of logic cells")) return;
  const std::optional<LogicRow> use = readLogicRow(uid);
  if (!use) return uid.getCell()->setBlankAndMarkEngineClean();
  KVXMTarvekCleLogicParams params;
  fillLogic(uid, *use, params);
  KVXMTarvekCleLogicModel::getGlobal().calculate(params);
  uid.getCell()->setValAndMarkEngineClean(params[KVXMTarvekCleLogicParams::FloatEnum::VCCINT_POWER]);
}

void KVXETarvekLogicTab::updateSignalPowerRow(const KVXEUID& uid) {
  using F = KVXMTarvekSignalParams::FloatEnum;
  if (!kvxe::isInTable(uid, m_LogicConfigTable, "power of signals")) return;
  const std::optional<LogicRow> use = readLogicRow(uid);
  if (!use || kvxe::isSignalPowerDisabled()) return uid.getCell()->setBlankAndMarkEngineClean();
  KVXMTarvekSignalParams params;
  fillLogic(uid, *use, params);
  params[F::ROUTING_COMPLEXITY] = use->routingComplexity;
  KVXMTarvekSignalModel::getGlobal().calculate(params);
  uid.getCell()->setValAndMarkEngineClean(params[F::VCCINT_POWER]);
}
