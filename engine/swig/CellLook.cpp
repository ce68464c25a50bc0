#include "engine/swig/CellLook.h"

#include <bit>

#include "engine/base/workbook/KVXETemplateCell.h"

using KVXEEnums::CellType;

namespace kvxe {
namespace {

/// Mixes 64 bits at a time (the finaliser of MurmurHash3 by A. Appleby, public domain).
class Fingerprint {
 public:
  void add(std::uint64_t bits) {
    m_bits ^= bits + 0x9E3779B97F4A7C15u;
    m_bits = (m_bits ^ (m_bits >> 33)) * 0xFF51AFD7ED558CCDu;
    m_bits = (m_bits ^ (m_bits >> 33)) * 0xC4CEB9FE1A85EC53u;
    m_bits ^= m_bits >> 33;
  }
  void add(int value) { add(std::uint64_t{static_cast<std::uint32_t>(value)}); }
  void add(float value) { add(std::uint64_t{std::bit_cast<std::uint32_t>(value)}); }
  void add(const std::string& text) { add(std::uint64_t{std::hash<std::string>()(text)}); }

  std::uint64_t get() const { return m_bits != 0 ? m_bits : 1; }

 private:
  std::uint64_t m_bits = 0;
};

template <class T>
void addTyped(KVXETemplateCell<T>& cell, Fingerprint& look) {
  look.add(cell.readVal(true));
  const auto [least, most] = cell.getRange();
  look.add(least);
  look.add(most);
  if (!cell.hasOwnDDVals()) return;
  for (const T& entry : cell.getDDVals()) look.add(entry);
}

}  // namespace

std::uint64_t lookOf(KVXECell& cell) {
  Fingerprint look;
  switch (cell.getCellType()) {
    case CellType::INT:
      addTyped(static_cast<KVXEIntCell&>(cell), look);
      break;
    case CellType::FLOAT:
      addTyped(static_cast<KVXEFloatCell&>(cell), look);
      break;
    default:
      addTyped<std::string>(static_cast<KVXEStringCell&>(cell), look);
  }
  look.add(cell.getUnitMultiplier());
  look.add(cell.getUnitOffset());
  look.add(cell.getUnitSuffix());
  const auto [foreground, background] = cell.getColor();
  look.add(std::uint64_t{foreground} << 32 | background);
  look.add(static_cast<int>(cell.getIsEditable()));
  if (const KVXEMsg* message = cell.getMsg()) look.add(message->getDisplayText());
  return look.get();
}

}  // namespace kvxe
