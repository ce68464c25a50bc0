package ui.data.kvx.client;

import ui.data.kvx.messages.KvxButtonData;

/** A button of a tab; pressing it sends its data back to the engine. */
public record Button(String id, String text, String toolTip, boolean isEnabled, KvxButtonData data) {
  /** Pressing it opens a file chooser, and the chosen file is what is sent. */
  public boolean isFileChooser() {
    return data.hasGenericFileChooserButton();
  }

  public static Button of(KvxButtonData data) {
    if (data.hasGenericFileChooserButton()) {
      var chooser = data.getGenericFileChooserButton();
      return new Button(chooser.getUid(), chooser.getText(), chooser.getTooltip(), data.getIsEnabled(), data);
    }
    var plain = data.getGenericButton();
    return new Button(plain.getUid(), plain.getText(), plain.getTooltip(), data.getIsEnabled(), data);
  }

  boolean isCalled(String name) {
    return Names.same(id, name) || Names.same(text, name);
  }
}
