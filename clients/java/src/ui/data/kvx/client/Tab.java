package ui.data.kvx.client;

import java.util.ArrayList;
import java.util.LinkedHashMap;
import java.util.List;
import java.util.Map;
import java.util.Objects;
import java.util.Optional;
import ui.data.kvx.messages.GenericTreeTablesTabData;
import ui.data.kvx.messages.KvxBookBundleNodeData;
import ui.data.kvx.messages.KvxButtonData;
import ui.data.kvx.messages.KvxGridComponentData;
import ui.data.kvx.messages.KvxImageData;
import ui.data.kvx.messages.KvxSectionPacket;
import ui.data.kvx.messages.KvxTablePacket;

/** A tab with its tables, images and buttons, and the tabs below it. */
public final class Tab {
  private final KvxBookBundleNodeData frame;
  private String suffix;
  private int severity;
  private final List<Tab> children = new ArrayList<>();
  private final List<Button> buttons = new ArrayList<>();
  private final Map<Integer, Table> tables = new LinkedHashMap<>();
  private final Map<String, KvxImageData> images = new LinkedHashMap<>();

  /** A tab of a bundle. */
  Tab(KvxBookBundleNodeData node) {
    frame = node.toBuilder()
        .clearChildren().clearButtons().clearGridContent().clearSuffix().clearSeverity().build();
    suffix = node.getSuffix();
    severity = node.getSeverity();
    for (KvxBookBundleNodeData child : node.getChildrenList()) children.add(new Tab(child));
    for (KvxButtonData button : node.getButtonsList()) buttons.add(Button.of(button));
    for (KvxGridComponentData component : node.getGridContent().getComponentsList()) add(component);
  }

  public int index() {
    return frame.getIndex();
  }

  /** The tab's name for programs: "CLOCK". */
  public String type() {
    return frame.getType();
  }

  public String title() {
    return frame.getTitle();
  }

  /** What follows the title: the tab's power. */
  public String suffix() {
    return suffix;
  }

  public int severity() {
    return severity;
  }

  /** What stands in place of content that is not there. */
  public String placeholder() {
    return frame.getPlaceholder();
  }

  public List<Tab> children() {
    return children;
  }

  public List<Button> buttons() {
    return buttons;
  }

  public Iterable<Table> tables() {
    return tables.values();
  }

  /** Null when the viewer does not see that table. */
  public Table table(int index) {
    return tables.get(index);
  }

  /** The table of that tag or title. */
  public Optional<Table> table(String name) {
    return tables.values().stream().filter(table -> table.isCalled(name)).findFirst();
  }

  public boolean isCalled(String name) {
    return Names.same(type(), name) || Names.same(title(), name);
  }

  /** Brings the tab up to date. What the viewer does not see is passed over. */
  void apply(KvxSectionPacket section) {
    suffix = section.getSuffix();
    severity = section.getSeverity();
    for (KvxTablePacket packet : section.getTablesList()) {
      Table table = tables.get(packet.getTableIndex());
      if (table != null) table.apply(packet);
    }
    for (KvxImageData image : section.getImagesList()) images.replace(image.getTag(), image);
  }

  void addDifferences(List<String> lines, Tab other) {
    if (!frame.equals(other.frame)) lines.add(type() + ": frame " + frame + " / " + other.frame);
    if (!suffix.equals(other.suffix)) lines.add(type() + ": suffix " + suffix + " / " + other.suffix);
    if (severity != other.severity) lines.add(type() + ": severity " + severity + " / " + other.severity);
    if (!buttons.equals(other.buttons)) lines.add(type() + ": buttons " + buttons + " / " + other.buttons);
    if (!tables.keySet().equals(other.tables.keySet())) {
      lines.add(type() + ": tables " + tables.keySet() + " / " + other.tables.keySet());
      return;
    }
    tables.forEach((index, table) -> table.addDifferences(lines, type(), other.tables.get(index)));
    images.forEach((tag, image) -> {
      if (!Objects.equals(image, other.images.get(tag))) {
        lines.add(type() + ", image " + tag + ": " + image + " / " + other.images.get(tag));
      }
    });
  }

  private void add(KvxGridComponentData component) {
    switch (component.getComponentCase()) {
      case TABLECHART -> {
        for (GenericTreeTablesTabData data : component.getTableChart().getTables().getTabsList()) {
          tables.put(data.getTable().getTableIndex(), new Table(data.getTable(), component));
        }
      }
      case IMAGE -> images.put(component.getImage().getTag(), component.getImage());
      default -> { }  // A spacer and the choice of the device hold nothing that changes.
    }
  }
}
