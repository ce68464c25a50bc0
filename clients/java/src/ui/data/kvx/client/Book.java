package ui.data.kvx.client;

import java.util.ArrayList;
import java.util.Collection;
import java.util.LinkedHashMap;
import java.util.List;
import java.util.Map;
import java.util.Optional;
import ui.data.kvx.messages.KvxBookBundleNodeData;
import ui.data.kvx.messages.KvxBookPacketData;
import ui.data.kvx.messages.KvxHandshakeData;
import ui.data.kvx.messages.KvxSectionPacket;

/**
 * The front end's own copy of the book: made from a bundle, kept up to date by packets. The summary panel is
 * a tab like the others, beside the tree.
 */
public final class Book {
  private final List<Tab> roots = new ArrayList<>();
  private final Map<Integer, Tab> tabs = new LinkedHashMap<>();

  /** An empty book: what is there before a project. */
  public Book() {}

  /** The book of a reply that has a bundle. */
  public Book(KvxHandshakeData reply) {
    for (KvxBookBundleNodeData node : reply.getBookBundle().getNodesList()) roots.add(new Tab(node));
    if (reply.getSummaryPanel().hasNode()) register(new Tab(reply.getSummaryPanel().getNode()));
    roots.forEach(this::register);
  }

  /** The top level of the tree. */
  public List<Tab> roots() {
    return roots;
  }

  /** Every tab of the book, the summary panel included. */
  public Collection<Tab> tabs() {
    return tabs.values();
  }

  /** Null when the viewer does not see that tab. */
  public Tab tab(int index) {
    return tabs.get(index);
  }

  /** The tab of that type or title. */
  public Optional<Tab> tab(String name) {
    return tabs.values().stream().filter(tab -> tab.isCalled(name)).findFirst();
  }

  public int tableCount() {
    int count = 0;
    for (Tab tab : tabs.values()) {
      for (Table ignored : tab.tables()) ++count;
    }
    return count;
  }

  /** Brings the book up to date. What the viewer does not see is passed over. */
  public void apply(KvxBookPacketData packet) {
    for (KvxSectionPacket section : packet.getSectionsList()) {
      Tab tab = tabs.get(section.getTabIndex());
      if (tab != null) tab.apply(section);
    }
  }

  /** What differs in the other book, a line each with this book's side first; empty for equal books. */
  public List<String> differences(Book other) {
    List<String> lines = new ArrayList<>();
    if (!tabs.keySet().equals(other.tabs.keySet())) {
      lines.add("tabs " + tabs.keySet() + " / " + other.tabs.keySet());
      return lines;
    }
    tabs.forEach((index, tab) -> tab.addDifferences(lines, other.tabs.get(index)));
    return lines;
  }

  private void register(Tab tab) {
    tabs.put(tab.index(), tab);
    tab.children().forEach(this::register);
  }
}
