#pragma once

#include "engine/base/components/Children.h"
#include "engine/base/components/Component.h"

class GenericGridPanel;
class KVXEGenericGuiComponent;

KVXE_CHILDREN(KVXEGenericGuiComponent, Cell, components)

/// A panel that lays out components in the cells of a grid. A grid panel may stand in a cell of another.
class KVXEGenericGridPanel final
    : public kvxe::Component<KVXEGenericBase, GenericGridPanel, kvxe::has::Caption, kvxe::has::RowCount,
                             kvxe::has::ColumnCount, kvxe::has::IsBordered, kvxe::has::IsHidden,
                             kvxe::has::Cells> {
 public:
  explicit KVXEGenericGridPanel(const std::string& lid, KVXEGenericBase* parent = nullptr);
  ~KVXEGenericGridPanel() override;

  /// Puts a new leaf, for instance a KVXEGenericComboBox, or a grid panel in a cell. The panel owns it. Needs
  /// KVXEGenericGuiComponent.h.
  template <class Leaf>
  Leaf& addComponent(const std::string& lid, int row, int column, int rowSpan = 1, int columnSpan = 1);
};
