package ui.data.kvx.drive;

import java.util.ArrayList;
import java.util.List;
import java.util.Locale;
import java.util.stream.Collectors;
import java.util.stream.StreamSupport;
import ui.data.kvx.client.Book;
import ui.data.kvx.client.Button;
import ui.data.kvx.client.Column;
import ui.data.kvx.client.Names;
import ui.data.kvx.client.Row;
import ui.data.kvx.client.Tab;
import ui.data.kvx.client.Table;
import ui.data.kvx.client.Values;

/** Finds what a script names, and says what there is when it finds nothing. */
final class Finder {
  private static final int MOST_NAMES = 20;

  private Finder() {}

  static Tab tab(Book book, String name) {
    if (book.tabs().isEmpty()) throw new ScriptException("there is no book yet", "create a project first");
    List<String> known = book.tabs().stream().map(Tab::type).toList();
    return book.tab(name).orElseThrow(() -> unknown("tab", name, known));
  }

  static Table table(Tab tab, String name) {
    return tab.table(name).orElseThrow(() -> unknown("table", name,
        StreamSupport.stream(tab.tables().spliterator(), false).map(Table::title).toList()));
  }

  static int column(Table table, String name) {
    return table.column(name).orElseThrow(() -> unknown("column", name,
        table.columns().stream().filter(column -> !column.isHidden()).map(Column::title).toList()));
  }

  /** The screen row from 0: by its number from 1, or by the text of its first cell. */
  static int row(Table table, String name) {
    List<Row> rows = table.rows();
    int key = table.hasRowNumbers() ? 1 : 0;
    for (int row = 0; row < rows.size(); ++row) {
      if (key < rows.get(row).size() && Names.same(rows.get(row).cell(key).text(), name)) return row;
    }
    int row = number("row", name) - 1;
    if (row < 0 || row >= rows.size()) {
      throw new ScriptException("no row " + name, "the table has rows 1 to " + rows.size());
    }
    return row;
  }

  /** Screen rows from 0 out of "1,4-6". */
  static List<Integer> rows(Table table, String ranges) {
    List<Integer> rows = new ArrayList<>();
    for (String range : ranges.split(",", -1)) {
      String[] ends = range.split("-", 2);
      int last = row(table, ends[ends.length - 1]);
      for (int row = row(table, ends[0]); row <= last; ++row) rows.add(row);
    }
    return rows;
  }

  static Button button(Book book, String name) {
    List<String> names = new ArrayList<>();
    for (Tab tab : book.tabs()) {
      for (Button button : tab.buttons()) {
        if (Names.same(button.id(), name) || Names.same(button.text(), name)) return button;
        names.add(button.text());
      }
    }
    throw unknown("button", name, names);
  }

  /** One of the choices: as it is, without regard to case, or the only one that contains the text. */
  static String choice(String what, List<String> choices, String text) {
    if (choices.contains(text)) return text;
    List<String> same = choices.stream().filter(choice -> Names.same(choice, text)).toList();
    if (same.size() == 1) return same.get(0);
    List<String> containing =
        choices.stream().filter(choice -> Names.plain(choice).contains(Names.plain(text))).toList();
    if (containing.size() == 1) return containing.get(0);
    throw unknown("choice for " + what, text, containing.isEmpty() ? choices : containing);
  }

  /** The value for a cell as its column takes it. */
  static Object value(Table table, int row, int column, String text) {
    Column head = table.columns().get(column);
    String title = Names.text(head.title());
    List<String> choices = table.choices(row, column);
    String chosen = head.isDropDown() && !choices.isEmpty() ? choice(title, choices, text) : text;
    try {
      return Values.parse(head.kind(), chosen);
    } catch (NumberFormatException e) {
      String kind = head.kind().name().toLowerCase(Locale.ROOT);
      throw new ScriptException("\"" + text + "\" is no value for " + title, "write a number (" + kind + ")");
    }
  }

  static int number(String what, String text) {
    try {
      return Integer.parseInt(text);
    } catch (NumberFormatException e) {
      throw new ScriptException("no " + what + " \"" + text + "\"", "write a whole number");
    }
  }

  static ScriptException unknown(String what, String name, List<String> known) {
    List<String> names = known.stream().map(Names::text).distinct().toList();
    String list = names.stream().limit(MOST_NAMES).collect(Collectors.joining(", "));
    String more = names.size() > MOST_NAMES ? ", ..." : "";
    String remedy = names.isEmpty() ? "there is none" : "there is: " + list + more;
    return new ScriptException("no " + what + " \"" + name + "\"", remedy);
  }
}
