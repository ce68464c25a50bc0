// The table of connections through the network on chip.

#include "engine/base/tabs/KVXEConfigTable.h"
#include "engine/base/workbook/KVXERow.h"
#include "engine/tarvek/KVXETarvekNocDdrmcTab.h"
#include "models/common/KVXMHelperUtils.h"
#include "models/tarvek/KVXMTarvekNoc.h"
#include "models/tarvek/KVXMTarvekNocData.h"

using enum KVXEEnums::CellType;
using KVXEEnums::Unit;
using KVXEEnums::Visibility;

namespace {

using Tab = KVXETarvekNocDdrmcTab;

constexpr double DefaultMegahertz = 1000;  // what every grade reaches
constexpr double DefaultSwitches = 6;
constexpr double LargestSwitchCount = 100;

const KVXETitle* const results[] = {&Tab::m_NocPower, &Tab::m_ClockBufferPower, &Tab::m_Power};

const KVXEColumn columns[] = {
    kvxe::column::name(Tab::m_ModuleName,
                       "<html>The name of this connection: of the module that uses it, and of the "
                       "endpoint.</html>"),
    {.title = &Tab::m_NocClock,
     .type = FLOAT,
     .isEditable = true,
     .formula = &Tab::updateNocClock,
     .unit = Unit::FREQUENCY_SHOW,
     .number = DefaultMegahertz,
     .minimum = 0,
     .toolTip = "<html>The clock of the switches. The network has a clock of its own, which belongs to "
                "none of the clocks of the design.</html>"},
    {.title = &Tab::m_NocSwitches,
     .type = INT,
     .isEditable = true,
     .number = DefaultSwitches,
     .minimum = 1,
     .maximum = LargestSwitchCount,
     .toolTip = "<html>The number of switches between the endpoints: the physical length of the "
                "connection.\nNeighbours have 2 or 3, the way across a large device has 15 and "
                "more.</html>"},
    kvxe::column::count(Tab::m_ReadBandWidth, "<html>The data read through this connection, in MB/s.</html>",
                        KVXEColumn::None, &Tab::updateNocBandWidth),
    kvxe::column::count(Tab::m_WriteBandWidth,
                        "<html>The data written through this connection, in MB/s.</html>", KVXEColumn::None,
                        &Tab::updateNocBandWidth),
    kvxe::column::rate(Tab::m_ToggleRate, Tab::DefaultToggleRate,
                       "<html>The share of the data bits that change from one word to the next.\nRandom and "
                       "compressed data make 50%.</html>"),
    kvxe::column::watts(Tab::m_NocPower, &Tab::updateNocPowerRow,
                        "Power of endpoints, switches and links, which follows the data.",
                        Visibility::INTERNAL),
    kvxe::column::watts(Tab::m_ClockBufferPower, &Tab::updateNocPowerRow,
                        "Power of the clock buffers of the switches.", Visibility::INTERNAL),
    kvxe::column::watts(Tab::m_Power, &Tab::updateNocPowerRow,
                        "<html>The power of this connection, with the clock buffers on its way.</html>"),
    kvxe::column::comments(Tab::m_UserComments),
};

}  // namespace

void KVXETarvekNocDdrmcTab::initNocConfigTable() {
  kvxe::createConfigTable(*this, m_NocConfigTable, columns, "NoC");
}

// Limits.

void KVXETarvekNocDdrmcTab::updateNocClock(const KVXEUID& uid) {
  if (!kvxe::isInTable(uid, m_NocConfigTable, "clock of the network")) return;
  const float limit = KVXMTarvekNocData::getGlobal().getMaximumFrequency(kvxe::readSpeedGrade());
  float megahertz = 0.0f;
  const bool isKnown = uid.getCell()->getVal(megahertz, false);
  finishChecked(uid, isKnown && megahertz > limit,
                "<html>The network runs at " + KVXMHelperUtils::formatFixed(limit, 0) +
                    " MHz at most on a device of the selected grade.</html>");
}

void KVXETarvekNocDdrmcTab::updateNocBandWidth(const KVXEUID& uid) {
  if (!kvxe::isInTable(uid, m_NocConfigTable, "bandwidth of the network")) return;
  float bandWidth = 0.0f;
  const bool isKnown = uid.getCell()->getVal(bandWidth, false);
  const double limit = KVXMTarvekNocData::getGlobal().getPortBandWidth(
      isKnown ? kvxe::readNumber(uid.getRow(), m_NocClock, 0.0f) : 0.0);
  finishChecked(uid, isKnown && bandWidth > limit,
                "<html>A port of the network carries " + KVXMHelperUtils::formatFixed(limit, 0) +
                    " MB/s in one direction at this clock.\nPlease split the connection.</html>");
}

// Power of a row.

namespace {

/// Nothing for a row without any bandwidth, without clock or switches, or without a voltage. A bandwidth of 0
/// stands for a connection that is open and idle.
std::optional<KVXMTarvekNocParams> readConnection(const KVXEUID& uid) {
  using I = KVXMTarvekNocParams::IntEnum;
  using F = KVXMTarvekNocParams::FloatEnum;
  KVXERow* row = uid.getRow();
  KVXMTarvekNocParams params;
  const auto read = [row](const KVXETitle& column, int& value) {
    return row->getCell(&column)->getVal(value, true);
  };
  const bool isRead = read(Tab::m_ReadBandWidth, params[I::READ_BAND_WIDTH]);
  const bool isWritten = read(Tab::m_WriteBandWidth, params[I::WRITE_BAND_WIDTH]);
  if (!isRead && !isWritten) return std::nullopt;
  const float megahertz = kvxe::readNumber(row, Tab::m_NocClock, 0.0f);
  if (!read(Tab::m_NocSwitches, params[I::SWITCHES]) || params[I::SWITCHES] <= 0) return std::nullopt;
  const std::optional<float> volts = kvxe::readVoltage(uid, "VCCSOC");
  if (!(megahertz > 0.0f) || !volts) return std::nullopt;
  params[KVXMTarvekNocParams::StringEnum::DEVICE] = kvxe::readDevice(uid);
  params[F::FREQUENCY] = megahertz;
  params[F::VCCSOC] = *volts;
  params[F::TOGGLE_RATE] = kvxe::readNumber(row, Tab::m_ToggleRate, params[F::TOGGLE_RATE]);
  return params;
}

}  // namespace

void KVXETarvekNocDdrmcTab::updateNocPowerRow(const KVXEUID& uid) {
  using F = KVXMTarvekNocParams::FloatEnum;
  if (!kvxe::isInTable(uid, m_NocConfigTable, "power of the network")) return;
  std::optional<KVXMTarvekNocParams> params = readConnection(uid);
  if (!params) return kvxe::blankResults(uid.getRow(), results);
  KVXMTarvekNocModel::getGlobal().calculate(*params);
  const float data = (*params)[F::DATA_POWER];
  const float clock = (*params)[F::CLOCK_POWER];
  kvxe::writeResult(uid.getRow(), m_NocPower, data);
  kvxe::writeResult(uid.getRow(), m_ClockBufferPower, clock);
  kvxe::writeResult(uid.getRow(), m_Power, data + clock);
}
