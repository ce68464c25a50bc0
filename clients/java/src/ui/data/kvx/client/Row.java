package ui.data.kvx.client;

import java.util.Arrays;

/** A row on screen. Its index is the engine's number of it, in which rows come and go. */
public final class Row {
  int index;
  private final Cell[] cells;

  Row(int index, int columns) {
    this.index = index;
    cells = new Cell[columns];
    Arrays.fill(cells, Cell.BLANK);
  }

  public int index() {
    return index;
  }

  public Cell cell(int column) {
    return cells[column];
  }

  public int size() {
    return cells.length;
  }

  void set(int column, Cell cell) {
    cells[column] = cell;
  }
}
