#include "engine/morlan/KVXEMorlanLogicTab.h"

#include "engine/base/tabs/KVXERowReading.h"
#include "models/morlan/KVXMMorlanLogicAbstract.h"

void KVXEMorlanLogicTab::init() {
  initTables(&updateLogicAndSignalPowerRow, &updateLogicAndSignalPowerRow);
}

void KVXEMorlanLogicTab::updateLogicAndSignalPowerRow(const KVXEUID& uid) {
  using F = KVXMMorlanLogicAbstractParams::FloatEnum;
  static const KVXETitle* const results[] = {&m_LogicPower, &m_SignalPower};
  if (!kvxe::isInTable(uid, m_LogicConfigTable, "power of logic cells and signals")) return;
  const std::optional<LogicRow> use = readLogicRow(uid);
  if (!use) return kvxe::blankResults(uid.getRow(), results);
  KVXMMorlanLogicAbstractParams params;
  fillLogic(uid, *use, params);
  params[F::ROUTING_COMPLEXITY] = use->routingComplexity;
  KVXMMorlanLogicAbstractModel::getGlobal().calculate(params);
  kvxe::writeResult(uid.getRow(), m_LogicPower, params[F::LOGIC_POWER]);
  const bool hasSignals = !kvxe::isSignalPowerDisabled();
  kvxe::writeResult(uid.getRow(), m_SignalPower,
                    hasSignals ? std::optional(params[F::SIGNAL_POWER]) : std::nullopt);
}
