#pragma once

#include "engine/base/components/Children.h"
#include "engine/base/components/Component.h"

class GenericRadioButton;
class GenericRadioButtonGroup;
class KVXEGenericRadioButton;

/// Buttons of which one is selected.
class KVXEGenericRadioButtonGroup
    : public kvxe::Component<KVXEGenericBase, GenericRadioButtonGroup, kvxe::has::Caption, kvxe::has::Tooltip,
                             kvxe::has::IsDisabled> {
 public:
  explicit KVXEGenericRadioButtonGroup(const std::string& lid, KVXEGenericBase* parent = nullptr);
  ~KVXEGenericRadioButtonGroup() override;

  KVXEGenericRadioButton& addRadioButton(const std::string& lid);
  const kvxe::Children<KVXEGenericRadioButton>& getRadioButtons() const { return m_radioButtons; }

  bool populate(GenericRadioButtonGroup* group) const;
  void reset() override;

 private:
  kvxe::Children<KVXEGenericRadioButton> m_radioButtons;
};

/// One button of a group. It has what a group has but the buttons, and whether it is selected.
class KVXEGenericRadioButton final
    : public kvxe::Component<KVXEGenericRadioButtonGroup, GenericRadioButton, kvxe::has::IsSelected> {
 public:
  using Component::Component;

 private:
  using KVXEGenericRadioButtonGroup::addRadioButton;
  using KVXEGenericRadioButtonGroup::getRadioButtons;
};
