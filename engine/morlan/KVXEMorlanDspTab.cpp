#include "engine/morlan/KVXEMorlanDspTab.h"

#include "engine/base/workbook/KVXECell.h"
#include "models/morlan/KVXMMorlanDsp.h"

const KVXETitle KVXEMorlanDspTab::m_DspCount("DSP_SLICES", "DSP Slices", "count");

// Tables.

void KVXEMorlanDspTab::init() {
  static const KVXEColumn columns[] = {
      nameColumn(),
      countColumn(m_DspCount, "<html>The number of DSP slices that this module uses.</html>"),
      clockColumn(),
      toggleRateColumn(),
      multColumn(&updateMultMode),
      multPipelineColumn(&updateMultiplierStage),
      preaddColumn(&updateMultiplierStage, true),
      adRegColumn(&updateMultiplierStage),
      powerColumn(&updateDspConfigPowerRow),
      commentsColumn(),
  };
  initTables(columns, &updateUtilizationTable);
}

// Rows.

void KVXEMorlanDspTab::updateMultMode(const KVXEUID& uid) {
  if (kvxe::isInTable(uid, m_DspConfigTable, "multiplier of DSP slices")) applyStage(uid, Stage::Free);
}

void KVXEMorlanDspTab::updateMultiplierStage(const KVXEUID& uid) {
  if (!kvxe::isInTable(uid, m_DspConfigTable, "stages around the multiplier")) return;
  applyStage(uid, isUsed(uid, m_MultUsed) ? Stage::Free : Stage::Unused);
}

void KVXEMorlanDspTab::updateDspConfigPowerRow(const KVXEUID& uid) {
  using F = KVXMMorlanDspParams::FloatEnum;
  if (!kvxe::isInTable(uid, m_DspConfigTable, "power of DSP slices")) return;
  const std::optional<DspRow> use = readDspRow(uid, m_DspCount);
  if (!use) return uid.getCell()->setBlankAndMarkEngineClean();
  KVXMMorlanDspParams params;
  fillSlices(uid, *use, params);
  KVXMMorlanDspModel::getGlobal().calculate(params);
  float watts = params[F::DATA_POWER] + params[F::CLOCK_POWER];
  if (!kvxe::isSignalPowerDisabled()) watts += params[F::SIGNAL_POWER];
  uid.getCell()->setValAndMarkEngineClean(watts);
}
