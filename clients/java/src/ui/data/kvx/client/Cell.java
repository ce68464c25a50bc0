package ui.data.kvx.client;

import java.util.ArrayList;
import java.util.List;
import java.util.Objects;
import ui.data.kvx.messages.FloatPacket;
import ui.data.kvx.messages.GenericTreeTableCellData;
import ui.data.kvx.messages.IntPacket;
import ui.data.kvx.messages.KvxCellPacket;
import ui.data.kvx.messages.StringPacket;

/**
 * A cell as the screen shows it. The value is a String, an Integer, a Float, or null for a blank cell; the
 * list is that of the cell alone, empty when its column's list serves it; the bounds are null where there are
 * none. What identifies a cell in one exchange is no part of it.
 */
public record Cell(
    Object value, String unit, String message, int foreground, int background, boolean isEditable,
    List<String> ownChoices, Number min, Number max) {
  private static final int BLACK = 0x000000;
  private static final int WHITE = 0xFFFFFF;
  private static final int WARNING_BACKGROUND = 0xFFF2CC;
  private static final int ERROR_BACKGROUND = 0xFFD9D9;

  /** What a row shows before its cells arrive. */
  public static final Cell BLANK = new Cell(null, "", "", BLACK, WHITE, true, List.of(), null, null);

  /** A cell of a bundle. */
  public static Cell of(GenericTreeTableCellData data) {
    Object value = data.hasStringValue() ? data.getStringValue()
        : data.hasIntValue() ? (Object) data.getIntValue()
        : data.hasFloatValue() ? (Object) data.getFloatValue()
        : null;
    List<String> choices = data.getIntDropdownCount() > 0 ? texts(data.getIntDropdownList())
        : List.copyOf(data.getDropdownList());
    return new Cell(
        value, data.getUnit(), data.getMessage(), data.getForeground(), data.getBackground(),
        data.getIsEditable(), choices, min(data), max(data));
  }

  /** A cell of a packet, which says all about the cell. */
  public static Cell of(KvxCellPacket packet) {
    Cell frame = new Cell(
        null, packet.getUnit(), packet.getMessage(), packet.getForeground(), packet.getBackground(),
        packet.getIsEditable(), List.of(), null, null);
    return switch (packet.getValueCase()) {
      case STRINGPACKET -> frame.with(packet.getStringPacket());
      case INTPACKET -> frame.with(packet.getIntPacket());
      case FLOATPACKET -> frame.with(packet.getFloatPacket());
      case VALUE_NOT_SET -> frame;
    };
  }

  /** The same cell with another value: what a front end shows while the engine thinks about an edit. */
  public Cell withValue(Object newValue) {
    return new Cell(newValue, unit, message, foreground, background, isEditable, ownChoices, min, max);
  }

  public boolean isBlank() {
    return value == null;
  }

  /** The message is a warning or an error, not just an explanation; the colour of the cell says so. */
  public boolean isAlarming() {
    return !message.isEmpty() && (background == WARNING_BACKGROUND || background == ERROR_BACKGROUND);
  }

  /** The value as text, with its unit if it has one. */
  public String text() {
    if (value == null) return "";
    return unit.isEmpty() ? Values.text(value) : Values.text(value) + " " + unit;
  }

  /** What differs in the other cell, by name with both sides: "unit W / mW". */
  public List<String> differences(Cell other) {
    List<String> lines = new ArrayList<>();
    compare(lines, "value", value, other.value);
    compare(lines, "unit", unit, other.unit);
    compare(lines, "message", message, other.message);
    compare(lines, "foreground", foreground, other.foreground);
    compare(lines, "background", background, other.background);
    compare(lines, "editable", isEditable, other.isEditable);
    compare(lines, "list", ownChoices, other.ownChoices);
    compare(lines, "minimum", min, other.min);
    compare(lines, "maximum", max, other.max);
    return lines;
  }

  static void compare(List<String> lines, String what, Object mine, Object others) {
    if (!Objects.equals(mine, others)) lines.add(what + " " + mine + " / " + others);
  }

  private Cell with(StringPacket packet) {
    return with(packet.hasValue() ? packet.getValue() : null, packet.getDropdownList(), null, null);
  }

  private Cell with(IntPacket packet) {
    return with(packet.hasValue() ? packet.getValue() : null, texts(packet.getDropdownList()),
        packet.hasMin() ? packet.getMin() : null, packet.hasMax() ? packet.getMax() : null);
  }

  private Cell with(FloatPacket packet) {
    return with(packet.hasValue() ? packet.getValue() : null, texts(packet.getDropdownList()),
        packet.hasMin() ? packet.getMin() : null, packet.hasMax() ? packet.getMax() : null);
  }

  private Cell with(Object newValue, List<String> choices, Number newMin, Number newMax) {
    return new Cell(
        newValue, unit, message, foreground, background, isEditable, List.copyOf(choices), newMin, newMax);
  }

  /** Numbers of a list as the table widget has them: whole. */
  private static List<String> texts(List<? extends Number> numbers) {
    return numbers.stream().map(number -> Integer.toString(number.intValue())).toList();
  }

  private static Number min(GenericTreeTableCellData data) {
    return data.hasMin() ? (Number) data.getMin() : data.hasIntMin() ? (Number) data.getIntMin() : null;
  }

  private static Number max(GenericTreeTableCellData data) {
    return data.hasMax() ? (Number) data.getMax() : data.hasIntMax() ? (Number) data.getIntMax() : null;
  }
}
