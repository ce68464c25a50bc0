package ui.data.kvx.drive;

import java.util.ArrayList;
import java.util.List;
import ui.data.kvx.client.Names;

/**
 * A table as text of at most LINE_WIDTH. Wide cells are cut; when the columns do not fit side by side they
 * stand in bands below each other, each beginning with the first columns.
 */
final class TextGrid {
  static final int LINE_WIDTH = 100;
  private static final int CELL_WIDTH = 32;
  private static final String GAP = "  ";

  /** A column: its head, and whether its cells stand at the right. */
  record Head(String title, boolean isRight) {}

  private final List<Head> heads;
  private final List<List<String>> rows = new ArrayList<>();

  TextGrid(List<Head> heads) {
    this.heads = heads;
  }

  void add(List<String> cells) {
    rows.add(cells);
  }

  /** The lines; each band begins with the first `keys` columns. */
  List<String> lines(int keys) {
    List<String> lines = new ArrayList<>();
    int next = 0;
    while (next < heads.size()) {
      List<Integer> band = new ArrayList<>();
      int width = 0;
      for (int key = 0; key < Math.min(keys, next); ++key) width += include(band, key);
      int fixed = band.size();
      while (next < heads.size() && (band.size() == fixed || width + width(next) <= LINE_WIDTH)) {
        width += include(band, next++);
      }
      if (!lines.isEmpty()) lines.add("");
      addBand(lines, band);
    }
    return lines;
  }

  private int include(List<Integer> band, int column) {
    band.add(column);
    return width(column) + GAP.length();
  }

  private void addBand(List<String> lines, List<Integer> band) {
    StringBuilder head = new StringBuilder();
    for (int column : band) append(head, heads.get(column).title(), column);
    lines.add(head.toString().stripTrailing());
    for (List<String> row : rows) {
      StringBuilder line = new StringBuilder();
      for (int column : band) append(line, row.get(column), column);
      lines.add(line.toString().stripTrailing());
    }
  }

  private void append(StringBuilder line, String text, int column) {
    String cut = cut(text);
    String room = " ".repeat(width(column) - cut.length());
    line.append(heads.get(column).isRight() ? room + cut : cut + room).append(GAP);
  }

  private int width(int column) {
    int width = cut(heads.get(column).title()).length();
    for (List<String> row : rows) width = Math.max(width, cut(row.get(column)).length());
    return width;
  }

  private static String cut(String text) {
    String line = Names.text(text);
    return line.length() <= CELL_WIDTH ? line : line.substring(0, CELL_WIDTH - 3) + "...";
  }
}
