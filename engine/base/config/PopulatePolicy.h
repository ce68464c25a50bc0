#pragma once

class KVXECell;

namespace kvxe {

/// How cells are left after a record was written into them.
enum class PopulatePolicy : unsigned int {
  DefaultEditable,
  ForceReadonly,
  ForceEditable,
  ForceEditableExceptName,
  CustomEditable,  ///< by TableTraits<A, T>::getEditableFlags, for records that have it
};

namespace detail {

/// What a policy does to each cell that was written.
class CellEditabilityRule {
 public:
  virtual ~CellEditabilityRule() = default;
  /// `column` counts the columns of the record; 0 is its name.
  virtual void operator()(KVXECell& cell, unsigned int column) const = 0;
};

/// Leaves the cell as the table defines it.
class DefaultEditable final : public CellEditabilityRule {
  void operator()(KVXECell& cell, unsigned int column) const override;
};

class ForceReadonly final : public CellEditabilityRule {
  void operator()(KVXECell& cell, unsigned int column) const override;
};

class ForceEditable final : public CellEditabilityRule {
  void operator()(KVXECell& cell, unsigned int column) const override;
};

class ForceEditableExceptName final : public CellEditabilityRule {
  void operator()(KVXECell& cell, unsigned int column) const override;
};

}  // namespace detail
}  // namespace kvxe
