#pragma once

#include <string>
#include <string_view>
#include <vector>

/// The boards that modules are built on: regulators, and the parts beside the device.
namespace kvxm {

enum class BoardLoad : int {
#define KVXM_BOARD_LOAD(number, name, meaning) name = number,
#include "models/catalogue/SomBoard.def"
#undef KVXM_BOARD_LOAD
  Count
};

enum class BoardUse : int {
#define KVXM_BOARD_USE(number, name, meaning) name = number,
#define KVXM_BOARD_INTERFACE(number, name, meaning) name = number,
#include "models/catalogue/SomBoard.def"
#undef KVXM_BOARD_USE
#undef KVXM_BOARD_INTERFACE
  Count
};

enum class BoardComponent : int {
#define KVXM_BOARD_COMPONENT(number, name, meaning) name = number,
#include "models/catalogue/SomBoard.def"
#undef KVXM_BOARD_COMPONENT
  Count
};

enum class BoardOutput : int {
#define KVXM_BOARD_OUTPUT(number, name) name = number,
#include "models/catalogue/SomBoard.def"
#undef KVXM_BOARD_OUTPUT
  Count
};

/// One output of a regulator, and the copper behind it.
struct BoardRegulator {
  BoardOutput output = BoardOutput::VCC_SOM;
  BoardComponent component = BoardComponent::PCB;  ///< where its loss heats
  float volts = 0;
  float efficiency = 1;  ///< of all stages from the board's input to the output
  float ohms = 0;        ///< copper from the output to the loads
  float limitWatts = 0;  ///< most that the output delivers; 0 for no limit
  std::vector<BoardLoad> loads;
};

/// What one unit of a use draws from a supply, and where that heats.
struct BoardConsumer {
  BoardUse use = BoardUse::ALWAYS;
  BoardLoad load = BoardLoad::BOARD_IO;
  BoardComponent component = BoardComponent::PCB;
  float watts = 0;
};

/// The board of one kind of module. Each load hangs on exactly one output.
struct SomBoard {
  std::string device;    ///< the module kind, "SM6"
  BoardRegulator input;  ///< the connector; its volts are the board's input voltage
  std::vector<BoardRegulator> regulators;
  std::vector<BoardConsumer> consumers;

  /// What the loss of a regulator's output heats; PCB for an output that the board lacks.
  BoardComponent heatedBy(BoardOutput output) const;
};

/// The board of a module kind, null if unknown. The pointer is valid until reloadModelData().
const SomBoard* findSomBoard(std::string_view device);

}  // namespace kvxm
