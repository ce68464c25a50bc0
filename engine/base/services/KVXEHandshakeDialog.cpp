#include "engine/base/services/KVXEHandshakeDialog.h"

#include "messages/handshake.pb.h"
#include "models/common/KVXMHelperUtils.h"

KVXEHandshakeDialog& KVXEHandshakeDialog::getGlobal() {
  static KVXEHandshakeDialog dialog;
  return dialog;
}

void KVXEHandshakeDialog::appendHSMsg(const std::string& file, int line, int severity,
                                      const std::string& text) {
  m_messages.try_emplace(file + ":" + KVXMHelperUtils::i2s(line, 5, '0'), severity, text);
}

void KVXEHandshakeDialog::appendHSMsg(const std::string& file, int line, int severity,
                                      const std::string& text, const std::string& title) {
  appendHSMsg(file, line, severity, text);
  m_title = title;
  m_hasTitle = true;
}

KvxMessageDialogData* KVXEHandshakeDialog::populateMessageDialogData(KvxHandshakeData* data) {
  if (m_messages.empty() || !data) return nullptr;
  KvxMessageDialogData* dialog = data->mutable_messagedialog();
  dialog->set_dialogkind(0);
  dialog->set_severity(m_messages.begin()->second.first);
  std::string* text = dialog->mutable_text();
  text->clear();
  for (const auto& [place, line] : m_messages) text->append(line.second).append("\n");
  if (m_hasTitle) dialog->set_title(m_title);
  reset();
  return dialog;
}

void KVXEHandshakeDialog::reset() {
  m_messages.clear();
  m_hasTitle = false;
  m_title.clear();
}
