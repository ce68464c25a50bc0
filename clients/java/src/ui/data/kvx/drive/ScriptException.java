package ui.data.kvx.drive;

/** A line of a script that cannot be played: what is wrong, and what would be right. */
final class ScriptException extends RuntimeException {
  private static final long serialVersionUID = 1L;

  ScriptException(String what, String remedy) {
    super(what + "; " + remedy);
  }
}
