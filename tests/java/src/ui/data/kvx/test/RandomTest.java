package ui.data.kvx.test;

import java.util.ArrayList;
import java.util.List;
import ui.data.kvx.client.Session;
import ui.data.kvx.drive.RandomEdits;

/** A long random session: the copy, kept by packets, stays what the engine sends as a whole. */
final class RandomTest {
  private static final int STEPS = 500;
  private static final int STEPS_BETWEEN_CHECKS = 50;
  private static final int SHOWN_STEPS = 5;

  private RandomTest() {}

  /** Architecture and seeds; a first word "closely" compares after every step, to find the one at fault. */
  public static void main(String[] arguments) {
    List<String> words = new ArrayList<>(List.of(arguments));
    boolean isClose = words.remove("closely");
    String architecture = words.remove(0);
    Check.main("RandomTest " + architecture, () -> {
      for (String seed : words) play(architecture, Long.parseLong(seed), isClose);
    });
  }

  private static void play(String architecture, long seed, boolean isClose) {
    try (Session session = new Session()) {
      Devices.createProject(session, architecture);
      RandomEdits edits = new RandomEdits(session, seed);
      List<String> story = new ArrayList<>();
      for (int i = 1; i <= STEPS; ++i) {
        story.add(i + ": " + edits.step());
        if (story.size() > SHOWN_STEPS) story.remove(0);
        String after = "seed " + seed + ", the last steps\n  " + String.join("\n  ", story) + "\n ";
        if (isClose) Check.none(Probe.differences(session.book()), after);
        if (isClose || i % STEPS_BETWEEN_CHECKS == 0) Check.none(session.check(), after);
      }
      Check.none(Probe.differences(session.book()), "seed " + seed);
    }
  }
}
