package ui.data.kvx.client;

import java.math.BigDecimal;
import java.math.MathContext;
import ui.data.kvx.messages.FloatPacket;
import ui.data.kvx.messages.IntPacket;
import ui.data.kvx.messages.KvxCellPacket;
import ui.data.kvx.messages.StringPacket;

/** Values of cells: to and from text, and into a packet. */
public final class Values {
  private static final MathContext READABLE = new MathContext(6);

  private Values() {}

  /** A number with the digits that matter to a reader, and without a point when it is whole. */
  public static String text(Object value) {
    if (!(value instanceof Float number)) return String.valueOf(value);
    if (number.isNaN() || number.isInfinite()) return number.toString();
    BigDecimal rounded = new BigDecimal(number.toString()).round(READABLE).stripTrailingZeros();
    boolean isHuge = rounded.precision() - rounded.scale() > 9;
    return isHuge || rounded.scale() > 9 ? rounded.toString() : rounded.toPlainString();
  }

  /** The value that a column of that kind takes from a text; throws NumberFormatException. */
  public static Object parse(ValueKind kind, String text) {
    return switch (kind) {
      case STRING -> text;
      case INT -> Integer.parseInt(text.strip());
      case FLOAT -> Float.parseFloat(text.strip());
    };
  }

  /** Puts a value, or null to blank the cell, into the packet's branch for that kind. */
  public static void put(KvxCellPacket.Builder packet, ValueKind kind, Object value) {
    switch (kind) {
      case STRING -> {
        StringPacket.Builder text = StringPacket.newBuilder();
        if (value != null) text.setValue(value.toString());
        packet.setStringPacket(text);
      }
      case INT -> {
        IntPacket.Builder number = IntPacket.newBuilder();
        if (value != null) number.setValue(((Number) value).intValue());
        packet.setIntPacket(number);
      }
      case FLOAT -> {
        FloatPacket.Builder number = FloatPacket.newBuilder();
        if (value != null) number.setValue(((Number) value).floatValue());
        packet.setFloatPacket(number);
      }
    }
  }
}
