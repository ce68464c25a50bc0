package ui.data.kvx.client;

/** What the context menu of a table offers for its rows. */
public enum TableOperation {
  INSERT,
  DELETE,
  DUPLICATE,
  PASTE,
  FILL_DOWN,
  CLEAR
}
