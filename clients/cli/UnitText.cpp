#include "clients/cli/UnitText.h"

#include <charconv>
#include <cmath>

namespace kvx {

namespace {

using KVXEEnums::Unit;

enum class Quantity {
  None,
  Power,
  Current,
  Voltage,
  Share,
  Frequency,
  Temperature,
  Resistance,
  Megabits,
  Gigabits
};

struct UnitSuffix {
  Quantity quantity;
  const char* text;
  double perStored;  // how many of this unit make one of the stored unit
  double offset = 0;
};

constexpr UnitSuffix Suffixes[] = {
    {Quantity::Power, "W", 1},
    {Quantity::Power, "mW", 1e3},
    {Quantity::Power, "uW", 1e6},
    {Quantity::Current, "A", 1},
    {Quantity::Current, "mA", 1e3},
    {Quantity::Current, "uA", 1e6},
    {Quantity::Voltage, "V", 1},
    {Quantity::Voltage, "mV", 1e3},
    {Quantity::Share, "%", 100},
    {Quantity::Frequency, "MHz", 1},
    {Quantity::Frequency, "kHz", 1e3},
    {Quantity::Frequency, "GHz", 1e-3},
    {Quantity::Frequency, "Hz", 1e6},
    {Quantity::Temperature, "C", 1},
    {Quantity::Temperature, "F", 1.8, 32},
    {Quantity::Resistance, "C/W", 1},
    {Quantity::Megabits, "Mbps", 1},
    {Quantity::Megabits, "Gbps", 1e-3},
    {Quantity::Gigabits, "Gbps", 1},
    {Quantity::Gigabits, "Mbps", 1e3},
};

Quantity quantityOf(Unit unit) {
  switch (unit) {
    case Unit::POWER_SHOW:
    case Unit::POWER_HIDE:
    case Unit::POWER_FIXED_mW_SHOW:
    case Unit::POWER_FIXED_mW_HIDE:
      return Quantity::Power;
    case Unit::CURRENT_SHOW:
    case Unit::CURRENT_HIDE:
    case Unit::CURRENT_FIXED_mA_SHOW:
    case Unit::CURRENT_FIXED_mA_HIDE:
      return Quantity::Current;
    case Unit::VOLTAGE_SHOW:
    case Unit::VOLTAGE_HIDE:
      return Quantity::Voltage;
    case Unit::PERCENTAGE_SHOW:
    case Unit::PERCENTAGE_HIDE:
      return Quantity::Share;
    case Unit::FREQUENCY_SHOW:
    case Unit::FREQUENCY_HIDE:
      return Quantity::Frequency;
    case Unit::TEMPERATURE_SHOW:
    case Unit::TEMPERATURE_HIDE:
      return Quantity::Temperature;
    case Unit::FIXED_THETAJA_SHOW:
    case Unit::FIXED_THETAJA_HIDE:
      return Quantity::Resistance;
    case Unit::FIXED_Mbps_SHOW:
    case Unit::FIXED_Mbps_HIDE:
      return Quantity::Megabits;
    case Unit::FIXED_Gbps_SHOW:
    case Unit::FIXED_Gbps_HIDE:
      return Quantity::Gigabits;
    default:
      return Quantity::None;
  }
}

std::string_view trimmed(std::string_view text) {
  while (!text.empty() && (text.front() == ' ' || text.front() == '\t')) text.remove_prefix(1);
  while (!text.empty() && (text.back() == ' ' || text.back() == '\t')) text.remove_suffix(1);
  return text;
}

}  // namespace

std::optional<NumberText> NumberText::parse(std::string_view text) {
  text = trimmed(text);
  if (text.starts_with('+') && !text.starts_with("+-")) text.remove_prefix(1);
  NumberText result;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), result.number);
  if (error != std::errc() || !std::isfinite(result.number)) return std::nullopt;
  text.remove_prefix(static_cast<std::size_t>(end - text.data()));
  result.suffix = trimmed(text);
  if (result.suffix.find_first_of("0123456789.,;:") != std::string::npos) return std::nullopt;
  return result;
}

std::optional<double> toStored(const NumberText& text, Unit unit) {
  if (text.suffix.empty()) return text.number;
  for (const UnitSuffix& suffix : Suffixes)
    if (suffix.quantity == quantityOf(unit) && text.suffix == suffix.text)
      return (text.number - suffix.offset) / suffix.perStored;
  return std::nullopt;
}

std::vector<std::string> unitsOf(Unit unit) {
  std::vector<std::string> texts;
  for (const UnitSuffix& suffix : Suffixes)
    if (suffix.quantity == quantityOf(unit)) texts.emplace_back(suffix.text);
  return texts;
}

}  // namespace kvx
