#pragma once

#include <optional>
#include <string>
#include <variant>

/// A button of a dialog or a tab.
struct KVXEGenericButton {
  std::string id;
  std::string text;
  std::string toolTip;
};

/// A button that first asks for a file.
struct KVXEGenericFileChooserButton {
  std::string id;
  std::string text;
  std::string toolTip;
  std::string fileFilter;
  unsigned int dialogWidth = 0;
};

/// What the front end does by itself when a tab button is pressed.
enum class KvxButtonOperation : unsigned int { NONE = 1, GO_TO_SUMMARY = 2, AUTO_FIT_COLUMNS = 3 };

/// A button on a tab: either kind, and the operation that it stands for.
class KVXETabButton {
 public:
  using Button = std::variant<KVXEGenericButton, KVXEGenericFileChooserButton>;

  KVXETabButton(Button button, std::optional<unsigned int> operation)
      : m_button(std::move(button)), m_operation(operation) {}

  const Button& getButton() const { return m_button; }
  const std::string& getId() const {
    return std::visit([](const auto& b) -> const std::string& { return b.id; }, m_button);
  }
  const std::string& getText() const {
    return std::visit([](const auto& b) -> const std::string& { return b.text; }, m_button);
  }
  const std::string& getToolTip() const {
    return std::visit([](const auto& b) -> const std::string& { return b.toolTip; }, m_button);
  }
  void setText(const std::string& text) {
    std::visit([&](auto& b) { b.text = text; }, m_button);
  }
  void setToolTip(const std::string& toolTip) {
    std::visit([&](auto& b) { b.toolTip = toolTip; }, m_button);
  }
  bool hasOperation() const { return m_operation.has_value(); }
  /// 1 when there is none.
  unsigned int getOperation() const { return m_operation.value_or(1); }
  bool getIsEnabled() const { return m_isEnabled; }
  void setIsEnabled(bool isEnabled) { m_isEnabled = isEnabled; }

 private:
  Button m_button;
  std::optional<unsigned int> m_operation;
  bool m_isEnabled = true;
};
