package ui.data.kvx.drive;

import java.util.ArrayList;
import java.util.List;
import java.util.Random;
import ui.data.kvx.client.Column;
import ui.data.kvx.client.Session;
import ui.data.kvx.client.Tab;
import ui.data.kvx.client.Table;
import ui.data.kvx.client.TableOperation;

/**
 * Does what a user might, and what no user would: edits any cell with sensible and with impossible values,
 * moves rows about. The same seed does the same to the same book.
 */
public final class RandomEdits {
  private static final float[] ODD_NUMBERS = {
    0f, -0f, -1f, 1e-30f, 1e30f, Float.MAX_VALUE, Float.MIN_VALUE, Float.NaN, Float.POSITIVE_INFINITY,
    Float.NEGATIVE_INFINITY, 2147483646f, 0.5f
  };
  private static final int[] ODD_INTS = {0, -1, 1, Integer.MAX_VALUE, Integer.MIN_VALUE, 2147483646, 65536};
  private static final String[] ODD_TEXTS = {
    "", " ", "0", "-3", "1e999", "NaN", "<html>", "clk", "clk_\u03a9", "a\tb\nc", "x".repeat(300)
  };
  private static final int FEW_ROWS = 4;
  private static final int MOST_EDITS = 6;

  private final Session session;
  private final Random random;

  public RandomEdits(Session session, long seed) {
    this.session = session;
    random = new Random(seed);
  }

  /** Does one thing, and says what. */
  public String step() {
    if (random.nextInt(100) == 0) {
      session.refresh();
      return "refresh";
    }
    while (true) {
      boolean isForRows = random.nextBoolean();
      List<Place> places = places(isForRows);
      Place place = pick(places);
      if (isForRows && random.nextInt(4) == 0) return moveRows(place.tab, place.table);
      int row = row(place.table);
      List<Integer> columns = editableColumns(place.table, row);
      if (!columns.isEmpty()) return edit(place.tab, place.table, row, columns);
    }
  }

  private record Place(Tab tab, Table table) {}

  /** The tables; or just those with rows of the user's own, which are few, and where most happens. */
  private List<Place> places(boolean isForRows) {
    List<Place> places = new ArrayList<>();
    for (Tab tab : session.book().tabs()) {
      for (Table table : tab.tables()) {
        if (table.rows().isEmpty() || isForRows && !table.hasTableEditingFeatures()) continue;
        places.add(new Place(tab, table));
      }
    }
    return places;
  }

  private static List<Integer> editableColumns(Table table, int row) {
    List<Integer> columns = new ArrayList<>();
    for (int column = 0; column < table.columns().size(); ++column) {
      if (table.rows().get(row).cell(column).isEditable()) columns.add(column);
    }
    return columns;
  }

  private String edit(Tab tab, Table table, int row, List<Integer> columns) {
    List<Session.Edit> edits = new ArrayList<>();
    for (int i = random.nextInt(MOST_EDITS); i >= 0; --i) {
      int column = pick(columns);
      edits.add(new Session.Edit(column, value(table, row, column)));
    }
    session.edit(tab, table, row, edits);
    return "set " + place(tab, table, row) + " " + edits;
  }

  private String moveRows(Tab tab, Table table) {
    TableOperation operation = TableOperation.values()[random.nextInt(TableOperation.values().length)];
    List<Integer> rows = new ArrayList<>();
    int first = row(table);
    int count = 1 + random.nextInt(3);
    for (int i = 0; i < count && first + i < table.rows().size(); ++i) rows.add(first + i);
    int target = row(table);
    String what = operation + " " + place(tab, table, first) + " " + rows + " " + target;
    boolean isOffered = session.engine().can(operation, tab.index(), table.index(), rows, target);
    if (!isOffered) return "not offered: " + what;
    return what + " " + session.perform(operation, tab, table, rows, target);
  }

  /** Mostly one of the first rows, where the edits meet. */
  private int row(Table table) {
    int size = table.rows().size();
    return random.nextInt(random.nextInt(4) == 0 ? size : Math.min(size, FEW_ROWS));
  }

  private Object value(Table table, int row, int column) {
    Column head = table.columns().get(column);
    List<String> choices = table.choices(row, column);
    int dice = random.nextInt(10);
    if (dice == 0) return null;
    return switch (head.kind()) {
      case STRING -> dice < 8 && !choices.isEmpty() ? pick(choices)
          : dice < 4 ? "name" + random.nextInt(20) : ODD_TEXTS[random.nextInt(ODD_TEXTS.length)];
      case INT -> dice < 7 ? random.nextInt(64) : ODD_INTS[random.nextInt(ODD_INTS.length)];
      case FLOAT -> dice < 4 ? random.nextInt(500) / 4f
          : dice < 7 ? random.nextFloat() : ODD_NUMBERS[random.nextInt(ODD_NUMBERS.length)];
    };
  }

  private <T> T pick(List<T> choices) {
    return choices.get(random.nextInt(choices.size()));
  }

  private static String place(Tab tab, Table table, int row) {
    return tab.type() + "/" + table.tag() + "/" + row;
  }
}
