package ui.data.kvx.drive;

import java.io.PrintStream;
import java.util.ArrayList;
import java.util.LinkedHashMap;
import java.util.List;
import java.util.Map;
import ui.data.kvx.client.Book;
import ui.data.kvx.client.Cell;
import ui.data.kvx.client.Column;
import ui.data.kvx.client.DropDown;
import ui.data.kvx.client.Names;
import ui.data.kvx.client.Row;
import ui.data.kvx.client.Tab;
import ui.data.kvx.client.Table;
import ui.data.kvx.client.ValueKind;
import ui.data.kvx.messages.KvxHandshakeData;
import ui.data.kvx.messages.KvxSectionPacket;
import ui.data.kvx.messages.KvxStatusData;
import ui.data.kvx.messages.KvxTablePacket;

/** Prints what a front end would show. */
final class Printer {
  private final PrintStream out;

  Printer(PrintStream out) {
    this.out = out;
  }

  void line(String text) {
    out.println(text);
  }

  /** What a reply brought, and its dialog. */
  void reply(KvxHandshakeData reply, Book book) {
    if (reply.hasMessageDialog()) {
      var dialog = reply.getMessageDialog();
      String title = dialog.getTitle().isEmpty() ? "message" : dialog.getTitle();
      out.println(title + " (severity " + dialog.getSeverity() + "):");
      dialog.getText().strip().lines().forEach(text -> out.println("  " + Names.text(text)));
    }
    if (reply.hasGenericDialog()) out.println("dialog: " + reply.getGenericDialog().getDialog().getTitle());
    if (reply.hasBookBundle()) {
      out.println("whole book: " + book.tabs().size() + " tabs, " + book.tableCount() + " tables");
    } else if (reply.hasBookPacket()) {
      changes(reply);
    }
  }

  private void changes(KvxHandshakeData reply) {
    int tabs = 0;
    Map<String, Integer> changes = new LinkedHashMap<>();
    for (KvxSectionPacket section : reply.getBookPacket().getSectionsList()) {
      ++tabs;
      for (KvxTablePacket table : section.getTablesList()) {
        changes.merge("cells", table.getCellsCount(), Integer::sum);
        changes.merge("heads of columns", table.getHeadersCount(), Integer::sum);
        changes.merge("added rows", table.getAddedRowsCount(), Integer::sum);
        changes.merge("deleted rows", table.getDeletedRowsCount(), Integer::sum);
      }
    }
    StringBuilder line = new StringBuilder("changed: " + (tabs == 0 ? "nothing" : "tabs " + tabs));
    changes.forEach((what, count) -> {
      if (count > 0) line.append(", ").append(what).append(' ').append(count);
    });
    out.println(line);
  }

  void status(KvxStatusData status, String project) {
    out.println(status.getPartText().isEmpty() ? "Part: none" : status.getPartText());
    if (!status.getIsProjectOpen()) out.println("no project");
    else out.println("project " + project + (status.getIsProjectSaved() ? ", saved" : ", not saved"));
  }

  void dropDowns(List<DropDown> dropDowns) {
    for (DropDown dropDown : dropDowns) {
      StringBuilder line = new StringBuilder(dropDown.name() + ": " + dropDown.value() + "; of");
      String separator = " ";
      for (String value : dropDown.values()) {
        if (line.length() + separator.length() + value.length() > TextGrid.LINE_WIDTH) {
          out.println(line);
          line = new StringBuilder("   ");
        }
        line.append(separator).append(value);
        separator = " | ";
      }
      out.println(line);
    }
  }

  void tabs(List<Tab> tabs, String indent) {
    for (Tab tab : tabs) {
      StringBuilder line = new StringBuilder(indent).append(tab.title());
      if (!tab.suffix().isEmpty()) line.append("  ").append(Names.text(tab.suffix()));
      if (tab.severity() > 1) line.append(tab.severity() == 2 ? "  (warning)" : "  (error)");
      out.println(line);
      tabs(tab.children(), indent + "  ");
    }
  }

  void tab(Tab tab) {
    boolean isFirst = true;
    for (Table table : tab.tables()) {
      if (!isFirst) out.println();
      isFirst = false;
      table(table);
    }
    if (!isFirst) return;
    out.println(tab.title() + ": " + (tab.placeholder().isEmpty() ? "no tables" : tab.placeholder()));
  }

  /** The table without the blank rows at its end, and without repeating the last row. */
  void table(Table table) {
    String subTab = table.subTab().isEmpty() ? "" : table.subTab() + ": ";
    out.println("[" + subTab + Names.text(table.title()) + "]");
    List<Integer> shown = new ArrayList<>();
    List<TextGrid.Head> heads = new ArrayList<>();
    for (int i = 0; i < table.columns().size(); ++i) {
      Column column = table.columns().get(i);
      if (column.isHidden()) continue;
      shown.add(i);
      heads.add(new TextGrid.Head(i == 0 && table.hasRowNumbers() ? "#" : column.title(),
          column.kind() != ValueKind.STRING));
    }
    TextGrid grid = new TextGrid(heads);
    int end = lengthWithoutRepeats(table, shown);
    for (Row row : table.rows().subList(0, end)) {
      grid.add(shown.stream().map(i -> row.cell(i).text()).toList());
    }
    grid.lines(table.hasRowNumbers() ? 2 : 1).forEach(out::println);
    int more = table.rows().size() - end;
    String kind = more > 0 && isBlankAt(table, end, shown) ? " blank rows" : " rows like the last";
    if (more > 0) out.println("... and " + more + kind);
    messages(table, shown, end);
  }

  /** The rows down to the first of those at the end that look alike; none of them when they are blank. */
  private static int lengthWithoutRepeats(Table table, List<Integer> shown) {
    List<Row> rows = table.rows();
    int end = rows.size();
    if (end == 0) return 0;
    List<String> last = contents(table, rows.get(end - 1), shown);
    while (end > 0 && contents(table, rows.get(end - 1), shown).equals(last)) --end;
    return last.stream().allMatch(String::isEmpty) ? end : end + 1;
  }

  private static boolean isBlankAt(Table table, int row, List<Integer> shown) {
    return contents(table, table.rows().get(row), shown).stream().allMatch(String::isEmpty);
  }

  /** The row's texts without its number. */
  private static List<String> contents(Table table, Row row, List<Integer> shown) {
    return shown.stream().filter(i -> i > 0 || !table.hasRowNumbers()).map(i -> row.cell(i).text()).toList();
  }

  private void messages(Table table, List<Integer> shown, int end) {
    for (int row = 0; row < end; ++row) {
      for (int column : shown) {
        Cell cell = table.rows().get(row).cell(column);
        if (!cell.isAlarming()) continue;
        out.println("row " + (row + 1) + ", " + Names.text(table.columns().get(column).title()) + ": "
            + Names.text(cell.message()));
      }
    }
  }
}
