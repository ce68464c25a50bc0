#include "engine/base/components/KVXEGenericRadioButtons.h"

#include "messages/generic_components.pb.h"

KVXEGenericRadioButtonGroup::KVXEGenericRadioButtonGroup(const std::string& lid, KVXEGenericBase* parent)
    : Component(lid, parent) {}

KVXEGenericRadioButtonGroup::~KVXEGenericRadioButtonGroup() = default;

KVXEGenericRadioButton& KVXEGenericRadioButtonGroup::addRadioButton(const std::string& lid) {
  return m_radioButtons.add(lid, this);
}

bool KVXEGenericRadioButtonGroup::populate(GenericRadioButtonGroup* group) const {
  return Component::populate(group, [this](GenericRadioButtonGroup& message) {
    m_radioButtons.populate(message.mutable_radiobuttons());
  });
}

void KVXEGenericRadioButtonGroup::reset() {
  m_radioButtons.clear();
  Component::reset();
}
