package ui.data.kvx.client;

import java.util.List;
import ui.data.kvx.kvxi;

/** A list of numbers that the engine reads. It lives in the engine until it is closed. */
public final class IntVector implements AutoCloseable {
  private final long handle = kvxi.new_IntVector();

  public static IntVector of(List<Integer> numbers) {
    IntVector vector = new IntVector();
    for (int number : numbers) kvxi.IntVector_add(vector.handle, number);
    return vector;
  }

  public long handle() {
    return handle;
  }

  @Override
  public void close() {
    kvxi.delete_IntVector(handle);
  }
}
