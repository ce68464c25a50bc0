#include "models/common/ParamsRecord.h"

#include <cmath>
#include <fstream>
#include <limits>
#include <set>
#include <stdexcept>

#include "models/common/BlockRegistry.h"
#include "models/common/KVXMHelperUtils.h"
#include "models/tarvek/KVXMTarvekClock.h"
#include "models/tarvek/KVXMTarvekRouting.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Clock = KVXMTarvekClockParams;

TEST(ParamsRecord, HoldsDefaultsUntilChangedAndAfterReset) {
  Clock params;
  params[Clock::FloatEnum::FANOUT_PER_SITE] = 8.0f;
  params[Clock::IntEnum::FANOUT] = 100;
  params[Clock::StringEnum::DEVICE] = "a device with a name beyond what a string keeps in place";
  const Clock copy = params;
  params.reset();
  EXPECT_EQ(params[Clock::FloatEnum::FANOUT_PER_SITE], 6.5f);
  EXPECT_EQ(params[Clock::IntEnum::FANOUT], 0);
  EXPECT_EQ(params[Clock::StringEnum::DEVICE], "");
  EXPECT_EQ(copy[Clock::FloatEnum::FANOUT_PER_SITE], 8.0f);
}

TEST(ParamsRecord, AnEnumeratorIsItsNumericKey) {
  using Routing = KVXMTarvekRoutingParams;
  Routing params;
  params[static_cast<Routing::FloatEnum>(7)] = 12.0f;
  EXPECT_EQ(params[Routing::FloatEnum::NETS], 12.0f);
  EXPECT_EQ(Routing::string_to_float_enum("NETS"), Routing::FloatEnum::NETS);
  for (int key : {-1, 1, 6, 19, 1065, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
    EXPECT_THROW(params[static_cast<Routing::FloatEnum>(key)], std::out_of_range) << key;
  }
  EXPECT_THROW(params[static_cast<Routing::IntEnum>(0)], std::out_of_range) << "a group without slots";
}

TEST(ParamsRecord, NamesAreFoundWithinTheirKindOnly) {
  EXPECT_EQ(Clock::string_to_int_enum("BRAM_USED"), Clock::IntEnum::BRAM_USED);
  EXPECT_EQ(Clock::string_to_string_enum("CLOCK_TAG"), Clock::StringEnum::CLOCK_TAG);
  EXPECT_THROW(Clock::string_to_float_enum("BRAM_USED"), std::out_of_range);
  std::vector<std::string> names = {"stale"};
  Clock::getFloatUserInputNames(names);
  EXPECT_THAT(names, ElementsAre("FANOUT_PER_SITE")) << "outputs are no inputs";
  Clock::getStringUserInputNames(names);
  EXPECT_THAT(names, ElementsAre("DEVICE", "CLOCK_TAG"));
}

std::string keyLine(const kvxm::BlockDescription& block, const kvxm::Slot& slot) {
  constexpr const char* kinds[] = {"int", "float", "string"};
  return std::string(block.name) + " " + kinds[static_cast<int>(slot.group)] + " " +
         KVXMHelperUtils::ToString(slot.key) + " " + std::string(slot.name);
}

// Callers address slots by number: a key that changes its meaning breaks them silently.
TEST(AllBlocks, KeysKeepTheirMeaning) {
  std::set<std::string> declared, agreed;
  for (const auto& block : kvxm::allBlocks()) {
    for (const kvxm::Slot& slot : block.slots) declared.insert(keyLine(block, slot));
  }
  std::ifstream golden(KVX_PARAM_KEYS_FILE);
  for (std::string line; std::getline(golden, line);) {
    if (!line.empty() && line.front() != '#') agreed.insert(line);
  }
  std::string added, lost;
  for (const std::string& line : declared) added += agreed.contains(line) ? "" : line + "\n";
  for (const std::string& line : agreed) lost += declared.contains(line) ? "" : line + "\n";
  EXPECT_TRUE(lost.empty()) << "these slots changed or are gone from the lists of their blocks:\n" << lost;
  EXPECT_TRUE(added.empty()) << "new slots, to be added to tests/models/param_keys.golden:\n" << added;
}

TEST(AllBlocks, SlotsSayWhatTheyAre) {
  std::set<std::string_view> names;
  for (const auto& block : kvxm::allBlocks()) {
    EXPECT_TRUE(names.insert(block.name).second) << block.name << " is listed twice";
    for (const kvxm::Slot& slot : block.slots) {
      EXPECT_THAT(slot.meaning, testing::Not(IsEmpty())) << keyLine(block, slot);
      EXPECT_TRUE(std::isfinite(slot.floatDefault)) << keyLine(block, slot);
    }
  }
}

float* slotOf(kvxm::Record& record, const kvxm::Slot& slot) {
  return record.findFloat(slot.key);
}

void expectFiniteResults(const kvxm::BlockDescription& block, kvxm::Record& record, const std::string& what) {
  block.calculate(record);
  for (const kvxm::Slot& slot : block.slots) {
    if (slot.group != kvxm::SlotGroup::Float || slot.use != kvxm::SlotUse::Output) continue;
    EXPECT_TRUE(std::isfinite(*slotOf(record, slot))) << keyLine(block, slot) << " with " << what;
  }
}

// Cells may hold anything: blanks are stored as the largest numbers, files may bring the rest.
TEST(AllBlocks, ResultsAreFiniteWhateverTheInput) {
  const float hostile[] = {0.0f,
                           -1.0f,
                           std::numeric_limits<float>::max(),
                           std::numeric_limits<float>::lowest(),
                           std::numeric_limits<float>::infinity(),
                           std::numeric_limits<float>::quiet_NaN(),
                           1e30f};
  const int hostileCounts[] = {0, -1, 0x7FFFFFFE, std::numeric_limits<int>::min()};
  for (const auto& block : kvxm::allBlocks()) {
    for (const kvxm::Slot& slot : block.slots) {
      if (slot.use != kvxm::SlotUse::Input) continue;
      const auto record = block.makeRecord();
      for (const kvxm::Slot& other : block.slots) {  // let everything else be in use
        if (other.use == kvxm::SlotUse::Output || other.group == kvxm::SlotGroup::String) continue;
        if (other.group == kvxm::SlotGroup::Int && *record->findInt(other.key) == 0) {
          *record->findInt(other.key) = 1000;
        }
        if (other.group == kvxm::SlotGroup::Float && *slotOf(*record, other) == 0.0f) {
          *slotOf(*record, other) = 100.0f;
        }
      }
      const std::string label(slot.name);
      if (slot.group == kvxm::SlotGroup::Float) {
        for (float value : hostile) {
          *slotOf(*record, slot) = value;
          expectFiniteResults(block, *record, label + " = " + KVXMHelperUtils::ToString(value));
        }
      } else if (slot.group == kvxm::SlotGroup::Int) {
        for (int value : hostileCounts) {
          *record->findInt(slot.key) = value;
          expectFiniteResults(block, *record, label + " = " + KVXMHelperUtils::ToString(value));
        }
      } else {
        *record->findString(slot.key) = "no such text";
        expectFiniteResults(block, *record, label);
      }
    }
  }
}

}  // namespace
