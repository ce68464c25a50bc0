#include "engine/base/components/KVXEGenericDialog.h"

#include "messages/generic_components.pb.h"

KVXEGenericContentPanel& KVXEGenericDialog::createContentPanel(const std::string& lid) {
  markChanged();
  return m_content.emplace<KVXEGenericContentPanel>(lid, this);
}

KVXEGenericSectionPanel& KVXEGenericDialog::createSectionPanel(const std::string& lid) {
  markChanged();
  return m_content.emplace<KVXEGenericSectionPanel>(lid, this);
}

namespace {

/// Sends the panel of a dialog as its case of the message; making one case present drops the other.
struct ContentWriter {
  GenericDialog& message;

  void operator()(std::monostate) const { message.clear_content(); }
  void operator()(const KVXEGenericContentPanel& panel) const {
    panel.populate(message.mutable_contentpanel());
  }
  void operator()(const KVXEGenericSectionPanel& panel) const {
    panel.populate(message.mutable_sectionpanel());
  }
};

}  // namespace

bool KVXEGenericDialog::populate(GenericDialog* dialog) const {
  return Component::populate(
      dialog, [this](GenericDialog& message) { std::visit(ContentWriter{message}, m_content); });
}

void KVXEGenericDialog::reset() {
  m_content.emplace<std::monostate>();
  Component::reset();
}
