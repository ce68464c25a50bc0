#pragma once

#include <ostream>
#include <string>

/// The enumerations of the workbook. Each one made by KVXE_TEXT_ENUM is numbered from 0 in the order of its
/// list, ends in `NumItems`, and has a text form and checked arithmetic (see the templates below).
namespace KVXEEnums {

/// Connects an enumeration with the comma-separated list of its members.
template <class E>
struct EnumList;

/// An enumeration of the scheme.
template <class E>
concept TextEnum = requires {
  EnumList<E>::members;
};

// One list gives the members, their names and their count.
#define KVXE_TEXT_ENUM(E, ...)                           \
  enum class E : unsigned short { __VA_ARGS__ };         \
  template <>                                            \
  struct EnumList<E> {                                   \
    static constexpr const char* members = #__VA_ARGS__; \
  };

/// The type of the value that a cell holds.
KVXE_TEXT_ENUM(CellType, INT, FLOAT, STRING, HEADER, NumItems)

/// What a KVXEUID names; the value is the level in the lineage.
KVXE_TEXT_ENUM(AtomType, BOOK, TAB, TABLE, ROW, CELL, NumItems)

/// Who set a cell's value last.
KVXE_TEXT_ENUM(ValueSource, USER, XML, FORMULA, IP, DEFAULT, NumItems)

/// The viewer level from which on something is shown.
KVXE_TEXT_ENUM(Visibility, EXTERNAL, INTERNAL, DEVELOPER, ALWAYS_HIDDEN, NumItems)

/// The spellings of a KVXETitle.
KVXE_TEXT_ENUM(TitleType, DISPLAY, SW, LVR, KVX, RP, NumItems)

/// The state of a cell: engine side first, front-end side second (see KVXECellStateMgr).
KVXE_TEXT_ENUM(CellState, HEADER_DISABLED, HEADER_DIRTY, HEADER_CLEAN, DIRTY_DISABLED, CLEAN_DISABLED,
               DIRTY_DIRTY, CLEAN_DIRTY, DIRTY_CLEAN, CLEAN_CLEAN, DISABLED_DIRTY, DISABLED_DISABLED,
               NumItems)

/// Display units. A `_HIDE` member is its `_SHOW` partner without a suffix; the value is the unit's row in
/// the units table.
KVXE_TEXT_ENUM(Unit, DUMMY, NO_UNIT, POWER_SHOW, POWER_HIDE, CURRENT_SHOW, CURRENT_HIDE, VOLTAGE_SHOW,
               VOLTAGE_HIDE, PERCENTAGE_SHOW, PERCENTAGE_HIDE, FREQUENCY_SHOW, FREQUENCY_HIDE,
               TEMPERATURE_SHOW, TEMPERATURE_HIDE, POWER_FIXED_mW_SHOW, POWER_FIXED_mW_HIDE,
               CURRENT_FIXED_mA_SHOW, CURRENT_FIXED_mA_HIDE, FIXED_THETAJA_SHOW, FIXED_THETAJA_HIDE,
               FIXED_Mbps_SHOW, FIXED_Mbps_HIDE, FIXED_Gbps_SHOW, FIXED_Gbps_HIDE, NumItems)

/// The tabs of a book in their order, with marker members that group them: a test whether a type lies
/// between two markers tells an estimation tab, a hard block tab or a correlation tab.
KVXE_TEXT_ENUM(TabType, SUMMARY_CONSOLE, SUMMARY, ESTIMATION, ESTIMATION_START, PS, PSW, MXE, NOC_DDRMC,
               CLOCK, LOGIC, BRAM, WRAM, MPRAM, DSP, IO, Y7IO, HBM, XCVRA, XCVRD, XCVRC, XCVRB, MXE2, NICB,
               OTHER, HARD_BLOCKS, HARD_BLOCKS_START, HIC, PCIE, HIC5, PCIE5, EMMAC, ILKN, EBMAC, FEC, CRE,
               VCU, VDU, SYSMON, EAMAC, HARD_BLOCKS_END, FSYN, PLL, ESTIMATION_END, POWER_DESIGN,
               POWER_MANAGEMENT, CORRELATION, CORRELATION_START, CORRELATION_SUMMARY, CORRELATION_HW,
               CORRELATION_END, DEBUG, NumItems)

#undef KVXE_TEXT_ENUM

/// The edits of table rows that a user can ask for.
enum class TableOperation : unsigned short { INSERT, DELETE, DUPLICATE, PASTE, FILL_DOWN, CLEAR };

/// The kind of a table in the front end's grid.
enum class GridComponentType : unsigned short { TABLE, DEVICE_SELECTION, SPACER, IMAGE };

/// The numeric value of `value`.
template <class E>
void enum_to_ushort(E value, unsigned short& number) {
  number = static_cast<unsigned short>(value);
}

/// The member with this number; one above `NumItems` is reported on standard error and gives `NumItems`.
template <class E>
void ushort_to_enum(unsigned short number, E& value);

/// Stores `NumItems` and returns its number.
template <class E>
unsigned short num_enum_items(E& value) {
  value = E::NumItems;
  return static_cast<unsigned short>(value);
}

/// The member's name; empty beyond the names.
template <class E>
void enum_to_string(E value, std::string& name);

/// The member of that name; an unknown one is reported on standard error and gives `NumItems`.
template <class E>
void string_to_enum(const std::string& name, E& value);

/// Steps that stay inside the enumeration: at its end or start they report and leave the value.
template <TextEnum E>
E& operator++(E& value);
template <TextEnum E>
E& operator--(E& value);

template <TextEnum E>
E operator++(E& value, int) {
  const E old = value;
  ++value;
  return old;
}

template <TextEnum E>
E operator--(E& value, int) {
  const E old = value;
  --value;
  return old;
}

/// The member's name, for the places that want it as a value.
template <class E>
std::string nameOf(E value) {
  std::string name;
  enum_to_string(value, name);
  return name;
}

template <TextEnum E>
std::ostream& operator<<(std::ostream& out, const E& value) {
  return out << nameOf(value);
}

}  // namespace KVXEEnums
