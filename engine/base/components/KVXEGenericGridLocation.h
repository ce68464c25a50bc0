#pragma once

#include <optional>

#include "engine/base/components/KVXEGenericLeaves.h"

class GenericGridLocation;

/// Where a component stands: a cell of a grid, how many cells it spans, and bounds within them.
class KVXEGenericGridLocation final
    : public kvxe::Component<KVXEGenericBase, GenericGridLocation, kvxe::has::Row, kvxe::has::Column,
                             kvxe::has::RowSpan, kvxe::has::ColumnSpan> {
 public:
  using Component::Component;

  /// New bounds, in the place of any that were there.
  KVXEGenericRectangle& createBounds();

  bool populate(GenericGridLocation* location) const;
  void reset() override;

 private:
  std::optional<KVXEGenericRectangle> m_bounds;
};
