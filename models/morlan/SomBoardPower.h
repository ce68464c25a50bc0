#pragma once

#include <string_view>

#include "models/catalogue/SomBoard.h"
#include "models/common/ParamsRecord.h"

/// Power of the board of a module. The models of the modules are this calculation with the board of each.
namespace kvxm {

/// The keys of the shared slots by name, for code that serves the record of any module.
struct BoardKey {
#define KVXM_INT(key, slot, ...) static constexpr int slot = key;
#define KVXM_FLOAT(key, slot, ...) static constexpr int slot = key;
#include "models/morlan/SomBoardSlots.def"
#undef KVXM_INT
#undef KVXM_FLOAT

  static constexpr int powerOf(BoardLoad load) {
    return PL_CORE_POWER + static_cast<int>(load);
  }
  static constexpr int heatOf(BoardComponent component) {
    return CHIP_HEAT + static_cast<int>(component);
  }
  static constexpr int overlimitOf(BoardOutput output) {
    return VCC_SOM_OVERLIMIT + static_cast<int>(output);
  }
  /// Only of uses that an interface counts.
  static constexpr int countOf(BoardUse use) {
    return QSPI_COUNT + static_cast<int>(use) - static_cast<int>(BoardUse::QSPI);
  }
};

/// Reads the input slots of the record of a module and writes its output slots. Energy is conserved: what the
/// components heat is what the input and the carrier's IO banks deliver. An unknown board heats nothing.
///
/// The loss of a regulator at output power P is P (1/efficiency - 1), that of copper I^2 R; both definitions
/// are of the regulators' and boards' data. The input current is taken behind the copper of the input.
void calculateSomBoard(Record& params, std::string_view module);

}  // namespace kvxm
