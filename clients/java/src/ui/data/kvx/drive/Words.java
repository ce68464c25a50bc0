package ui.data.kvx.drive;

import java.util.ArrayList;
import java.util.List;

/** Splits a line into words. Blanks separate, double quotes keep together, "#" begins a comment. */
final class Words {
  private Words() {}

  static List<String> split(String line) {
    List<String> words = new ArrayList<>();
    StringBuilder word = null;
    boolean isQuoted = false;
    for (char letter : line.toCharArray()) {
      if (letter == '"') {
        isQuoted = !isQuoted;
        if (word == null) word = new StringBuilder();
      } else if (isQuoted || !(Character.isWhitespace(letter) || letter == '#' && word == null)) {
        if (word == null) word = new StringBuilder();
        word.append(letter);
      } else {
        if (word != null) words.add(word.toString());
        word = null;
        if (letter == '#') return words;
      }
    }
    if (isQuoted) throw new ScriptException("the line ends inside a quotation", "close it with \"");
    if (word != null) words.add(word.toString());
    return words;
  }
}
