package ui.data.kvx.drive;

import java.io.BufferedReader;
import java.io.IOException;
import java.io.InputStreamReader;
import java.io.PrintStream;
import java.nio.charset.StandardCharsets;
import java.nio.file.Files;
import java.nio.file.NoSuchFileException;
import java.nio.file.Path;
import java.util.List;
import ui.data.kvx.client.Session;
import ui.frmwork.cmd.CommandFailedException;

/** The program kvx-drive: plays a front end's session from a script. */
public final class Drive {
  private static final int GOOD = 0;
  private static final int FAILED = 1;
  private static final int BAD_SCRIPT = 2;

  private Drive() {}

  /**
   * The engine writes remarks of its own on the process's standard output. The launcher crosses the streams,
   * so that remarks end at the caller's standard error, and says so: results then go to the other side.
   */
  public static void main(String[] arguments) {
    boolean isCrossed = Boolean.getBoolean("kvx.crossed");
    PrintStream out = new PrintStream(isCrossed ? System.err : System.out, false, StandardCharsets.UTF_8);
    PrintStream err = new PrintStream(isCrossed ? System.out : System.err, true, StandardCharsets.UTF_8);
    int status = run(arguments, out, err);
    out.flush();
    System.exit(status);
  }

  private static int run(String[] arguments, PrintStream out, PrintStream err) {
    if (arguments.length == 1 && (arguments[0].equals("--help") || arguments[0].equals("-h"))) {
      help(out);
      return GOOD;
    }
    if (arguments.length > 1 || arguments.length == 1 && arguments[0].startsWith("--")) {
      err.println("usage: kvx-drive [SCRIPT]; kvx-drive --help lists the commands");
      return BAD_SCRIPT;
    }
    boolean isFile = arguments.length == 1 && !arguments[0].equals("-");
    String name = isFile ? arguments[0] : "standard input";
    try (BufferedReader script = isFile
        ? Files.newBufferedReader(Path.of(name))
        : new BufferedReader(new InputStreamReader(System.in, StandardCharsets.UTF_8))) {
      return play(script, name, out, err);
    } catch (NoSuchFileException e) {
      err.println(name + ": no such script; name a file, or nothing for standard input");
      return BAD_SCRIPT;
    } catch (IOException e) {
      err.println(name + ": cannot be read as UTF-8 text: " + e.getMessage() + "; check what it is");
      return BAD_SCRIPT;
    }
  }

  /** Plays a script and gives the exit status; `name` is what its mistakes are reported under. */
  public static int play(BufferedReader script, String name, PrintStream out, PrintStream err)
      throws IOException {
    try (Session session = new Session()) {
      Commands commands = new Commands(session, new Printer(out));
      int number = 0;
      for (String line = script.readLine(); line != null; line = script.readLine()) {
        ++number;
        try {
          List<String> words = Words.split(line);
          if (words.isEmpty()) continue;
          out.println("> " + line.strip());
          commands.play(words);
          out.flush();
        } catch (ScriptException e) {
          out.flush();
          err.println(name + ":" + number + ": " + e.getMessage());
          return BAD_SCRIPT;
        } catch (CommandFailedException e) {
          out.flush();
          err.println(name + ":" + number + ": the engine failed: " + e.getMessage());
          return FAILED;
        }
      }
      return commands.isFailed() ? FAILED : GOOD;
    }
  }

  private static void help(PrintStream out) {
    out.println("""
        kvx-drive [SCRIPT]: plays a front end's session, line by line, from a file or standard input.

        Words with blanks stand in double quotes, "#" begins a comment. Tabs, tables and columns go by
        tag or title, rows by number or by the text of their first cell. Exit status: 0 good, 1 a check
        or the engine failed, 2 the script is wrong.
        """);
    new Commands(null, null).help().forEach(out::println);
  }
}
