#pragma once

#include <map>
#include <string>
#include <utility>

class KvxHandshakeData;
class KvxMessageDialogData;

/// Collects what the user is to be told during one handshake. The reply carries the lines as one dialog; what
/// was added outside a handshake waits for the next.
///
/// A line is known by the place in the sources that reports it, so that a place that is passed many times
/// speaks once, the first time, and the lines stand in the order of the sources.
class KVXEHandshakeDialog {
 public:
  static KVXEHandshakeDialog& getGlobal();

  /// Adds a line: 1 is a plain message, 2 a warning, 3 an error.
  void appendHSMsg(const std::string& file, int line, int severity, const std::string& text);
  /// The same with the title of the dialog; the last title wins.
  void appendHSMsg(const std::string& file, int line, int severity, const std::string& text,
                   const std::string& title);

  /// Moves the lines into the reply, with the severity of the first of them. Returns the reply's dialog, or
  /// null when there is nothing to tell or no reply.
  KvxMessageDialogData* populateMessageDialogData(KvxHandshakeData* data);

  bool hasMessages() const { return !m_messages.empty(); }
  void reset();

 private:
  std::map<std::string, std::pair<int, std::string>> m_messages;  // (severity, text) by "file:00042"
  bool m_hasTitle = false;
  std::string m_title;
};
