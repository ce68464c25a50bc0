#pragma once

#include <array>
#include <span>
#include <string>
#include <vector>

#include "engine/base/workbook/KVXEEnums.h"

/// What an architecture declares about the on-chip power tables of its summary.
namespace kvxe {

/// A row for a block. It exists on a device that has any of the needed resources and none of the excluding
/// ones.
struct OnchipComponent {
  std::string text;
  std::vector<std::string> needs = {};  ///< none: every device
  std::vector<std::string> lacks = {};
};

/// A heading with its components. A category of one component of the same name is a single row. A component
/// that heads a category of its own only says where that category belongs.
struct OnchipCategory {
  std::string text;
  std::vector<OnchipComponent> components;

  bool isLoneRow() const { return components.size() == 1 && components.front().text == text; }
};

/// Where the dynamic power of a row stands: in one cell of another tab's table, or, without a table, in the
/// tab as a whole. Tables and columns go by the programmatic spelling of their titles, so that a tab that is
/// not built yet can be named.
struct OnchipSource {
  enum class Join {
    Add,
    Else
  };  ///< added to the row's other sources, or read when those before gave nothing

  std::string row;
  KVXEEnums::TabType tab;
  std::string table = {};
  std::string key = {};
  std::string keyColumn = {};
  std::string valueColumn = {};
  Join join = Join::Add;
};

/// The static power of a row: the sum of products of results of the static model, by their keys.
struct OnchipStaticTerm {
  using Product = std::array<int, 2>;  ///< keys of the factors; 0 is none

  const char* row;
  std::array<Product, 4> products;
  bool isScaled = false;  ///< times the factor that the architecture gives
};

/// Whether the selected device has what the component needs.
bool isValidComp(const OnchipComponent& component);
/// Whether any component of the category, or of one below it, exists on the device.
bool isValidCategory(const OnchipCategory& category, std::span<const OnchipCategory> all);

}  // namespace kvxe
