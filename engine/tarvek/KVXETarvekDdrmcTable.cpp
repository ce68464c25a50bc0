// The table of hard memory controllers. A row is a controller once it has a DRAM type: which kind serves that
// type follows from the device.

#include <algorithm>

#include "engine/base/tabs/KVXEConfigTable.h"
#include "engine/base/tabs/KVXEDropdowns.h"
#include "engine/base/tabs/KVXEUtilization.h"
#include "engine/base/workbook/KVXERow.h"
#include "engine/tarvek/KVXETarvekNocDdrmcTab.h"
#include "models/common/KVXMHelperUtils.h"
#include "models/tarvek/KVXMTarvekDdrmc.h"
#include "models/tarvek/KVXMTarvekDdrmc5.h"
#include "models/tarvek/KVXMTarvekDdrmc5C.h"
#include "models/tarvek/KVXMTarvekDdrmcData.h"

using enum KVXEEnums::CellType;
using KVXEEnums::Unit;
using KVXEEnums::Visibility;

namespace {

using Tab = KVXETarvekNocDdrmcTab;

const char* const standards[] = {"Component", "UDIMM", "SODIMM", "RDIMM"};
const char* const noYes[] = {"No", "Yes"};
const char* const patterns[] = {"Linear", "Random"};
const char* const dataWidths[] = {"16", "32", "64"};
constexpr double DefaultDataWidth = 32;

const KVXETitle* const results[] = {&Tab::m_VccsocPower, &Tab::m_VccintioPower, &Tab::m_VccauxPower,
                                    &Tab::m_Power};

KVXEColumn choice(const KVXETitle& title, std::span<const char* const> entries, KVXEFormula formula,
                  const char* toolTip) {
  return kvxe::column::choice(title, entries, entries.empty() ? "" : entries.front(), toolTip, formula);
}

const KVXEColumn columns[] = {
    kvxe::column::name(Tab::m_Name, "<html>The name of this memory controller.</html>"),
    choice(Tab::m_DramType, {}, &Tab::updateDramType,
           "<html>The type of the memory.\nA row without a type stands for no controller.</html>"),
    {.title = &Tab::m_Controller,
     .type = STRING,
     .formula = &Tab::updateController,
     .toolTip = "<html>The kind of controller of this device that serves the DRAM type.</html>"},
    choice(Tab::m_Standard, standards, &Tab::updateStandard,
           "<html>Whether the memory is soldered or a module.\nThe long lines of a module lower the "
           "highest data rate.</html>"),
    {.title = &Tab::m_Channels,
     .type = INT,
     .isEditable = true,
     .formula = &Tab::updateChannels,
     .number = 1,
     .minimum = 1,
     .maximum = KVXMTarvekDdrmcData::largestChannelCount,
     .toolTip = "<html>The number of channels that share the pins of the controller.</html>"},
    {.title = &Tab::m_Datarate,
     .type = FLOAT,
     .isEditable = true,
     .formula = &Tab::updateDatarate,
     .unit = Unit::FIXED_Mbps_SHOW,
     .minimum = 0,
     .toolTip = "<html>The data rate of a pin.\nBlank takes the highest that the device's grade "
                "reaches.</html>"},
    {.title = &Tab::m_DataWidth,
     .type = INT,
     .isEditable = true,
     .formula = &Tab::updateDataWidth,
     .number = DefaultDataWidth,
     .isDropdown = true,
     .entries = dataWidths,
     .toolTip = "<html>The data pins of a channel, without those of the error correction.</html>"},
    choice(Tab::m_Ecc, noYes, &KVXECell::NoFormula,
           "<html>Whether a check byte is stored with eight bytes of data.</html>"),
    choice(Tab::m_Crypto, noYes, &Tab::updateCrypto,
           "<html>Whether the controller encrypts the memory's contents. DDRMC5C can.</html>"),
    kvxe::column::count(Tab::m_ReadBandWidth, "<html>The data read from the memory, in MB/s.</html>",
                        KVXEColumn::None, &Tab::updateDdrmcBandWidth),
    kvxe::column::count(Tab::m_WriteBandWidth, "<html>The data written to the memory, in MB/s.</html>",
                        KVXEColumn::None, &Tab::updateDdrmcBandWidth),
    choice(Tab::m_AccessPattern, patterns, &KVXECell::NoFormula,
           "<html>Whether accesses follow each other in the memory, or each opens a row of its "
           "own.</html>"),
    kvxe::column::rate(Tab::m_ToggleRate, Tab::DefaultToggleRate,
                       "<html>The share of the data bits that change from one transfer to the "
                       "next.\nRandom and compressed data make 50%.</html>"),
    kvxe::column::watts(Tab::m_VccsocPower, &Tab::updateDdrmcPowerRow,
                        "Power that this controller draws from the supply of controllers and network.",
                        Visibility::INTERNAL),
    kvxe::column::watts(Tab::m_VccintioPower, &Tab::updateDdrmcPowerRow,
                        "Power that this controller draws from the supply of the IO banks' logic.",
                        Visibility::INTERNAL),
    kvxe::column::watts(Tab::m_VccauxPower, &Tab::updateDdrmcPowerRow,
                        "Power that this controller draws from the auxiliary supply.", Visibility::INTERNAL),
    kvxe::column::watts(Tab::m_Power, &Tab::updateDdrmcPowerRow,
                        "<html>The power of this controller and its interface. Its pins are rows of the IO "
                        "tab.</html>"),
    kvxe::column::comments(Tab::m_UserComments),
};

}  // namespace

void KVXETarvekNocDdrmcTab::initDdrmcConfigTable() {
  kvxe::createConfigTable(*this, m_DdrmcConfigTable, columns, "DDRMC");
}

// Lists.

namespace {

bool hasController(const kvxm::DramSupport& support) {
  return kvxe::availableCount(support.resource).value_or(0) > 0;
}

/// What the row's controller can do with its DRAM type; null for a row without a controller.
const kvxm::DramSupport* readSupport(KVXERow* row) {
  const std::string controller = kvxe::readText(row, Tab::m_Controller);
  if (controller.empty()) return nullptr;
  return KVXMTarvekDdrmcData::getGlobal().find(controller, kvxe::readText(row, Tab::m_DramType));
}

/// Offers a list of the row's DRAM type, or that of the column in a row without a controller.
template <class T>
void offerSupported(const KVXEUID& uid, std::vector<T> kvxm::DramSupport::*list) {
  const kvxm::DramSupport* support = readSupport(uid.getRow());
  const auto* column = static_cast<KVXETemplateCell<T>*>(uid.getCell()->getHeaderDefaultCell());
  kvxe::offerInCell(uid.getCell(), support ? support->*list : column->getDDVals());
}

}  // namespace

void KVXETarvekNocDdrmcTab::updateDramType(const KVXEUID& uid) {
  if (!kvxe::isInTable(uid, m_DdrmcConfigTable, "DRAM type")) return;
  std::vector<std::string> types;
  for (const kvxm::DramSupport& support : KVXMTarvekDdrmcData::getGlobal().getDramSupport())
    if (hasController(support) && std::find(types.begin(), types.end(), support.dramType) == types.end())
      types.push_back(support.dramType);
  // The list is the column's: the first row that is evaluated after a change of the device brings it.
  kvxe::offerInColumn(uid.getCell()->getHeaderDefaultCell(), types);
  uid.getCell()->markEngineClean();
}

void KVXETarvekNocDdrmcTab::updateController(const KVXEUID& uid) {
  if (!kvxe::isInTable(uid, m_DdrmcConfigTable, "kind of memory controller")) return;
  const std::string type = kvxe::readText(uid.getRow(), m_DramType);
  for (const kvxm::DramSupport& support : KVXMTarvekDdrmcData::getGlobal().getDramSupport())
    if (support.dramType == type && hasController(support))
      return uid.getCell()->setValAndMarkEngineClean(support.controller);
  uid.getCell()->setBlankAndMarkEngineClean();
}

void KVXETarvekNocDdrmcTab::updateStandard(const KVXEUID& uid) {
  if (!kvxe::isInTable(uid, m_DdrmcConfigTable, "standard of a memory")) return;
  offerSupported(uid, &kvxm::DramSupport::standards);
}

void KVXETarvekNocDdrmcTab::updateDataWidth(const KVXEUID& uid) {
  if (!kvxe::isInTable(uid, m_DdrmcConfigTable, "data width of a memory")) return;
  offerSupported(uid, &kvxm::DramSupport::dataWidths);
}

void KVXETarvekNocDdrmcTab::updateCrypto(const KVXEUID& uid) {
  if (!kvxe::isInTable(uid, m_DdrmcConfigTable, "encryption of a memory")) return;
  offerSupported(uid, &kvxm::DramSupport::encryption);
}

// Limits.

namespace {

float readMaximumRate(KVXERow* row, const kvxm::DramSupport& support) {
  return support.maximumRate(kvxe::readText(row, Tab::m_Standard), kvxe::readSpeedGrade());
}

/// Mbps of a pin.
float readDatarate(KVXERow* row, const kvxm::DramSupport& support) {
  float rate = 0.0f;
  if (row->getCell(&Tab::m_Datarate)->getVal(rate, true)) return rate;
  return readMaximumRate(row, support);
}

}  // namespace

void KVXETarvekNocDdrmcTab::updateChannels(const KVXEUID& uid) {
  if (!kvxe::isInTable(uid, m_DdrmcConfigTable, "channels of a memory controller")) return;
  int channels = 0;
  const bool isUsed = uid.getCell()->getVal(channels, false) && readSupport(uid.getRow());
  const bool isExceeded =
      isUsed && channels > 0 &&
      kvxe::readCount(uid.getRow(), m_DataWidth) > KVXMTarvekDdrmcData::dataPins / channels;
  finishChecked(uid, isExceeded,
                "<html>The channels of a controller have " +
                    KVXMHelperUtils::ToString(KVXMTarvekDdrmcData::dataPins) +
                    " data pins together.\nPlease review channels and data width.</html>");
}

void KVXETarvekNocDdrmcTab::updateDatarate(const KVXEUID& uid) {
  if (!kvxe::isInTable(uid, m_DdrmcConfigTable, "data rate of a memory")) return;
  float rate = 0.0f;
  const bool isKnown = uid.getCell()->getVal(rate, false);
  const kvxm::DramSupport* support = isKnown ? readSupport(uid.getRow()) : nullptr;
  const float limit = support ? readMaximumRate(uid.getRow(), *support) : 0.0f;
  finishChecked(
      uid, support && rate > limit,
      "Maximum datarate for selected device grade is  " + KVXMHelperUtils::formatFixed(limit, 0) + ".");
}

void KVXETarvekNocDdrmcTab::updateDdrmcBandWidth(const KVXEUID& uid) {
  if (!kvxe::isInTable(uid, m_DdrmcConfigTable, "bandwidth of a memory")) return;
  constexpr double bitsPerByte = 8;
  int own = 0;
  KVXERow* row = uid.getRow();
  const bool isKnown = uid.getCell()->getVal(own, false);
  const kvxm::DramSupport* support = isKnown ? readSupport(row) : nullptr;
  if (!support) return finishChecked(uid, false, "");
  const KVXETitle& other =
      uid.getCell() == row->getCell(&m_ReadBandWidth) ? m_WriteBandWidth : m_ReadBandWidth;
  float opposite = 0.0f;
  if (!row->getCell(&other)->getVal(opposite, false)) opposite = 0.0f;
  const double limit = double{readDatarate(row, *support)} * kvxe::readCount(row, m_Channels) *
                       kvxe::readCount(row, m_DataWidth) / bitsPerByte;
  finishChecked(uid, static_cast<double>(own) + opposite > limit,
                "<html>The memory carries " + KVXMHelperUtils::formatFixed(limit, 0) +
                    " MB/s in both directions together.\nPlease review bandwidths, data rate and data "
                    "width.</html>");
}

// Power of a row.

namespace {

/// Watts by supply.
struct ControllerPower {
  float vccsoc = 0.0f;
  float vccintio = 0.0f;
  float vccaux = 0.0f;
};

struct ControllerVolts {
  float vccsoc;
  float vccintio;
  float vccaux;
};

std::optional<ControllerVolts> readVolts(const KVXEUID& uid) {
  const auto soc = kvxe::readVoltage(uid, "VCCSOC");
  const auto io = kvxe::readVoltage(uid, "VCCINTIO");
  const auto aux = kvxe::readVoltage(uid, "VCCAUX");
  if (!soc || !io || !aux) return std::nullopt;
  return ControllerVolts{*soc, *io, *aux};
}

template <class Params, class Model>
ControllerPower calculateController(const KVXEUID& uid, const kvxm::DramSupport& support,
                                    const ControllerVolts& volts) {
  using I = typename Params::IntEnum;
  using F = typename Params::FloatEnum;
  KVXERow* row = uid.getRow();
  Params params;
  params[Params::StringEnum::DEVICE] = kvxe::readDevice(uid);
  params[I::NUM_CHANNELS] = kvxe::readCount(row, Tab::m_Channels);
  params[I::DATA_WIDTH] = kvxe::readCount(row, Tab::m_DataWidth);
  params[I::ECC_USAGE] = kvxe::readText(row, Tab::m_Ecc) == "Yes";
  params[I::READ_BAND_WIDTH] = kvxe::readCount(row, Tab::m_ReadBandWidth);
  params[I::WRITE_BAND_WIDTH] = kvxe::readCount(row, Tab::m_WriteBandWidth);
  params[I::RANDOM_ACCESS] = kvxe::readText(row, Tab::m_AccessPattern) == "Random";
  params[I::ENCRYPTION] = kvxe::readText(row, Tab::m_Crypto) == "Yes";
  params[F::DATA_RATE] = readDatarate(row, support);
  params[F::VCCSOC] = volts.vccsoc;
  params[F::VCCINTIO] = volts.vccintio;
  params[F::VCCAUX] = volts.vccaux;
  params[F::TOGGLE_RATE] = kvxe::readNumber(row, Tab::m_ToggleRate, params[F::TOGGLE_RATE]);
  Model::getGlobal().calculate(params);
  return {params[F::VCCSOC_POWER], params[F::VCCINTIO_POWER], params[F::VCCAUX_POWER]};
}

using ControllerModel = ControllerPower (*)(const KVXEUID&, const kvxm::DramSupport&, const ControllerVolts&);

ControllerModel modelOf(const std::string& kind) {
  if (kind == Tab::m_Ddrmc5Str) return &calculateController<KVXMTarvekDdrmc5Params, KVXMTarvekDdrmc5Model>;
  if (kind == Tab::m_Ddrmc5CStr) return &calculateController<KVXMTarvekDdrmc5CParams, KVXMTarvekDdrmc5CModel>;
  return &calculateController<KVXMTarvekDdrmcParams, KVXMTarvekDdrmcModel>;
}

}  // namespace

void KVXETarvekNocDdrmcTab::updateDdrmcPowerRow(const KVXEUID& uid) {
  if (!kvxe::isInTable(uid, m_DdrmcConfigTable, "power of a memory controller")) return;
  const kvxm::DramSupport* support = readSupport(uid.getRow());
  const std::optional<ControllerVolts> volts = support ? readVolts(uid) : std::nullopt;
  if (!volts) return kvxe::blankResults(uid.getRow(), results);
  const ControllerPower power = modelOf(support->controller)(uid, *support, *volts);
  kvxe::writeResult(uid.getRow(), m_VccsocPower, power.vccsoc);
  kvxe::writeResult(uid.getRow(), m_VccintioPower, power.vccintio);
  kvxe::writeResult(uid.getRow(), m_VccauxPower, power.vccaux);
  kvxe::writeResult(uid.getRow(), m_Power, power.vccsoc + power.vccintio + power.vccaux);
}
