#include "engine/base/workbook/KVXEEnums.h"

#include <atomic>
#include <iostream>
#include <mutex>
#include <unordered_map>
#include <vector>

namespace KVXEEnums {
namespace {

// Built on first use, possibly from any thread; the acquire load keeps later calls free of the lock.
template <class E>
struct Names {
  std::vector<std::string> byValue;
  std::unordered_map<std::string, unsigned short> byName;

  static const Names& get() {
    static std::atomic<const Names*> ready{nullptr};
    static std::mutex mutex;
    static Names names;
    if (const Names* built = ready.load(std::memory_order_acquire)) return *built;
    const std::lock_guard lock(mutex);
    if (!ready.load(std::memory_order_relaxed)) {
      names.build(EnumList<E>::members);
      ready.store(&names, std::memory_order_release);
    }
    return names;
  }

 private:
  void build(const std::string& list) {
    std::string name;
    for (const char c : list + ",") {
      if (c == ' ') continue;
      if (c != ',') {
        name += c;
        continue;
      }
      byName.emplace(name, static_cast<unsigned short>(byValue.size()));
      byValue.push_back(std::move(name));
      name.clear();
    }
  }
};

}  // namespace

template <class E>
void ushort_to_enum(unsigned short number, E& value) {
  if (number > static_cast<unsigned short>(E::NumItems)) {
    std::cerr << "Out of bounds ushort_to_enum conversion for ushort " << number << '\n';
    value = E::NumItems;
    return;
  }
  value = static_cast<E>(number);
}

template <class E>
void enum_to_string(E value, std::string& name) {
  const auto& names = Names<E>::get().byValue;
  const auto index = static_cast<unsigned short>(value);
  name = index < names.size() ? names[index] : std::string();
}

template <class E>
void string_to_enum(const std::string& name, E& value) {
  const auto& names = Names<E>::get().byName;
  const auto found = names.find(name);
  if (found == names.end()) {
    std::cerr << "Out of bounds string_to_enum conversion for string " << name << '\n';
    value = E::NumItems;
    return;
  }
  value = static_cast<E>(found->second);
}

template <TextEnum E>
E& operator++(E& value) {
  if (value == E::NumItems) {
    std::cout << "Out of bounds prefix increment operator used." << '\n';
    return value;
  }
  return value = static_cast<E>(static_cast<unsigned short>(value) + 1);
}

template <TextEnum E>
E& operator--(E& value) {
  if (static_cast<unsigned short>(value) == 0) {
    std::cout << "Out of bounds prefix decrement operator used." << '\n';
    return value;
  }
  return value = static_cast<E>(static_cast<unsigned short>(value) - 1);
}

#define KVXE_INSTANTIATE(E)                                \
  template void ushort_to_enum<E>(unsigned short, E&);     \
  template void enum_to_string<E>(E, std::string&);        \
  template void string_to_enum<E>(const std::string&, E&); \
  template E& operator++<E>(E&);                           \
  template E& operator--<E>(E&);

KVXE_INSTANTIATE(CellType)
KVXE_INSTANTIATE(CellState)
KVXE_INSTANTIATE(AtomType)
KVXE_INSTANTIATE(TabType)
KVXE_INSTANTIATE(TitleType)
KVXE_INSTANTIATE(Visibility)
KVXE_INSTANTIATE(Unit)
KVXE_INSTANTIATE(ValueSource)

#undef KVXE_INSTANTIATE

}  // namespace KVXEEnums
