package ui.data.kvx.client;

import java.util.ArrayList;
import java.util.List;
import ui.data.kvx.messages.GenericTreeTableColumnData;
import ui.data.kvx.messages.KvxCellPacket;

/** The head of a column. Its list serves every cell of the column that has none of its own. */
public record Column(
    String tag, String title, ValueKind kind, boolean isDropDown, boolean isHidden, String toolTip,
    List<String> choices) {
  public static Column of(GenericTreeTableColumnData data) {
    int columnClass = data.getColumnClass();
    return new Column(
        data.getTag(), data.getTitle(), ValueKind.ofColumnClass(columnClass), columnClass > 800,
        data.getIsHidden(), data.getToolTip(), List.copyOf(data.getDropdownList()));
  }

  /** The head after a packet of a header, which brings title and list. */
  Column with(KvxCellPacket packet) {
    return new Column(
        tag, packet.getStringPacket().getValue(), kind, isDropDown, isHidden, toolTip,
        List.copyOf(packet.getStringPacket().getDropdownList()));
  }

  boolean isCalled(String name) {
    return Names.same(tag, name) || Names.same(title, name);
  }

  List<String> differences(Column other) {
    List<String> lines = new ArrayList<>();
    Cell.compare(lines, "tag", tag, other.tag);
    Cell.compare(lines, "title", title, other.title);
    Cell.compare(lines, "kind", kind, other.kind);
    Cell.compare(lines, "drop-down", isDropDown, other.isDropDown);
    Cell.compare(lines, "hidden", isHidden, other.isHidden);
    Cell.compare(lines, "tool tip", toolTip, other.toolTip);
    Cell.compare(lines, "list", choices, other.choices);
    return lines;
  }
}
