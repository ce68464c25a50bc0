#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

/// The one record behind every parameter class of the model library.
///
/// A block is declared once, as a list of slots in a file of its own. To add a block "KVXMTarvekFoo":
///
///  1. models/tarvek/KVXMTarvekFooParams.def, one line per slot:
///
///         // key, name, default, use, unit, meaning
///         KVXM_STRING(1, DEVICE, "", Input, "", "Device whose coefficients apply")
///         KVXM_FLOAT(2, VCCINT, 0.8f, Input, "V", "Voltage of the core rail")
///         KVXM_INT(1, COUNT, 0, Input, "", "Blocks used")
///         KVXM_FLOAT(13, VCCINT_POWER, 0.0f, Output, "W", "Power drawn from VCCINT")
///
///     A key is unique within its kind (int, float, string) and is never given to another slot later, since
///     callers use the number. Keys may be sparse, up to kvxm::largestSlotKey. A name is unique in the block.
///
///  2. models/tarvek/KVXMTarvekFoo.h, which makes KVXMTarvekFooParams and KVXMTarvekFooModel of the list:
///
///         #pragma once
///         #include "models/common/ParamsRecord.h"
///         #define KVXM_BLOCK KVXMTarvekFoo
///         #define KVXM_SLOT_LIST "models/tarvek/KVXMTarvekFooParams.def"
///         #include "models/common/DeclareBlock.inc"
///
///  3. models/tarvek/KVXMTarvekFoo.cpp with the body of
///     `void KVXMTarvekFooModel::calculate(KVXMTarvekFooParams& params) const`, which picks inputs,
///     coefficients (Characterisation.h) and effects (Effects.h).
///
///  4. The source in models/tarvek/CMakeLists.txt, the block in BlockRegistry.cpp, and its slots in the
///  test's list of
///     keys (tests/models/param_keys.golden; the failing test prints the lines to add).
///
/// Making a record allocates nothing as long as no default text is longer than std::string keeps in place.
namespace kvxm {

enum class SlotGroup : std::uint8_t { Int, Float, String };
enum class SlotUse : std::uint8_t { Input, Output };

inline constexpr int largestSlotKey = 4095;

/// What is declared about one slot; of the three defaults that of the slot's group counts.
struct Slot {
  SlotGroup group;
  int key;
  std::string_view name;
  int intDefault;
  float floatDefault;
  std::string_view textDefault;
  SlotUse use;
  std::string_view unit;
  std::string_view meaning;
};

/// A parameter record without its type, for code that walks all blocks.
class Record {
 public:
  Record() = default;
  Record(const Record&) = default;
  Record& operator=(const Record&) = default;
  virtual ~Record() = default;

  /// The slot with this key, null if the block has none.
  virtual int* findInt(int key) = 0;
  virtual float* findFloat(int key) = 0;
  virtual std::string* findString(int key) = 0;
};

/// @throws std::out_of_range naming block, kind and key.
[[noreturn]] void throwUnknownKey(std::string_view block, SlotGroup group, int key);
/// @throws std::out_of_range naming block, kind and name.
[[noreturn]] void throwUnknownName(std::string_view block, SlotGroup group, std::string_view name);

/// What follows from a slot list at compile time: how many slots of a group there are and where a key is
/// stored.
template <class Block, SlotGroup group>
struct SlotLayout {
  static constexpr std::size_t count = [] {
    std::size_t found = 0;
    for (const Slot& slot : Block::slots) found += slot.group == group;
    return found;
  }();

  static constexpr std::uint16_t absent = 0xffff;

  /// Key to position; keys above the largest one of the group lie outside.
  static constexpr auto positions = [] {
    constexpr std::size_t size = [] {
      int largest = -1;
      for (const Slot& slot : Block::slots) {
        if (slot.group == group && slot.key > largest) largest = slot.key;
      }
      return static_cast<std::size_t>(largest + 1);
    }();
    std::array<std::uint16_t, size> table{};
    for (auto& position : table) position = absent;
    std::uint16_t next = 0;
    for (const Slot& slot : Block::slots) {
      if (slot.group == group) table[static_cast<std::size_t>(slot.key)] = next++;
    }
    return table;
  }();

  /// The position of a key, `absent` if the group has no such slot.
  static constexpr std::uint16_t positionOf(int key) {
    const auto index = static_cast<std::size_t>(static_cast<unsigned int>(key));
    return index < positions.size() ? positions[index] : absent;
  }

  static constexpr auto defaults(auto Slot::*value) {
    std::array<std::remove_cvref_t<decltype(std::declval<Slot>().*value)>, count> all{};
    std::size_t next = 0;
    for (const Slot& slot : Block::slots) {
      if (slot.group == group) all[next++] = slot.*value;
    }
    return all;
  }

  /// The key of a name, -1 if the group has no such slot.
  static int keyOf(std::string_view name) {
    for (const Slot& slot : Block::slots) {
      if (slot.group == group && slot.name == name) return slot.key;
    }
    return -1;
  }

  static void inputNames(std::vector<std::string>& names) {
    names.clear();
    for (const Slot& slot : Block::slots) {
      if (slot.group == group && slot.use == SlotUse::Input) names.emplace_back(slot.name);
    }
  }
};

/// True if keys are in range and unique within their group and names are unique in the block.
template <class Block>
constexpr bool slotsAreSound() {
  const std::size_t size = std::size(Block::slots);
  for (std::size_t i = 0; i < size; ++i) {
    const Slot& slot = Block::slots[i];
    if (slot.key < 0 || slot.key > largestSlotKey) return false;
    for (std::size_t j = 0; j < i; ++j) {
      const Slot& other = Block::slots[j];
      if (other.name == slot.name || (other.group == slot.group && other.key == slot.key)) return false;
    }
  }
  return true;
}

/// One calculation's inputs and outputs: a value type, addressed by the enumerators of its block. An
/// enumerator's value is the slot's numeric key, so that `params[static_cast<FloatEnum>(1065)]` names a slot
/// as well.
template <class Block>
class ParamsRecord : public Record {
 public:
  using IntEnum = typename Block::IntEnum;
  using FloatEnum = typename Block::FloatEnum;
  using StringEnum = typename Block::StringEnum;

  /// Holds the defaults of the block.
  ParamsRecord() : m_ints(intDefaults), m_floats(floatDefaults) { setDefaultTexts(); }

  /// A slot of the record.
  /// @throws std::out_of_range for a number that is no key of the block.
  int& operator[](const IntEnum& key) { return m_ints[position<Ints>(key)]; }
  const int& operator[](const IntEnum& key) const { return m_ints[position<Ints>(key)]; }
  float& operator[](const FloatEnum& key) { return m_floats[position<Floats>(key)]; }
  const float& operator[](const FloatEnum& key) const { return m_floats[position<Floats>(key)]; }
  std::string& operator[](const StringEnum& key) { return m_strings[position<Strings>(key)]; }
  const std::string& operator[](const StringEnum& key) const { return m_strings[position<Strings>(key)]; }

  /// Back to the defaults.
  void reset() {
    m_ints = intDefaults;
    m_floats = floatDefaults;
    setDefaultTexts();
  }

  /// The enumerator of a slot's name.
  /// @throws std::out_of_range if the block has no slot of that kind and name.
  static IntEnum string_to_int_enum(std::string_view name) { return enumerator<IntEnum, Ints>(name); }
  static FloatEnum string_to_float_enum(std::string_view name) { return enumerator<FloatEnum, Floats>(name); }
  static StringEnum string_to_string_enum(std::string_view name) {
    return enumerator<StringEnum, Strings>(name);
  }

  /// Replaces the contents of `names` by the names of the input slots, in the order of the list.
  static void getIntUserInputNames(std::vector<std::string>& names) { Ints::inputNames(names); }
  static void getFloatUserInputNames(std::vector<std::string>& names) { Floats::inputNames(names); }
  static void getStringUserInputNames(std::vector<std::string>& names) { Strings::inputNames(names); }

  int* findInt(int key) override { return find<Ints>(m_ints, key); }
  float* findFloat(int key) override { return find<Floats>(m_floats, key); }
  std::string* findString(int key) override { return find<Strings>(m_strings, key); }

 private:
  static_assert(slotsAreSound<Block>(), "a key or a name of the slot list is used twice or out of range");

  template <SlotGroup slotGroup>
  struct Layout : SlotLayout<Block, slotGroup> {
    static constexpr SlotGroup group = slotGroup;
  };
  using Ints = Layout<SlotGroup::Int>;
  using Floats = Layout<SlotGroup::Float>;
  using Strings = Layout<SlotGroup::String>;

  static constexpr auto intDefaults = Ints::defaults(&Slot::intDefault);
  static constexpr auto floatDefaults = Floats::defaults(&Slot::floatDefault);
  static constexpr auto textDefaults = Strings::defaults(&Slot::textDefault);

  template <class Group, class Enum>
  static std::size_t position(Enum key) {
    const std::uint16_t found = Group::positionOf(static_cast<int>(key));
    if (found == Group::absent) throwUnknownKey(Block::name, Group::group, static_cast<int>(key));
    return found;
  }

  template <class Group, class Values>
  static auto* find(Values& values, int key) {
    const std::uint16_t found = Group::positionOf(key);
    return found == Group::absent ? nullptr : values.data() + found;
  }

  template <class Enum, class Group>
  static Enum enumerator(std::string_view name) {
    const int key = Group::keyOf(name);
    if (key < 0) throwUnknownName(Block::name, Group::group, name);
    return static_cast<Enum>(key);
  }

  void setDefaultTexts() {
    for (std::size_t i = 0; i < Strings::count; ++i) m_strings[i] = textDefaults[i];
  }

  std::array<int, Ints::count> m_ints;
  std::array<float, Floats::count> m_floats;
  std::array<std::string, Strings::count> m_strings;
};

}  // namespace kvxm
