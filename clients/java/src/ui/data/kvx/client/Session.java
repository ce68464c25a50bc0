package ui.data.kvx.client;

import java.util.List;
import ui.data.kvx.messages.KvxBookPacketData;
import ui.data.kvx.messages.KvxCellPacket;
import ui.data.kvx.messages.KvxHandshakeData;
import ui.data.kvx.messages.KvxOperationData;
import ui.data.kvx.messages.KvxOperationData.ArgumentType;
import ui.data.kvx.messages.KvxOperationData.OperationType;
import ui.data.kvx.messages.KvxSectionPacket;
import ui.data.kvx.messages.KvxStatusData;
import ui.data.kvx.messages.KvxTablePacket;

/**
 * A front end without a screen: it sends what a user does, and keeps its own copy of the book by what comes
 * back.
 */
public final class Session implements AutoCloseable {
  private final Engine engine = new Engine();
  private Book book = new Book();
  private KvxStatusData status = KvxStatusData.getDefaultInstance();
  private View view = View.INTERNAL;
  private boolean dumpJson;

  /** Another value for a cell: by its column, null to blank it. */
  public record Edit(int column, Object value) {}

  public Engine engine() {
    return engine;
  }

  public Book book() {
    return book;
  }

  public KvxStatusData status() {
    return status;
  }

  public View view() {
    return view;
  }

  /** Whether the engine writes every request and reply into a file of the current directory. */
  public void setDumpJson(boolean isOn) {
    dumpJson = isOn;
  }

  // The project.

  public KvxHandshakeData createProject(String path) {
    return send(OperationType.CREATE_PROJECT, path);
  }

  public KvxHandshakeData openProject(String path) {
    return send(OperationType.OPEN_PROJECT, path);
  }

  public KvxHandshakeData saveProject() {
    return send(OperationType.SAVE_PROJECT, null);
  }

  public KvxHandshakeData saveProjectAs(String path) {
    return send(OperationType.SAVE_AS_PROJECT, path);
  }

  /** A closed book has no cells that a reply could speak of, so the copy is dropped here. */
  public KvxHandshakeData closeProject() {
    KvxHandshakeData reply = send(OperationType.CLOSE_PROJECT, null);
    book = new Book();
    return reply;
  }

  // The book.

  /** Sets cells of one row, as a user who types them in. Rows count from 0 on screen. */
  public KvxHandshakeData edit(Tab tab, Table table, int row, List<Edit> edits) {
    KvxTablePacket.Builder packet = KvxTablePacket.newBuilder().setTableIndex(table.index());
    for (Edit edit : edits) {
      KvxCellPacket.Builder cell = KvxCellPacket.newBuilder().setRow(row).setColumn(edit.column());
      Values.put(cell, table.columns().get(edit.column()).kind(), edit.value());
      packet.addCells(cell);
      table.show(row, edit.column(), edit.value());
    }
    var section = KvxSectionPacket.newBuilder().setTabIndex(tab.index()).addTables(packet);
    return edit(KvxBookPacketData.newBuilder().addSections(section).build());
  }

  /** Sends changed cells as they are. */
  public KvxHandshakeData edit(KvxBookPacketData packet) {
    return exchange(request(OperationType.INCREMENTAL_CALCULATION).setBookPacket(packet).build());
  }

  /** Carries out an operation on rows and fetches what it changed. Gives an empty text or the mistake. */
  public String perform(TableOperation operation, Tab tab, Table table, List<Integer> rows, int target) {
    String mistake = engine.perform(operation, tab.index(), table.index(), rows, target);
    update();
    return mistake;
  }

  /** Fetches what changed behind the front end's back. Calculates nothing. */
  public KvxHandshakeData update() {
    return send(OperationType.TABLE_EDIT, null);
  }

  /** Calculates everything anew. */
  public KvxHandshakeData refresh() {
    return send(OperationType.REFRESH, null);
  }

  /** Tells the engine that its device drop-downs were set. */
  public KvxHandshakeData changeDevice() {
    return send(OperationType.DEVICE_CHANGE, null);
  }

  public KvxHandshakeData press(Button button) {
    KvxHandshakeData.Builder request = request(OperationType.BUTTON_PRESS);
    request.getOperationBuilder().setButtonData(button.data());
    return exchange(request.build());
  }

  /** Exports to the file that was chosen behind a file chooser button. */
  public KvxHandshakeData export(Button button, String path) {
    KvxHandshakeData.Builder request = request(OperationType.EXPORT_FILE);
    add(request, ArgumentType.FILE_CHOOSER_UID, button.id());
    add(request, ArgumentType.CHOSEN_FILE_PATH, path);
    return exchange(request.build());
  }

  /** Looks as somebody else; the reply has the whole book. */
  public KvxHandshakeData look(View newView) {
    view = newView;
    return update();
  }

  /**
   * What differs between the own copy and the engine's book, which comes whole once another view and the
   * present one were asked for. The fresh book replaces the copy.
   */
  public List<String> check() {
    Book own = book;
    View present = view;
    look(present == View.INTERNAL ? View.DEVELOPER : View.INTERNAL);
    look(present);
    return own.differences(book);
  }

  /** Sends a request, takes the reply into the copy, and gives it. */
  public KvxHandshakeData exchange(KvxHandshakeData request) {
    KvxHandshakeData reply = engine.handshake(request, view, dumpJson);
    take(reply);
    return reply;
  }

  @Override
  public void close() {
    closeProject();
    engine.close();
  }

  private void take(KvxHandshakeData reply) {
    if (reply.hasOperation()) return;  // the request itself, which nothing answered
    if (reply.hasStatus()) status = reply.getStatus();
    if (reply.hasBookBundle()) book = new Book(reply);
    else if (reply.hasBookPacket()) book.apply(reply.getBookPacket());
  }

  private KvxHandshakeData send(OperationType type, String path) {
    KvxHandshakeData.Builder request = request(type);
    if (path != null) add(request, ArgumentType.PROJECT_PATH, path);
    return exchange(request.build());
  }

  private static void add(KvxHandshakeData.Builder request, ArgumentType type, String value) {
    request.getOperationBuilder().addArgumentsBuilder().setType(type).setValue(value);
  }

  private static KvxHandshakeData.Builder request(OperationType type) {
    return KvxHandshakeData.newBuilder().setOperation(KvxOperationData.newBuilder().setType(type));
  }
}
