#pragma once

#include <variant>

#include "engine/base/components/KVXEGenericGridLocation.h"
#include "engine/base/components/KVXEGenericGridPanel.h"
#include "engine/base/components/KVXEGenericLeaves.h"
#include "engine/base/components/KVXEGenericRadioButtons.h"

class GenericGuiComponent;

/// A cell of a grid panel: one leaf or grid panel, with its location. To a front end the cell and what stands
/// in it are one thing, so they have one uid.
class KVXEGenericGuiComponent final : public kvxe::Component<KVXEGenericBase, GenericGuiComponent> {
 public:
  explicit KVXEGenericGuiComponent(const std::string& lid, KVXEGenericBase* parent = nullptr)
      : Component(lid, parent), m_location("Location", this) {}

  /// A new leaf in the place of any that was there.
  template <class Leaf>
  Leaf& create() {
    Leaf& leaf = m_leaf.emplace<Leaf>(getLid(), this);
    markChanged();
    return leaf;
  }
  /// Null when the cell is empty.
  KVXEGenericBase* getLeaf();
  KVXEGenericGridLocation& getLocation() { return m_location; }

  std::string getChildUid(const std::string& lid) const override {
    return lid == getLid() ? getUid() : Component::getChildUid(lid);
  }
  bool populate(GenericGuiComponent* component) const;
  void reset() override;

 private:
  std::variant<std::monostate, KVXEGenericCheckBox, KVXEGenericRadioButtonGroup, KVXEGenericTextField,
               KVXEGenericFileTextField, KVXEGenericComboBox, KVXEGenericLabel, KVXEGenericSpinner,
               KVXEGenericButton, KVXEGenericGridPanel>
      m_leaf;
  KVXEGenericGridLocation m_location;
};

template <class Leaf>
Leaf& KVXEGenericGridPanel::addComponent(const std::string& lid, int row, int column, int rowSpan,
                                         int columnSpan) {
  KVXEGenericGuiComponent& cell = addCell(lid);
  KVXEGenericGridLocation& location = cell.getLocation();
  location.setRow(row);
  location.setColumn(column);
  location.setRowSpan(rowSpan);
  location.setColumnSpan(columnSpan);
  return cell.create<Leaf>();
}
