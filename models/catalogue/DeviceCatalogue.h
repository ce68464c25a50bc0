#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace kvxm {

/// The device architectures. Som modules carry a Morlan device.
enum class Architecture { Tarvek, Morlan, Som };

/// "Tarvek", "Morlan" or "Som".
std::string_view architectureText(Architecture architecture);

/// The architecture named by its own name or by its product name ("Arkeon", "Hexaline+", "Ludra"); Tarvek for
/// any other text.
Architecture architectureFromText(std::string_view text);

/// One orderable part: a device in a package and grade.
struct Part {
  std::string name;         ///< as printed: "AK1080-VSVA1024_2-MP-E-S", "HB240-LFRC1156_2LV-I"
  std::string key;          ///< as the catalogue lists it: "AK1080_VSVA1024_2MPES", "HB240_LFRC1156_2LVI"
  std::string device;       ///< device name
  std::string package;      ///< four capital letters and the number of balls
  std::string speed;        ///< "1" to "3"; on Morlan with letters, "2LV"
  std::string voltage;      ///< voltage grade of a Tarvek part: LP, LHP, LLI, MP, MHP, MM, HP; else blank
  std::string temperature;  ///< temperature grade letter
  std::string screen;       ///< static screen of a Tarvek part, "S" or "L"; else blank
  std::string status;       ///< PRODUCTION, PRELIMINARY, PREVIEW or ADVANCE

  /// The code by which supply ranges differ: the voltage grade on Tarvek, the speed field on Morlan.
  const std::string& supplyGrade() const { return voltage.empty() ? speed : voltage; }
};

/// Limits of a supply in volts; all zero when the rail is unknown.
struct VoltageRange {
  float min = 0;
  float nom = 0;
  float max = 0;
};

/// The limits of a supply for some grades; no grades stand for every grade.
struct GradedVoltageRange {
  std::vector<std::string> grades;
  VoltageRange volts;
};

/// One supply rail of a device.
///
/// Its leakage at voltage V and junction temperature T in degrees C, typical process:
///   P = leakageWatts * (V / referenceVolts())^(voltageExponent + 1) * exp(beta * (T - 25))
struct Supply {
  std::string rail;         ///< internal name: "VCCRAM"
  std::string displayName;  ///< as shown: "VCC_RAM"
  std::string category;     ///< group in the power design: PMC, LPD, FPD, SYSTEM_AUX, SYSTEM_CORE, PL_CORE,
                            ///< IO, XCVRA, XCVRD, XCVRC, HBM, BATT, OTHER
  std::vector<std::string> requiredResources;  ///< the rail exists when the device has any; none: always
  std::vector<GradedVoltageRange> ranges;      ///< at least one
  float leakageWatts = 0;                      ///< at 25 C, typical process, referenceVolts()
  float beta = 0;                              ///< temperature coefficient of leakage, per kelvin
  float voltageExponent = 0;                   ///< leakage current goes with (V/Vref)^voltageExponent

  /// Limits for a grade code (see Part::supplyGrade): its own, else those of every grade, else the first.
  const VoltageRange& rangeFor(std::string_view grade) const;
  /// The voltage at which leakageWatts holds: the nominal of the first range.
  float referenceVolts() const { return ranges.front().volts.nom; }
};

/// One device with all that is known of it.
struct Device {
  Architecture architecture = Architecture::Tarvek;
  std::string family;
  std::string name;
  std::string baseDevice;          ///< the Morlan device of a Som module; else blank
  bool supportsExcursion = false;  ///< junction excursions to 110 C are allowed
  float maxProcessLeakage = 2;     ///< leakage of the maximum process over the typical one
  float thetaJa = 1;               ///< a start value for the effective thermal resistance, C/W
  std::vector<std::pair<std::string, int>> resources;         ///< name and count, in file order, none zero
  std::vector<Supply> supplies;                               ///< only rails that the device has
  std::vector<std::string> packages;                          ///< in file order
  std::vector<std::pair<std::string, int>> maxVccintCurrent;  ///< by package, amperes
  std::vector<Part> parts;                                    ///< in file order; none on a Som module

  /// Count of a resource, 0 when the device has none.
  int resource(std::string_view resourceName) const;
  /// The rail by internal or display name, null when the device has none such.
  const Supply* supply(std::string_view railName) const;
  /// Maximum VCCINT current in amperes, 0 when unknown.
  int maxCurrent(std::string_view package) const;
};

/// One device family.
struct Family {
  Architecture architecture = Architecture::Tarvek;
  std::string name;          ///< as shown: "Arkeon Core"
  std::string internalName;  ///< as tools write it: "arkeoncore"
  std::string defaultPart;   ///< printed name of the part that a new choice of the family starts with
};

/// One orderable module: a board with a module kind and grade.
struct SomModule {
  std::string key;           ///< "SM6_CUSTOM_I"
  std::string family;        ///< "Ludra"
  std::string board;         ///< "Custom" or the name of a starter kit
  std::string device;        ///< module kind: "SM4" or "SM6"
  std::string grade;         ///< "Industrial" or "Commercial"
  std::string temperature;   ///< "I" or "C"
  std::string talmorDevice;  ///< the part name that the implementation tool uses
  std::string basePart;      ///< printed name of the Morlan part on the module
  std::string status;        ///< as in Part
  bool isDefault = false;    ///< the family's default
};

/// Every device, part, family and module in force. Built on first use; reloadModelData() replaces it, and
/// pointers into it end with that.
class DeviceCatalogue {
 public:
  static const DeviceCatalogue& getGlobal();

  DeviceCatalogue() = default;
  DeviceCatalogue(std::vector<Family> families, std::vector<Device> devices, std::vector<SomModule> modules);

  const std::vector<Device>& devices() const { return m_devices; }
  const std::vector<Family>& families() const { return m_families; }
  const std::vector<SomModule>& modules() const { return m_modules; }

  /// The device by its own name, by any of its parts' names or keys, or by a module's; in any letter case.
  /// Null if unknown. The marker "-X-X-X-X-X" of a generic part counts as no grade at all.
  const Device* findDevice(std::string_view deviceOrPart) const;
  /// The part by its printed name or key, in any letter case; null if unknown.
  const Part* findPart(std::string_view nameOrKey) const;
  /// The family by its shown or internal name; null if unknown.
  const Family* findFamily(std::string_view name) const;
  /// The module by its key or the implementation tool's name, in any letter case; null if unknown.
  const SomModule* findModule(std::string_view keyOrName) const;

 private:
  struct Entry {
    std::size_t device = 0;
    std::size_t part = 0;  ///< index + 1 into the device's parts, or the modules; 0 for the device itself
  };
  const Entry* find(std::string_view name) const;

  std::vector<Family> m_families;
  std::vector<Device> m_devices;
  std::vector<SomModule> m_modules;
  std::unordered_map<std::string, Entry> m_index;  ///< by name in capitals without separators
};

}  // namespace kvxm
