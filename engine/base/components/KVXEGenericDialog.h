#pragma once

#include <variant>

#include "engine/base/components/KVXEGenericPanels.h"

class GenericDialog;
class KVXEGenericDialog;

KVXE_CHILDREN(KVXEGenericDialog, Dialog, childdialogs)
KVXE_CHILDREN(KVXEGenericButton, Button, buttons)
KVXE_CHILDREN(KVXEGenericFileChooserButton, FileChooserButton, filechooserbuttons)

/// A dialog: its content, its buttons and the dialogs that open from it. Everything added belongs to the
/// dialog; references stay good until `reset`, or until other content takes the place of the panel.
///
///     KVXEGenericDialog dialog("ClockDialog");
///     dialog.setTitle("Clock Configuration");
///     dialog.addButton("OkButton").setText("OK");
///     auto& grid = dialog.createContentPanel("CntPnl").addGridPanel("MainGrid");
///     auto& source = grid.addComponent<KVXEGenericComboBox>("ClkSource", 0, 0);
///     source.setChoices({"External", "Internal"});
///     dialog.populate(message);
class KVXEGenericDialog final
    : public kvxe::Component<KVXEGenericBase, GenericDialog, kvxe::has::Title, kvxe::has::Description,
                             kvxe::has::Width, kvxe::has::Height, kvxe::has::IsResizable, kvxe::has::Dialogs,
                             kvxe::has::Buttons, kvxe::has::FileChooserButtons> {
 public:
  using Component::Component;

  // A dialog has one panel: creating it takes the place of the other.
  KVXEGenericContentPanel& createContentPanel(const std::string& lid);
  KVXEGenericSectionPanel& createSectionPanel(const std::string& lid);

  bool populate(GenericDialog* dialog) const;
  void reset() override;

 private:
  std::variant<std::monostate, KVXEGenericContentPanel, KVXEGenericSectionPanel> m_content;
};
