#pragma once

#include <span>
#include <string>

#include "engine/base/workbook/KVXEUID.h"
#include "models/common/ParamsRecord.h"

class KVXETitle;

/// The power of the rows of a clock manager table: which model computes a type, and by which numeric keys
/// its record is filled and read, is declared; the rest is the same for all types.
namespace kvxe {

/// A rail that a clock manager draws from.
struct ClockManagerRail {
  const char* rail;         ///< internal name
  int voltageKey;           ///< float slot of the voltage
  int powerKey;             ///< float slot of the watts
  const KVXETitle* column;  ///< where the watts of the rail are written
};

/// How one type of clock managers is computed.
struct ClockManagerModel {
  std::string type;
  int divideKey;    ///< int slot of the divide counter
  int multiplyKey;  ///< int slot of the multiply counter
  int outputCount;  ///< outputs that the type has; their dividers stand in the int slots from 1 on
  std::span<const ClockManagerRail> rails;
  void (*run)(const ClockManagerModel& model, const KVXEUID& uid);
};

/// The formula of the result cells of a row: its type picks the model. The results are blank while the row
/// has no type, no reference clock, no running oscillator, or a rail of it has no voltage.
void updateClockManagerPower(const KVXEUID& uid, std::span<const ClockManagerModel> models);

/// Fills the record of a model from a row; false when something that the model needs is missing.
bool fillClockManager(const ClockManagerModel& model, const KVXEUID& uid, kvxm::Record& record);
/// Writes the results of the record into the row.
void writeClockManagerPower(const ClockManagerModel& model, const KVXEUID& uid, kvxm::Record& record);
void blankClockManagerPower(const KVXEUID& uid);

/// ClockManagerModel::run of a model of the library.
template <class Params, class Model>
void runClockManager(const ClockManagerModel& model, const KVXEUID& uid) {
  Params params;
  if (!fillClockManager(model, uid, params)) return blankClockManagerPower(uid);
  Model::getGlobal().calculate(params);
  writeClockManagerPower(model, uid, params);
}

}  // namespace kvxe
