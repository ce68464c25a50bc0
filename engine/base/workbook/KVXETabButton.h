#pragma once

#include <optional>
#include <string>
#include <variant>

#include "engine/base/components/KVXEGenericLeaves.h"

class KvxButtonData;

/// What the front end does by itself when a tab button is pressed.
enum class KvxButtonOperation : unsigned int { NONE = 1, GO_TO_SUMMARY = 2, AUTO_FIT_COLUMNS = 3 };

/// A button on a tab: either kind of button, outside any dialog, and the operation that it stands for.
class KVXETabButton {
 public:
  /// `std::in_place_type<KVXEGenericButton>` or of the file chooser button says which kind it is.
  template <class Kind>
  KVXETabButton(std::in_place_type_t<Kind> kind, const std::string& id, std::optional<unsigned int> operation)
      : m_button(kind, id), m_operation(operation) {}

  /// The component, for the properties of either kind.
  KVXEGenericBase& getButton() {
    return std::visit([](KVXEGenericBase& button) -> KVXEGenericBase& { return button; }, m_button);
  }
  const KVXEGenericBase& getButton() const {
    return std::visit([](const KVXEGenericBase& button) -> const KVXEGenericBase& { return button; },
                      m_button);
  }

  const std::string& getId() const { return getButton().getUid(); }
  // Empty when there is none; and an empty text is none.
  std::string getText() const;
  std::string getToolTip() const;
  void setText(const std::string& text);
  void setToolTip(const std::string& toolTip);

  bool hasOperation() const { return m_operation.has_value(); }
  /// 1 when there is none.
  unsigned int getOperation() const { return m_operation.value_or(1); }
  bool getIsEnabled() const { return m_isEnabled; }
  void setIsEnabled(bool isEnabled) { m_isEnabled = isEnabled; }

  /// False for a null message.
  bool populate(KvxButtonData* data) const;

 private:
  std::variant<KVXEGenericButton, KVXEGenericFileChooserButton> m_button;
  std::optional<unsigned int> m_operation;
  bool m_isEnabled = true;
};
