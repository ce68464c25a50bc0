package ui.data.kvx.client;

import java.util.Locale;

/** How people name things: tags and titles alike, without regard to case, blanks and "_". */
public final class Names {
  private Names() {}

  /** The same name; the unit in brackets behind a title may be left out. */
  public static boolean same(String a, String b) {
    return plain(a).equals(plain(b)) || withoutUnit(a).equals(withoutUnit(b));
  }

  /** A title or message on one line, without its mark-up. */
  public static String text(String title) {
    return title.replaceAll("<[^<>]*>", " ").replace("&nbsp;", " ").replace("&lt;", "<").replace("&gt;", ">")
        .replace("&amp;", "&").replaceAll("\\s+", " ").strip();
  }

  /** The letters and digits that count. */
  public static String plain(String name) {
    return text(name).replaceAll("[ _]+", "").toLowerCase(Locale.ROOT);
  }

  private static String withoutUnit(String name) {
    return plain(name).replaceFirst("(?<=.)\\([^()]*\\)$", "");
  }
}
