package ui.data.kvx.test;

import java.io.BufferedReader;
import java.io.ByteArrayOutputStream;
import java.io.IOException;
import java.io.PrintStream;
import java.io.StringReader;
import java.nio.charset.StandardCharsets;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.List;
import ui.data.kvx.drive.Drive;

/** The driver does what its document shows, and says what is wrong with a script. */
final class DriveTest {
  private record Mistake(String line, String report) {}

  private static final List<Mistake> MISTAKES = List.of(
      new Mistake("jump", "no command \"jump\"; there is: arch, select,"),
      new Mistake("set CLOCK", "wrong number of words; write: set TAB TABLE ROW COLUMN=VALUE..."),
      new Mistake("set CLOCK \"Clock", "the line ends inside a quotation; close it with \""),
      new Mistake("arch Nile", "no architecture \"Nile\"; there is: Tarvek, Morlan, Som"),
      new Mistake("select Colour=red", "no drop-down \"Colour\"; there is: Family,"),
      new Mistake("select Process=Fast", "no choice for Process \"Fast\"; there is: Maximum, Typical"),
      new Mistake("show KLOCK", "no tab \"KLOCK\"; there is: SUMMARY_CONSOLE, SUMMARY,"),
      new Mistake("show CLOCK Rows", "no table \"Rows\"; there is: "),
      new Mistake("blank CLOCK \"Clock Configuration\" 1 Colour", "no column \"Colour\"; there is: "),
      new Mistake("blank CLOCK \"Clock Configuration\" 0 Name", "no row 0; the table has rows 1 to 500"),
      new Mistake("blank CLOCK \"Clock Configuration\" one Name", "no row \"one\"; write a whole number"),
      new Mistake("set CLOCK \"Clock Configuration\" 1 Frequency=fast",
          "\"fast\" is no value for Frequency (MHz); write a number (float)"),
      new Mistake("set CLOCK \"Clock Configuration\" 1 Frequency",
          "\"Frequency\" is no NAME=VALUE; write one"),
      new Mistake("delete CLOCK \"Clock Configuration\" 1-500",
          "the menu of Clock Settings does not offer that for rows 1-500; choose a table"),
      new Mistake("press \"Export ZCF\"", "the button Export ZCF wants a file; write: press BUTTON FILE"),
      new Mistake("press \"Self Destruct\"", "no button \"Self Destruct\"; there is: "));

  private DriveTest() {}

  /** The launcher, the example session and the document. */
  public static void main(String[] arguments) {
    Check.main("DriveTest", () -> {
      documentShowsWhatIsPrinted(arguments[0], arguments[1], arguments[2]);
      mistakesAreReported();
      nothingBeforeAProject();
    });
  }

  private static void documentShowsWhatIsPrinted(String launcher, String session, String document)
      throws IOException, InterruptedException {
    ProcessBuilder builder = new ProcessBuilder(launcher, session);
    builder.redirectError(ProcessBuilder.Redirect.DISCARD);
    builder.environment().put("LC_ALL", "de_DE.UTF-8");  // a comma in numbers would show
    Process process = builder.start();
    String printed = new String(process.getInputStream().readAllBytes(), StandardCharsets.UTF_8);
    Check.same(0, process.waitFor(), "exit status of the example");
    String text = Files.readString(Path.of(document));
    Check.same(Files.readString(Path.of(session)), block(text, "<!-- example -->"), "the session");
    Check.same(printed, block(text, "<!-- output -->"), "the output");
  }

  /** The code block behind a comment of the document. */
  private static String block(String document, String comment) {
    int begin = document.indexOf('\n', document.indexOf("```", document.indexOf(comment))) + 1;
    return document.substring(begin, document.indexOf("```", begin));
  }

  private static void mistakesAreReported() throws IOException {
    for (Mistake mistake : MISTAKES) {
      String begin = mistake.line.startsWith("show") || mistake.line.contains("CLOCK")
          || mistake.line.startsWith("press") ? "arch Tarvek\ncreate mistakes.kvx\n" : "arch Tarvek\n\n";
      Outcome outcome = play(begin + mistake.line + "\nstatus\n");
      Check.same(2, outcome.status, "exit status of " + mistake.line);
      Check.that(outcome.mistakes.startsWith("script:3: " + mistake.report),
          mistake.line + " reports " + outcome.mistakes);
      Check.that(!outcome.printed.contains("> status"), "nothing is played after a mistake");
    }
  }

  private static void nothingBeforeAProject() throws IOException {
    Outcome outcome = play("# nothing\n\nstatus\ntabs\nshow CLOCK\n");
    Check.same("> status\nPart: none\nno project\n> tabs\n> show CLOCK\n", outcome.printed, "output");
    Check.same("script:5: there is no book yet; create a project first\n", outcome.mistakes, "mistake");
  }

  private record Outcome(int status, String printed, String mistakes) {}

  private static Outcome play(String script) throws IOException {
    ByteArrayOutputStream out = new ByteArrayOutputStream();
    ByteArrayOutputStream err = new ByteArrayOutputStream();
    int status = Drive.play(new BufferedReader(new StringReader(script)), "script",
        new PrintStream(out, true, StandardCharsets.UTF_8),
        new PrintStream(err, true, StandardCharsets.UTF_8));
    return new Outcome(status, out.toString(StandardCharsets.UTF_8), err.toString(StandardCharsets.UTF_8));
  }
}
