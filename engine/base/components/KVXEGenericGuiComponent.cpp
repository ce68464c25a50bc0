#include "engine/base/components/KVXEGenericGuiComponent.h"

#include "messages/generic_components.pb.h"

KVXEGenericRectangle& KVXEGenericGridLocation::createBounds() {
  markChanged();
  return m_bounds.emplace("Bounds", this);
}

bool KVXEGenericGridLocation::populate(GenericGridLocation* location) const {
  return Component::populate(location, [this](GenericGridLocation& message) {
    if (m_bounds) {
      m_bounds->populate(message.mutable_bounds());
    } else {
      message.clear_bounds();
    }
  });
}

void KVXEGenericGridLocation::reset() {
  m_bounds.reset();
  Component::reset();
}

namespace {

/// Sends a leaf as its case of the message; making one case present drops any other.
struct LeafWriter {
  GenericGuiComponent& message;

  void operator()(std::monostate) const { message.clear_component(); }
  void operator()(const KVXEGenericCheckBox& leaf) const { leaf.populate(message.mutable_checkbox()); }
  void operator()(const KVXEGenericRadioButtonGroup& leaf) const {
    leaf.populate(message.mutable_radiobuttongroup());
  }
  void operator()(const KVXEGenericTextField& leaf) const { leaf.populate(message.mutable_textfield()); }
  void operator()(const KVXEGenericFileTextField& leaf) const {
    leaf.populate(message.mutable_filetextfield());
  }
  void operator()(const KVXEGenericComboBox& leaf) const { leaf.populate(message.mutable_combobox()); }
  void operator()(const KVXEGenericLabel& leaf) const { leaf.populate(message.mutable_label()); }
  void operator()(const KVXEGenericSpinner& leaf) const { leaf.populate(message.mutable_spinner()); }
  void operator()(const KVXEGenericButton& leaf) const { leaf.populate(message.mutable_button()); }
  void operator()(const KVXEGenericGridPanel& leaf) const { leaf.populate(message.mutable_gridpanel()); }
};

struct LeafReader {
  KVXEGenericBase* operator()(std::monostate) const { return nullptr; }
  KVXEGenericBase* operator()(KVXEGenericBase& leaf) const { return &leaf; }
};

}  // namespace

KVXEGenericBase* KVXEGenericGuiComponent::getLeaf() {
  return std::visit(LeafReader(), m_leaf);
}

bool KVXEGenericGuiComponent::populate(GenericGuiComponent* component) const {
  return Component::populate(component, [this](GenericGuiComponent& message) {
    std::visit(LeafWriter{message}, m_leaf);
    m_location.populate(message.mutable_location());
  });
}

void KVXEGenericGuiComponent::reset() {
  m_leaf.emplace<std::monostate>();
  m_location.reset();
  Component::reset();
}
