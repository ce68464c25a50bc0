#include <stdexcept>
#include <string_view>

#include "bench/BenchBook.h"
#include "engine/base/selection/KVXEPartSelection.h"
#include "models/common/BlockRegistry.h"

namespace {

/// The blocks that the rows of each table of the default device call.
constexpr std::string_view blocksOfARow[] = {
    "KVXMTarvekClock",    "KVXMTarvekClkDist", "KVXMTarvekCleClk",  // clocks
    "KVXMTarvekFsyn",                                               // clock managers
    "KVXMTarvekCleLogic", "KVXMTarvekSignal",                       // logic
    "KVXMTarvekBram",     "KVXMTarvekRouting",                      // block memories
    "KVXMTarvekWram",     "KVXMTarvekRouting",                      // wide memories
    "KVXMTarvekDspInt24", "KVXMTarvekRouting",                      // DSP
    "KVXMTarvekHsIo",     "KVXMTarvekNoc",     "KVXMTarvekDdrmc",   // IO, network, memory controllers
};

const kvxm::BlockDescription& findBlock(std::string_view name) {
  for (const kvxm::BlockDescription& block : kvxm::allBlocks())
    if (block.name == name) return block;
  throw std::invalid_argument("there is no block " + std::string(name));
}

/// Every input at its default, or at one where the default is none, so that no equation is cut short.
std::unique_ptr<kvxm::Record> makeInputs(const kvxm::BlockDescription& block) {
  auto record = block.makeRecord();
  for (const kvxm::Slot& slot : block.slots) {
    if (slot.use != kvxm::SlotUse::Input) continue;
    if (slot.group == kvxm::SlotGroup::Int && slot.intDefault == 0) *record->findInt(slot.key) = 1;
    if (slot.group == kvxm::SlotGroup::Float && slot.floatDefault == 0.0f)
      *record->findFloat(slot.key) = 1.0f;
    if (slot.name == "DEVICE")
      *record->findString(slot.key) =
          KVXEPartSelection::getGlobal()->getCurrentSetting(KVXEPartSelection::m_devStr);
  }
  return record;
}

}  // namespace

StraightLine::StraightLine(unsigned int rows) : m_rows(rows) {
  for (const std::string_view name : blocksOfARow) {
    const kvxm::BlockDescription& block = findBlock(name);
    m_calls.push_back({&block, makeInputs(block)});
  }
}

StraightLine::~StraightLine() = default;

void StraightLine::run() {
  for (const Call& call : m_calls)
    for (unsigned int row = 0; row < m_rows; ++row) call.block->calculate(*call.inputs);
}
