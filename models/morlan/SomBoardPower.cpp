#include "models/morlan/SomBoardPower.h"

#include <algorithm>
#include <array>

#include "models/common/Effects.h"

namespace kvxm {
namespace {

constexpr double megabitsPerGigabit = 1000.0;
constexpr double milliwattsPerWatt = 1000.0;

/// Sums by member of an enumeration.
template <class Enum>
class Watts {
 public:
  double& operator[](Enum member) { return m_sums[static_cast<std::size_t>(member)]; }
  double total() const {
    double sum = 0.0;
    for (const double watts : m_sums) sum += watts;
    return sum;
  }

 private:
  std::array<double, static_cast<std::size_t>(Enum::Count)> m_sums{};
};

struct Balance {
  Watts<BoardLoad> drawn;
  Watts<BoardComponent> heat;
};

double unitsOf(BoardUse use, Record& params) {
  const double width = used(*params.findInt(BoardKey::MEMORY_WIDTH));
  switch (use) {
    case BoardUse::ALWAYS:
      return 1.0;
    case BoardUse::MEMORY_WIDTH:
      return width;
    case BoardUse::MEMORY_TRAFFIC:
      return width * used(*params.findFloat(BoardKey::MEMORY_RATE)) / megabitsPerGigabit *
             std::min(used(*params.findFloat(BoardKey::MEMORY_ACTIVITY)), 1.0);
    default:
      return used(*params.findInt(BoardKey::countOf(use)));
  }
}

/// The rails' own power heats the part that they feed; all of them but the three of the board are the
/// device's.
BoardComponent heatedBy(BoardLoad load) {
  switch (load) {
    case BoardLoad::MEMORY_CORE:
    case BoardLoad::MEMORY_BOOST:
      return BoardComponent::MEMORY;
    case BoardLoad::EMMC_CORE:
      return BoardComponent::EMMC;
    case BoardLoad::BOARD_IO:
      return BoardComponent::PCB;
    default:
      return BoardComponent::CHIP;
  }
}

Balance loadsOf(const SomBoard& board, Record& params) {
  Balance balance;
  for (int i = 0; i < static_cast<int>(BoardLoad::Count); ++i) {
    const auto load = static_cast<BoardLoad>(i);
    const double watts = used(*params.findFloat(BoardKey::powerOf(load)));
    balance.drawn[load] += watts;
    balance.heat[heatedBy(load)] += watts;
  }
  for (const BoardConsumer& consumer : board.consumers) {
    const double watts = unitsOf(consumer.use, params) * static_cast<double>(consumer.watts);
    balance.drawn[consumer.load] += watts;
    balance.heat[consumer.component] += watts;
  }
  return balance;
}

/// What an output draws from the board's input to deliver `watts` to its loads; its losses go into the heat.
double supply(const BoardRegulator& regulator, double watts, Watts<BoardComponent>& heat, Record& params) {
  const double amps = watts / static_cast<double>(regulator.volts);
  const double copper = amps * amps * static_cast<double>(regulator.ohms);
  const double delivered = watts + copper;
  const double drawn = delivered / static_cast<double>(regulator.efficiency);
  heat[BoardComponent::PCB] += copper;
  heat[regulator.component] += drawn - delivered;
  const auto limit = static_cast<double>(regulator.limitWatts);
  const double excess = limit > 0.0 ? std::max(delivered - limit, 0.0) : 0.0;
  *params.findFloat(BoardKey::overlimitOf(regulator.output)) = toFloat(excess * milliwattsPerWatt);
  return drawn;
}

void clearOutputs(Record& params) {
  for (int i = 0; i < static_cast<int>(BoardComponent::Count); ++i)
    *params.findFloat(BoardKey::heatOf(static_cast<BoardComponent>(i))) = 0.0f;
  for (int i = 0; i < static_cast<int>(BoardOutput::Count); ++i)
    *params.findFloat(BoardKey::overlimitOf(static_cast<BoardOutput>(i))) = 0.0f;
  *params.findFloat(BoardKey::INPUT_POWER) = 0.0f;
  *params.findFloat(BoardKey::BOARD_POWER) = 0.0f;
}

}  // namespace

void calculateSomBoard(Record& params, std::string_view module) {
  clearOutputs(params);
  const SomBoard* board = findSomBoard(module);
  if (!board) return;
  Balance balance = loadsOf(*board, params);
  double atInput = 0.0;
  for (const BoardRegulator& regulator : board->regulators) {
    double watts = 0.0;
    for (const BoardLoad load : regulator.loads) watts += balance.drawn[load];
    atInput += supply(regulator, watts, balance.heat, params);
  }
  balance.heat[BoardComponent::CHIP] += used(*params.findFloat(BoardKey::PL_BANK_POWER));
  *params.findFloat(BoardKey::INPUT_VOLTAGE) = board->input.volts;
  *params.findFloat(BoardKey::INPUT_POWER) = toFloat(supply(board->input, atInput, balance.heat, params));
  *params.findFloat(BoardKey::BOARD_POWER) = toFloat(balance.heat.total());
  for (int i = 0; i < static_cast<int>(BoardComponent::Count); ++i) {
    const auto component = static_cast<BoardComponent>(i);
    *params.findFloat(BoardKey::heatOf(component)) = toFloat(balance.heat[component]);
  }
}

}  // namespace kvxm
