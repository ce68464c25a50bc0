#include "engine/base/workbook/KVXETabButton.h"

#include "messages/book.pb.h"

std::string KVXETabButton::getText() const {
  std::string text;
  getButton().getText(text);
  return text;
}

std::string KVXETabButton::getToolTip() const {
  std::string toolTip;
  getButton().getTooltip(toolTip);
  return toolTip;
}

void KVXETabButton::setText(const std::string& text) {
  text.empty() ? getButton().clearText() : getButton().setText(text);
}

void KVXETabButton::setToolTip(const std::string& toolTip) {
  toolTip.empty() ? getButton().clearTooltip() : getButton().setTooltip(toolTip);
}

bool KVXETabButton::populate(KvxButtonData* data) const {
  if (!data) return false;
  data->set_isenabled(m_isEnabled);
  if (m_operation) {
    data->set_operation(static_cast<KvxButtonData_ButtonOperation>(*m_operation));
  } else {
    data->clear_operation();
  }
  if (const auto* button = std::get_if<KVXEGenericButton>(&m_button))
    return button->populate(data->mutable_genericbutton());
  return std::get<KVXEGenericFileChooserButton>(m_button).populate(data->mutable_genericfilechooserbutton());
}
