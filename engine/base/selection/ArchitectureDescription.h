#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "engine/base/selection/GradeTable.h"
#include "engine/base/workbook/KVXEEnums.h"
#include "models/catalogue/PartsQueries.h"

namespace kvxe {

/// A drop-down of the device choice whose values the catalogue decides.
struct CascadeSetting {
  enum class Order { Catalogue, Alphabetic, Natural };

  const std::string* name;
  Order order = Order::Catalogue;
  std::string kvxm::Part::*field = nullptr;  ///< null when the value follows from the device
  const GradeTable* grades = &plainCodes;
};

/// One part as the codes of its settings, in the order of a cascade. In a pattern a blank code agrees with
/// any.
using PartCodes = std::vector<std::string>;

/// The different codes of one column among the parts that agree with the pattern, in catalogue order.
std::vector<std::string> distinctCodes(const std::vector<PartCodes>& parts, const PartCodes& pattern,
                                       std::size_t column);

/// Device grades by the letters that devices of a grade begin with, as older files name a grade, too.
inline constexpr std::string_view qcDeviceGrade = "QC", qqDeviceGrade = "QQ - Defence",
                                  qaDeviceGrade = "QA - Automotive";
inline constexpr GradeMark deviceGradeMarks[] = {
    {"QQ", "", qqDeviceGrade}, {"QA", "", qaDeviceGrade}, {"", "", qcDeviceGrade}};
inline constexpr GradeTable deviceGrades{{}, deviceGradeMarks};

/// What distinguishes the device choice of one architecture from another's.
struct ArchitectureDescription {
  kvxm::Architecture architecture = kvxm::Architecture::Tarvek;
  const kvxm::PartsQueries* parts = nullptr;  ///< null for an architecture of modules
  std::string_view defaultPart{};
  std::span<const CascadeSetting> cascade{};
  bool hasCoreVoltage = false;                           ///< a hidden setting that follows the voltage grade
  std::span<const KVXEEnums::TabType> tabs{};            ///< shown on every device
  std::span<const std::string_view> ignoredResources{};  ///< resources that have no tab of their own

  /// Column of the cascade with that name, or of that field; the cascade's size if there is none.
  std::size_t columnOf(std::string_view settingName) const;
  std::size_t columnOf(std::string kvxm::Part::*field) const;
  /// The grades of a column; plain codes for one beyond the cascade.
  const GradeTable& gradesAt(std::size_t column) const;
};

}  // namespace kvxe
