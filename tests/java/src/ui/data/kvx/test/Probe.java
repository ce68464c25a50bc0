package ui.data.kvx.test;

import java.nio.charset.StandardCharsets;
import java.util.ArrayList;
import java.util.HashSet;
import java.util.List;
import java.util.Set;
import ui.data.kvx.client.Book;
import ui.data.kvx.client.Tab;
import ui.data.kvx.client.Table;
import ui.data.kvx.kvxi;

/** Compares a front end's copy of the book with what the engine's cells hold, past the wire. */
final class Probe {
  static {
    kvxi.KVXEGuiInterface_getCurrentDesignName();  // the engine first: the probe needs it
    System.loadLibrary("kvx_java_probe");
  }

  private Probe() {}

  private static native byte[] readBook();

  /** What the engine's cells hold, one line each, and how many rows its tables have. */
  static Set<String> engineLines() {
    String text = new String(readBook(), StandardCharsets.UTF_8);
    return new HashSet<>(List.of(text.isEmpty() ? new String[0] : text.split("\0")));
  }

  /** The lines that only one side has; empty when the copy shows what the engine holds. */
  static List<String> differences(Book book) {
    Set<String> engine = engineLines();
    Set<String> copy = new HashSet<>();
    for (Tab tab : book.tabs()) {
      for (Table table : tab.tables()) addLines(copy, tab.index() + "\t" + table.index(), table);
    }
    List<String> lines = new ArrayList<>();
    for (String line : copy) {
      if (!engine.remove(line)) lines.add("copy:   " + line);
    }
    for (String line : engine) lines.add("engine: " + line);
    lines.sort((a, b) -> a.substring(8).compareTo(b.substring(8)));
    return lines;
  }

  private static void addLines(Set<String> lines, String place, Table table) {
    lines.add(place + "\t" + table.rows().size() + " rows");
    for (int row = 0; row < table.rows().size(); ++row) {
      for (int column = 0; column < table.columns().size(); ++column) {
        Object value = table.rows().get(row).cell(column).value();
        if (value == null) continue;
        lines.add(place + "\t" + row + "\t" + column + "\t" + spelling(value));
      }
    }
  }

  private static String spelling(Object value) {
    if (value instanceof Float number) return "f" + Float.floatToRawIntBits(number);
    return (value instanceof Integer ? "i" : "s") + value;
  }
}
