package ui.frmwork.cmd;

/** The engine could not do what it was asked; the message says why. */
public class CommandFailedException extends RuntimeException {
  private static final long serialVersionUID = 1L;

  public CommandFailedException(String message) {
    super(message);
  }
}
