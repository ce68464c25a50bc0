package ui.frmwork;

/** The engine ran out of memory. What it holds is whole; the request was not carried out. */
public class COutOfMemoryException extends RuntimeException {
  private static final long serialVersionUID = 1L;

  public COutOfMemoryException(String message) {
    super(message);
  }
}
