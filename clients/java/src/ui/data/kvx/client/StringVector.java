package ui.data.kvx.client;

import java.util.ArrayList;
import java.util.List;
import ui.data.kvx.kvxi;

/** A list of texts that the engine fills. It lives in the engine until it is closed. */
public final class StringVector implements AutoCloseable {
  private final long handle = kvxi.new_StringVector();

  public long handle() {
    return handle;
  }

  public List<String> toList() {
    int size = kvxi.StringVector_size(handle);
    List<String> texts = new ArrayList<>(size);
    for (int i = 0; i < size; ++i) texts.add(kvxi.StringVector_get(handle, i));
    return texts;
  }

  @Override
  public void close() {
    kvxi.delete_StringVector(handle);
  }
}
