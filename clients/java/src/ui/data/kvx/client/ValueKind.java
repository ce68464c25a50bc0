package ui.data.kvx.client;

/** What the cells of a column hold. */
public enum ValueKind {
  STRING,
  INT,
  FLOAT;

  /** By the class of the column on the wire, of which the first digit tells drop-downs from the rest. */
  public static ValueKind ofColumnClass(int columnClass) {
    return switch (columnClass) {
      case 200, 830 -> FLOAT;
      case 500, 820 -> INT;
      default -> STRING;
    };
  }
}
