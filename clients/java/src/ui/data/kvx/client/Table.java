package ui.data.kvx.client;

import java.util.ArrayList;
import java.util.Comparator;
import java.util.List;
import java.util.Optional;
import ui.data.kvx.messages.GenericTreeTableCellData;
import ui.data.kvx.messages.GenericTreeTableColumnData;
import ui.data.kvx.messages.GenericTreeTableData;
import ui.data.kvx.messages.GenericTreeTableRowData;
import ui.data.kvx.messages.KvxCellPacket;
import ui.data.kvx.messages.KvxGridComponentData;
import ui.data.kvx.messages.KvxTablePacket;

/** A table on screen: the columns, and those rows that the viewer sees, in their order. */
public final class Table {
  private final GenericTreeTableData frame;
  private final String subTab;
  private int severity;
  private final List<Column> columns = new ArrayList<>();
  private final List<Row> rows = new ArrayList<>();

  /** A table of a bundle. The component says which sub-tab it stands in. */
  Table(GenericTreeTableData data, KvxGridComponentData component) {
    frame = data.toBuilder().clearModel().build();
    subTab = component.getTitle();
    severity = component.getSeverity();
    for (GenericTreeTableColumnData column : data.getModel().getHeader().getColumnsList()) {
      columns.add(Column.of(column));
    }
    for (GenericTreeTableRowData row : data.getModel().getRowsList()) rows.add(row(row));
  }

  public int index() {
    return frame.getTableIndex();
  }

  public String tag() {
    return frame.getTag();
  }

  public String title() {
    return frame.getTitle();
  }

  /** The sub-tab in which the table stands; empty without one. */
  public String subTab() {
    return subTab;
  }

  public int severity() {
    return severity;
  }

  /** Column 0 counts the rows on screen. */
  public boolean hasRowNumbers() {
    return frame.getShowRowIds();
  }

  public boolean hasTableEditingFeatures() {
    return frame.getHasTableEditingFeatures();
  }

  public List<Column> columns() {
    return columns;
  }

  public List<Row> rows() {
    return rows;
  }

  public boolean isCalled(String name) {
    return Names.same(tag(), name) || Names.same(title(), name);
  }

  /** The first column of that tag or title. */
  public Optional<Integer> column(String name) {
    for (int i = 0; i < columns.size(); ++i) {
      if (columns.get(i).isCalled(name)) return Optional.of(i);
    }
    return Optional.empty();
  }

  /** What the cell's drop-down offers: its own list, or its column's; empty without a drop-down. */
  public List<String> choices(int row, int column) {
    List<String> own = rows.get(row).cell(column).ownChoices();
    return own.isEmpty() ? columns.get(column).choices() : own;
  }

  /** Shows a value before the engine has answered. */
  public void show(int row, int column, Object value) {
    Row target = rows.get(row);
    target.set(column, target.cell(column).withValue(value));
  }

  /** Brings the table up to date: rows go, rows come, heads and cells change. */
  void apply(KvxTablePacket packet) {
    if (packet.hasSeverity()) severity = packet.getSeverity();
    packet.getDeletedRowsList().stream().sorted(Comparator.reverseOrder()).forEach(this::remove);
    packet.getAddedRowsList().stream().sorted().forEach(this::insert);
    if (packet.getDeletedRowsCount() + packet.getAddedRowsCount() > 0) countRows();
    for (KvxCellPacket header : packet.getHeadersList()) {
      columns.set(header.getColumn(), columns.get(header.getColumn()).with(header));
    }
    for (KvxCellPacket cell : packet.getCellsList()) {
      rows.get(cell.getRow()).set(cell.getColumn(), Cell.of(cell));
    }
  }

  /** What differs in the other table, a line each; `where` begins the lines. */
  void addDifferences(List<String> lines, String where, Table other) {
    String here = where + ", " + tag();
    if (!frame.equals(other.frame)) lines.add(here + ": frame " + frame + " / " + other.frame);
    if (!subTab.equals(other.subTab)) lines.add(here + ": sub-tab " + subTab + " / " + other.subTab);
    if (severity != other.severity) lines.add(here + ": severity " + severity + " / " + other.severity);
    if (columns.size() != other.columns.size() || rows.size() != other.rows.size()) {
      lines.add(here + ": " + shape() + " / " + other.shape());
      return;
    }
    for (int column = 0; column < columns.size(); ++column) {
      for (String line : columns.get(column).differences(other.columns.get(column))) {
        lines.add(here + ", column " + columns.get(column).tag() + ": " + line);
      }
    }
    for (int row = 0; row < rows.size(); ++row) addRowDifferences(lines, here, row, other);
  }

  private void addRowDifferences(List<String> lines, String here, int row, Table other) {
    Row mine = rows.get(row);
    Row others = other.rows.get(row);
    String place = here + ", row " + (row + 1);
    if (mine.index != others.index) lines.add(place + ": index " + mine.index + " / " + others.index);
    for (int column = 0; column < mine.size(); ++column) {
      if (mine.cell(column).equals(others.cell(column))) continue;
      for (String line : mine.cell(column).differences(others.cell(column))) {
        lines.add(place + ", " + columns.get(column).tag() + ": " + line);
      }
    }
  }

  private String shape() {
    return rows.size() + " rows of " + columns.size() + " columns";
  }

  private Row row(GenericTreeTableRowData data) {
    Row row = new Row(data.getIndex(), columns.size());
    int column = 0;
    for (GenericTreeTableCellData cell : data.getCellsList()) row.set(column++, Cell.of(cell));
    return row;
  }

  private void remove(int index) {
    rows.removeIf(row -> row.index == index);
    for (Row row : rows) {
      if (row.index > index) --row.index;
    }
  }

  private void insert(int index) {
    int place = 0;
    for (Row row : rows) {
      if (row.index < index) ++place;
      else ++row.index;
    }
    rows.add(place, new Row(index, columns.size()));
  }

  /** The row numbers are the screen's own affair. */
  private void countRows() {
    if (!hasRowNumbers()) return;
    for (int i = 0; i < rows.size(); ++i) rows.get(i).set(0, rows.get(i).cell(0).withValue(i + 1));
  }
}
