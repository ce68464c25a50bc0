package ui.data.kvx.client;

import java.util.List;

/** One choice of the device selection: its name, what it may be, and the place of what it is. */
public record DropDown(int index, String name, List<String> values, int selected) {
  /** The present value; empty for a drop-down without values. */
  public String value() {
    return selected >= 0 && selected < values.size() ? values.get(selected) : "";
  }
}
