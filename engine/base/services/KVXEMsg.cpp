#include "engine/base/services/KVXEMsg.h"

KVXEMsg::KVXEMsg(KvxSeverity severity, const std::string& text) : m_severity(severity) {
  setDisplayText(text);
}

void KVXEMsg::setDisplayText(const std::string& text) {
  const bool isPlain =
      !text.empty() && text.find("<HTML>") == std::string::npos && text.find("<html>") == std::string::npos;
  m_displayText = isPlain ? "<html>" + text + "</html>" : text;
}

int KVXEMsg::getHGenTableSeverity() const {
  switch (m_severity) {
    case KvxSeverity::NONE:
      return 100;
    case KvxSeverity::WARNING:
      return 300;
    case KvxSeverity::ERROR:
      return 400;
    default:
      return 200;
  }
}
