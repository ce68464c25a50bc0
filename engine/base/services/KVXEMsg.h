#pragma once

#include <string>

#include "engine/base/services/KvxSeverity.h"

/// One message to the user: a severity and the text that the screen shows.
class KVXEMsg {
 public:
  KVXEMsg(KvxSeverity severity, const std::string& text);

  KvxSeverity getSeverity() const { return m_severity; }
  void setSeverity(KvxSeverity severity) { m_severity = severity; }

  const std::string& getDisplayText() const { return m_displayText; }
  /// Stores the text, wrapped in `<html>` tags unless it is empty or holds such a tag already.
  void setDisplayText(const std::string& text);

  /// The severity on the scale of the front end's table: 100 to 400.
  int getHGenTableSeverity() const;

  bool operator==(const KVXEMsg&) const = default;

 private:
  KvxSeverity m_severity;
  std::string m_displayText;
};
