#include "engine/tarvek/KVXETarvekDspTab.h"

#include <algorithm>

#include "engine/base/workbook/KVXEHeaderRow.h"
#include "engine/base/workbook/KVXETemplateCell.h"
#include "models/tarvek/KVXMTarvekDspConfig.h"
#include "models/tarvek/KVXMTarvekDspConfigData.h"
#include "models/tarvek/KVXMTarvekDspCplx.h"
#include "models/tarvek/KVXMTarvekDspFp32.h"
#include "models/tarvek/KVXMTarvekDspInt24.h"
#include "models/tarvek/KVXMTarvekDspInt8.h"
#include "models/tarvek/KVXMTarvekDspLegacy.h"
#include "models/tarvek/KVXMTarvekRouting.h"

using ConfigInt = KVXMTarvekDspConfigParams::IntEnum;
using ConfigString = KVXMTarvekDspConfigParams::StringEnum;

const KVXETitle KVXETarvekDspTab::m_Config("CONFIGURATION", "Configuration", "config");
const KVXETitle KVXETarvekDspTab::m_DspCount("DSPQ8_SLICES", "DSPQ8 Slices", "count");
const KVXETitle KVXETarvekDspTab::m_Mode("MODE");

const std::map<std::string, std::string> KVXETarvekDspTab::m_dspConfigMap =
    KVXMTarvekDspConfigData::getGlobal().getDspConfigMap();

// Tables.

void KVXETarvekDspTab::init() {
  static const KVXEColumn columns[] = {
      nameColumn(),
      kvxe::column::choice(m_Config, {}, "27x24 + 58",
                           "<html>What the slices of this module compute: the widths of the operands and "
                           "of the adder behind the multiplier.\nLegacy configurations work as the slices "
                           "of older devices do.</html>"),
      countColumn(m_DspCount,
                  "<html>The number of DSP slices that this module uses.\nA complex product takes two of "
                  "them; count both.</html>"),
      clockColumn(),
      toggleRateColumn(),
      {.title = &m_Mode,
       .type = KVXEEnums::CellType::STRING,
       .formula = &updateDspMode,
       .text = "INT24",
       .toolTip = "<html>The kind of arithmetic, which follows from the configuration.</html>"},
      multColumn(&updateMultMode),
      multPipelineColumn(&updateMultPipelineMode),
      preaddColumn(&updatePreaddMode, false),
      adRegColumn(&updateAdregMode),
      powerColumn(&updateDspConfigPowerRow),
      commentsColumn(),
  };
  initTables(columns, &updateUtilizationTable);
  getTable(&m_DspConfigTable)
      ->getHeaderRow()
      ->getDefaultCell(&m_Config)
      ->setDDValsAndMarkEngineClean(getConfigList());
}

// Configurations.

namespace {

bool isLegacyKey(const std::string& key) {
  return key.starts_with("48");
}

}  // namespace

std::string KVXETarvekDspTab::getConfigStr(const std::string& key) {
  const auto found = m_dspConfigMap.find(key);
  return found == m_dspConfigMap.end() ? std::string() : found->second;
}

std::vector<std::string> KVXETarvekDspTab::getConfigList() {
  std::vector<std::string> list;
  for (const bool isLegacy : {false, true})
    for (const auto& [key, text] : m_dspConfigMap)
      if (isLegacyKey(key) == isLegacy) list.push_back(text);
  return list;
}

bool KVXETarvekDspTab::isDerivedConfigMode(const std::string& config) {
  KVXMTarvekDspConfigParams params;
  params[ConfigString::CONFIGURATION] = config;
  KVXMTarvekDspConfigModel::getGlobal().calculate(params);
  return params[ConfigInt::IS_DERIVED] != 0;
}

void KVXETarvekDspTab::updateDspParams(const KVXEUID& uid, KVXMTarvekDspConfigParams& params) {
  params[ConfigString::CONFIGURATION] = kvxe::readText(uid.getRow(), m_Config);
}

KVXMTarvekDspConfigParams KVXETarvekDspTab::readConfig(const KVXEUID& uid) {
  KVXMTarvekDspConfigParams params;
  updateDspParams(uid, params);
  KVXMTarvekDspConfigModel::getGlobal().calculate(params);
  return params;
}

// Cells that follow from the configuration.

void KVXETarvekDspTab::updateDspMode(const KVXEUID& uid) {
  if (!kvxe::isInTable(uid, m_DspConfigTable, "mode of DSP slices")) return;
  uid.getCell()->setValAndMarkEngineClean(readConfig(uid)[ConfigString::MODE]);
}

void KVXETarvekDspTab::updateMultMode(const KVXEUID& uid) {
  if (!kvxe::isInTable(uid, m_DspConfigTable, "multiplier of DSP slices")) return;
  const KVXMTarvekDspConfigParams config = readConfig(uid);
  if (!isDerivedConfigMode(config[ConfigString::CONFIGURATION])) return applyStage(uid, Stage::Free);
  applyStage(uid, config[ConfigInt::PRODUCTS] > 0 ? Stage::Used : Stage::Unused);
}

void KVXETarvekDspTab::updateMultPipelineMode(const KVXEUID& uid) {
  if (!kvxe::isInTable(uid, m_DspConfigTable, "multiplier register of DSP slices")) return;
  applyStage(uid, isUsed(uid, m_MultUsed) ? Stage::Free : Stage::Unused);
}

void KVXETarvekDspTab::updatePreaddMode(const KVXEUID& uid) {
  if (!kvxe::isInTable(uid, m_DspConfigTable, "pre-adder of DSP slices")) return;
  const bool hasPreadder = readConfig(uid)[ConfigInt::HAS_PREADD] != 0;
  applyStage(uid, hasPreadder && isUsed(uid, m_MultUsed) ? Stage::Used : Stage::Unused);
}

void KVXETarvekDspTab::updateAdregMode(const KVXEUID& uid) {
  if (!kvxe::isInTable(uid, m_DspConfigTable, "pre-adder register of DSP slices")) return;
  const bool hasAdReg = readConfig(uid)[ConfigInt::HAS_ADREG] != 0;
  applyStage(uid, hasAdReg && isUsed(uid, m_MultUsed) ? Stage::Free : Stage::Unused);
}

// Power of a row.

template <class Params>
void KVXETarvekDspTab::fillRow(const KVXEUID& uid, const DspRow& use, Params& params) {
  using I = typename Params::IntEnum;
  const KVXMTarvekDspConfigParams config = readConfig(uid);
  fillSlices(uid, use, params);
  params[I::WIDTH_A] = config[ConfigInt::WIDTH_A];
  params[I::WIDTH_B] = config[ConfigInt::WIDTH_B];
  params[I::PRODUCTS] = config[ConfigInt::PRODUCTS];
  params[I::SLICES_PER_USE] = config[ConfigInt::SLICES_PER_USE];
  params[I::ADDER_WIDTH] = config[ConfigInt::ADDER_WIDTH];
}

void KVXETarvekDspTab::updateDspParams(const KVXEUID& uid, const DspRow& use,
                                       KVXMTarvekDspInt24Params& params) {
  fillRow(uid, use, params);
}
void KVXETarvekDspTab::updateDspParams(const KVXEUID& uid, const DspRow& use,
                                       KVXMTarvekDspCplxParams& params) {
  fillRow(uid, use, params);
}
void KVXETarvekDspTab::updateDspParams(const KVXEUID& uid, const DspRow& use,
                                       KVXMTarvekDspFp32Params& params) {
  fillRow(uid, use, params);
}
void KVXETarvekDspTab::updateDspParams(const KVXEUID& uid, const DspRow& use,
                                       KVXMTarvekDspInt8Params& params) {
  fillRow(uid, use, params);
}
void KVXETarvekDspTab::updateDspParams(const KVXEUID& uid, const DspRow& use,
                                       KVXMTarvekDspLegacyParams& params) {
  fillRow(uid, use, params);
}

template <class Params>
float KVXETarvekDspTab::getClockSignalPower(const Params& params) {
  return params[Params::FloatEnum::CLOCK_POWER];
}

template <class Params, class Model>
KVXETarvekDspTab::SlicePower KVXETarvekDspTab::calculateSlices(const KVXEUID& uid, const DspRow& use) {
  Params params;
  updateDspParams(uid, use, params);
  Model::getGlobal().calculate(params);
  return {params[Params::FloatEnum::DATA_POWER], getClockSignalPower(params)};
}

KVXETarvekDspTab::SliceModel KVXETarvekDspTab::modelOf(const std::string& mode) {
  static const struct {
    const char* mode;
    SliceModel model;
  } models[] = {
      {"INT24", &calculateSlices<KVXMTarvekDspInt24Params, KVXMTarvekDspInt24Model>},
      {"CPLX", &calculateSlices<KVXMTarvekDspCplxParams, KVXMTarvekDspCplxModel>},
      {"FP32", &calculateSlices<KVXMTarvekDspFp32Params, KVXMTarvekDspFp32Model>},
      {"INT8", &calculateSlices<KVXMTarvekDspInt8Params, KVXMTarvekDspInt8Model>},
      {"LEGACY", &calculateSlices<KVXMTarvekDspLegacyParams, KVXMTarvekDspLegacyModel>},
  };
  const auto* found = std::find_if(std::begin(models), std::end(models),
                                   [&](const auto& entry) { return entry.mode == mode; });
  return found == std::end(models) ? nullptr : found->model;
}

float KVXETarvekDspTab::getSignalPower(const KVXEUID& uid, const DspRow& use) {
  using F = KVXMTarvekRoutingParams::FloatEnum;
  const int width = readConfig(uid)[ConfigInt::OUTPUT_WIDTH];
  KVXMTarvekRoutingParams params;
  params[KVXMTarvekRoutingParams::StringEnum::DEVICE] = kvxe::readDevice(uid);
  params[F::VCCINT] = use.volts;
  params[F::FREQUENCY] = use.megahertz;
  params[F::TOGGLE_RATE] = use.toggleRate;
  params[F::NETS] = static_cast<float>(use.slices) * static_cast<float>(width);
  KVXMTarvekRoutingModel::getGlobal().calculate(params);
  return params[F::VCCINT_POWER];
}

void KVXETarvekDspTab::updateDspConfigPowerRow(const KVXEUID& uid) {
  if (!kvxe::isInTable(uid, m_DspConfigTable, "power of DSP slices")) return;
  const std::optional<DspRow> use = readDspRow(uid, m_DspCount);
  if (!use) return uid.getCell()->setBlankAndMarkEngineClean();
  const SliceModel model = modelOf(kvxe::readText(uid.getRow(), m_Mode));
  if (!model) return uid.getCell()->setBlankAndMarkEngineClean();
  const SlicePower slices = model(uid, *use);
  float watts = slices.data + slices.clock;
  if (!kvxe::isSignalPowerDisabled()) watts += getSignalPower(uid, *use);
  uid.getCell()->setValAndMarkEngineClean(watts);
}
