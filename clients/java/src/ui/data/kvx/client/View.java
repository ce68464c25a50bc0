package ui.data.kvx.client;

/** Who looks at the book. Each level sees what those before it see, and more. */
public enum View {
  EXTERNAL,
  INTERNAL,
  DEVELOPER
}
