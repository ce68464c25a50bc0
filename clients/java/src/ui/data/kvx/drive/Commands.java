package ui.data.kvx.drive;

import java.util.ArrayList;
import java.util.LinkedHashMap;
import java.util.List;
import java.util.Locale;
import java.util.Map;
import ui.data.kvx.client.Button;
import ui.data.kvx.client.DropDown;
import ui.data.kvx.client.Names;
import ui.data.kvx.client.Session;
import ui.data.kvx.client.Tab;
import ui.data.kvx.client.Table;
import ui.data.kvx.client.TableOperation;
import ui.data.kvx.client.View;
import ui.data.kvx.messages.KvxHandshakeData;

/** What a script may say: each command with its words and what it does. */
final class Commands {
  /** The architectures as architects call them, and as the screen does. */
  private static final Map<String, String> ARCHITECTURES =
      Map.of("tarvek", "Arkeon", "morlan", "Hexaline+", "som", "Ludra");

  private static final int SHOWN_DIFFERENCES = 20;

  private interface Action {
    void play(List<String> words);
  }

  private record Command(String usage, String meaning, int least, int most, Action action) {}

  private final Session session;
  private final Printer printer;
  private final Map<String, Command> commands = new LinkedHashMap<>();
  private boolean isFailed;

  Commands(Session session, Printer printer) {
    this.session = session;
    this.printer = printer;
    declareProject();
    declareEdits();
    declareViews();
  }

  /** A check failed. */
  boolean isFailed() {
    return isFailed;
  }

  void play(List<String> words) {
    Command command = commands.get(words.get(0));
    if (command == null) throw Finder.unknown("command", words.get(0), List.copyOf(commands.keySet()));
    int count = words.size() - 1;
    if (count < command.least || count > command.most) {
      throw new ScriptException("wrong number of words", "write: " + words.get(0) + " " + command.usage);
    }
    command.action.play(words.subList(1, words.size()));
  }

  /** A line for each command. */
  List<String> help() {
    List<String> lines = new ArrayList<>();
    commands.forEach((name, command) ->
        lines.add("  " + (name + " " + command.usage).strip() + "\n        " + command.meaning));
    return lines;
  }

  private void add(String name, String usage, int least, int most, String meaning, Action action) {
    commands.put(name, new Command(usage, meaning, least, most, action));
  }

  private void declareProject() {
    add("arch", "NAME", 1, 1, "choose the architecture: Tarvek, Morlan or Som", this::architecture);
    add("select", "NAME=VALUE...", 1, 99, "set drop-downs of the device, in that order", this::select);
    add("choices", "", 0, 0, "print the drop-downs of the device",
        words -> printer.dropDowns(session.engine().dropDowns()));
    add("create", "PATH", 1, 1, "create a project", words -> print(session.createProject(words.get(0))));
    add("open", "PATH", 1, 1, "open a project", words -> print(session.openProject(words.get(0))));
    add("save", "[PATH]", 0, 1, "save the project, or save it as another", words ->
        print(words.isEmpty() ? session.saveProject() : session.saveProjectAs(words.get(0))));
    add("close", "", 0, 0, "close the project", words -> print(session.closeProject()));
  }

  private void declareEdits() {
    add("set", "TAB TABLE ROW COLUMN=VALUE...", 4, 99, "type values into cells of one row", this::set);
    add("blank", "TAB TABLE ROW COLUMN...", 4, 99, "empty cells of one row", this::blank);
    addRows("insert", "ROW", TableOperation.INSERT, "insert a row from the template");
    addRows("delete", "ROWS", TableOperation.DELETE, "delete rows: 3 or 1,4-6");
    addRows("duplicate", "ROWS", TableOperation.DUPLICATE, "copy rows behind themselves");
    addRows("paste", "ROWS TARGET", TableOperation.PASTE, "copy rows over those from TARGET on");
    addRows("fill", "ROWS", TableOperation.FILL_DOWN, "copy the first row over the others");
    addRows("clear", "ROWS", TableOperation.CLEAR, "set rows to what new rows hold");
    add("press", "BUTTON [FILE]", 1, 2, "press a button, by its text or identifier; one may want a file",
        this::press);
    add("undo?", "", 0, 0, "print whether edits can be taken back", words -> printer.line(
        "undo " + yesOrNo(session.engine().canUndo()) + ", redo " + yesOrNo(session.engine().canRedo())));
    add("refresh", "", 0, 0, "calculate everything anew", words -> print(session.refresh()));
    add("random", "COUNT SEED", 2, 2, "do COUNT random things to the book, then check", this::random);
  }

  private void addRows(String name, String usage, TableOperation operation, String meaning) {
    int count = operation == TableOperation.PASTE ? 4 : 3;
    add(name, "TAB TABLE " + usage, count, count, meaning, words -> rows(operation, words));
  }

  private void declareViews() {
    add("view", "external|internal|developer", 1, 1, "look as somebody else", this::view);
    add("tabs", "", 0, 0, "print the tree of tabs with what follows their titles",
        words -> printer.tabs(session.book().roots(), ""));
    add("show", "TAB [TABLE]", 1, 2, "print tables as the screen shows them", this::show);
    add("status", "", 0, 0, "print part and project",
        words -> printer.status(session.status(), session.engine().projectName()));
    add("dump", "on|off", 1, 1, "have requests and replies written as JSON files", this::dump);
    add("check", "", 0, 0, "compare the own copy with the whole book, sent anew", words -> check());
  }

  private static String yesOrNo(boolean is) {
    return is ? "yes" : "no";
  }

  private void architecture(List<String> words) {
    List<String> known = session.engine().architectures();
    String name = ARCHITECTURES.getOrDefault(words.get(0).toLowerCase(Locale.ROOT), words.get(0));
    if (!known.contains(name)) {
      throw Finder.unknown("architecture", words.get(0), List.of("Tarvek", "Morlan", "Som"));
    }
    session.engine().setArchitecture(name);
    session.engine().resetDropDowns();
    printer.line(session.engine().deviceName());
  }

  private void select(List<String> words) {
    for (String word : words) {
      String[] pair = pair(word);
      List<DropDown> dropDowns = session.engine().dropDowns();
      DropDown dropDown = dropDowns.stream().filter(each -> Names.same(each.name(), pair[0])).findFirst()
          .orElseThrow(() -> Finder.unknown(
              "drop-down", pair[0], dropDowns.stream().map(DropDown::name).toList()));
      String value = Finder.choice(dropDown.name(), dropDown.values(), pair[1]);
      session.engine().setDropDown(dropDown.index(), value);
    }
    session.engine().dropDowns();
    printer.line(session.engine().deviceName());
    if (session.status().getIsProjectOpen()) print(session.changeDevice());
  }

  private void set(List<String> words) {
    Tab tab = Finder.tab(session.book(), words.get(0));
    Table table = Finder.table(tab, words.get(1));
    int row = Finder.row(table, words.get(2));
    List<Session.Edit> edits = new ArrayList<>();
    for (String word : words.subList(3, words.size())) {
      String[] pair = pair(word);
      int column = Finder.column(table, pair[0]);
      edits.add(new Session.Edit(column, Finder.value(table, row, column, pair[1])));
    }
    print(session.edit(tab, table, row, edits));
  }

  private void blank(List<String> words) {
    Tab tab = Finder.tab(session.book(), words.get(0));
    Table table = Finder.table(tab, words.get(1));
    List<Session.Edit> edits = words.subList(3, words.size()).stream()
        .map(name -> new Session.Edit(Finder.column(table, name), null)).toList();
    print(session.edit(tab, table, Finder.row(table, words.get(2)), edits));
  }

  private void press(List<String> words) {
    Button button = Finder.button(session.book(), words.get(0));
    boolean hasFile = words.size() == 2;
    if (button.isFileChooser() && !hasFile) {
      throw new ScriptException("the button " + button.text() + " wants a file", "write: press BUTTON FILE");
    }
    if (!button.isFileChooser() && hasFile) {
      throw new ScriptException("the button " + button.text() + " takes no file", "write: press BUTTON");
    }
    print(hasFile ? session.export(button, words.get(1)) : session.press(button));
  }

  private void rows(TableOperation operation, List<String> words) {
    Tab tab = Finder.tab(session.book(), words.get(0));
    Table table = Finder.table(tab, words.get(1));
    List<Integer> rows = Finder.rows(table, words.get(2));
    int target = operation == TableOperation.PASTE ? Finder.row(table, words.get(3)) : rows.get(0);
    if (!table.hasTableEditingFeatures()
        || !session.engine().can(operation, tab.index(), table.index(), rows, target)) {
      throw new ScriptException(
          "the menu of " + Names.text(table.title()) + " does not offer that for rows " + words.get(2),
          "choose a table with rows of the user's own, and rows that leave one");
    }
    String mistake = session.engine().perform(operation, tab.index(), table.index(), rows, target);
    if (!mistake.isEmpty()) printer.line(mistake);
    print(session.update());
  }

  private void random(List<String> words) {
    Finder.tab(session.book(), "SUMMARY");
    RandomEdits edits = new RandomEdits(session, Finder.number("seed", words.get(1)));
    int count = Finder.number("count", words.get(0));
    for (int i = 0; i < count; ++i) edits.step();
    check();
  }

  private void view(List<String> words) {
    String name = Finder.choice("the view", List.of("external", "internal", "developer"), words.get(0));
    print(session.look(View.valueOf(name.toUpperCase(Locale.ROOT))));
  }

  private void show(List<String> words) {
    Tab tab = Finder.tab(session.book(), words.get(0));
    if (words.size() == 1) printer.tab(tab);
    else printer.table(Finder.table(tab, words.get(1)));
  }

  private void dump(List<String> words) {
    session.setDumpJson(Finder.choice("dump", List.of("on", "off"), words.get(0)).equals("on"));
  }

  private void check() {
    List<String> differences = session.check();
    if (differences.isEmpty()) {
      printer.line("the copy is what the engine has");
      return;
    }
    isFailed = true;
    printer.line(differences.size() + " differences, copy / engine:");
    differences.stream().limit(SHOWN_DIFFERENCES).forEach(line -> printer.line("  " + line));
  }

  private void print(KvxHandshakeData reply) {
    printer.reply(reply, session.book());
  }

  private static String[] pair(String word) {
    int at = word.indexOf('=');
    if (at < 1) {
      throw new ScriptException(
          "\"" + word + "\" is no NAME=VALUE", "write one, quoted as a whole if it has blanks");
    }
    return new String[] {word.substring(0, at), word.substring(at + 1)};
  }
}
