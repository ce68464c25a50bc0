package ui.data.kvx.test;

import java.io.IOException;
import java.nio.file.DirectoryStream;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.List;
import java.util.Objects;

/** Expectations. The first that does not hold ends the program with status 1. */
final class Check {
  private static final int SHOWN_LINES = 15;

  /** Something that throws. */
  interface Deed {
    void run() throws Exception;
  }

  private Check() {}

  static void that(boolean isTrue, String what) {
    if (!isTrue) throw new AssertionError(what);
  }

  static void same(Object expected, Object found, String what) {
    that(Objects.equals(expected, found), what + ": expected <" + expected + ">, found <" + found + ">");
  }

  /** No lines: two books are alike. */
  static void none(List<String> lines, String after) {
    if (lines.isEmpty()) return;
    String shown = String.join("\n  ", lines.subList(0, Math.min(lines.size(), SHOWN_LINES)));
    throw new AssertionError("after " + after + " " + lines.size() + " differences:\n  " + shown);
  }

  static void throwsException(Class<? extends Throwable> type, String message, Deed deed) {
    try {
      deed.run();
    } catch (Throwable thrown) {
      same(type, thrown.getClass(), "type of " + thrown);
      if (message != null) same(message, thrown.getMessage(), "text of " + type.getSimpleName());
      return;
    }
    throw new AssertionError("expected " + type.getSimpleName() + ", message " + message);
  }

  /** What an earlier run left behind would be set aside. */
  private static void clearProjects(Path directory) throws IOException {
    try (DirectoryStream<Path> left = Files.newDirectoryStream(directory, "*.kvx*")) {
      for (Path file : left) Files.delete(file);
    }
  }

  /** Runs a test program's body and ends the process with its status. */
  static void main(String name, Deed body) {
    try {
      clearProjects(Path.of(""));
      body.run();
    } catch (Throwable thrown) {
      System.out.flush();
      System.err.println(name + " failed: " + thrown.getMessage());
      thrown.printStackTrace();
      System.exit(1);
    }
    System.out.println(name + " passed");
    System.out.flush();
    System.exit(0);
  }
}
