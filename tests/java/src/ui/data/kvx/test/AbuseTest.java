package ui.data.kvx.test;

import com.google.protobuf.ByteString;
import java.lang.reflect.InvocationTargetException;
import java.lang.reflect.Method;
import java.lang.reflect.Modifier;
import java.util.List;
import java.util.Random;
import java.util.stream.IntStream;
import ui.data.kvx.client.IntVector;
import ui.data.kvx.client.Session;
import ui.data.kvx.client.StringVector;
import ui.data.kvx.client.Tab;
import ui.data.kvx.client.Table;
import ui.data.kvx.client.TableOperation;
import ui.data.kvx.client.Values;
import ui.data.kvx.client.ValueKind;
import ui.data.kvx.client.View;
import ui.data.kvx.kvxi;
import ui.data.kvx.messages.GenericGridPanel;
import ui.data.kvx.messages.GenericGuiComponent;
import ui.data.kvx.messages.KvxBookPacketData;
import ui.data.kvx.messages.KvxCellPacket;
import ui.data.kvx.messages.KvxHandshakeData;
import ui.data.kvx.messages.KvxOperationData;
import ui.data.kvx.messages.KvxOperationData.OperationType;
import ui.data.kvx.messages.KvxSectionPacket;
import ui.data.kvx.messages.KvxTablePacket;

/** Whatever comes through the door gets a reply or an exception; the process and the book live on. */
final class AbuseTest {
  private static final int[] ODD_INDICES = {-1, -2, Integer.MIN_VALUE, 499, 65536, Integer.MAX_VALUE};

  private final Session session;
  private final Random random = new Random(7);
  private final Tab tab;
  private final Table table;

  private AbuseTest(Session session) {
    this.session = session;
    Devices.createProject(session, "Tarvek");
    tab = session.book().tab("CLOCK").orElseThrow();
    table = session.book().tab("CLOCK").orElseThrow().tables().iterator().next();
  }

  public static void main(String[] arguments) {
    Check.main("AbuseTest", () -> {
      try (Session session = new Session()) {
        withoutDevice(session);
        new AbuseTest(session).run();
      }
    });
  }

  private void run() throws Exception {
    wrongHandles();
    wrongArguments();
    oddIndices();
    oddCells();
    identifiersOfDeletedRows();
    oddMessages();
    alive("odd messages");
  }

  /** Before any device is chosen there is nothing to show, and nothing to fall over. */
  private static void withoutDevice(Session session) {
    Check.same("", session.engine().deviceName(), "device");
    Check.same(List.of(), session.engine().dropDowns(), "drop-downs");
    session.engine().setDropDown(0, "x");
    session.engine().resetDropDowns();
    session.engine().setArchitecture("no such architecture");
    for (OperationType type : OperationType.values()) {
      session.exchange(request(type, KvxBookPacketData.getDefaultInstance()));
    }
    session.closeProject();
  }

  /** Every method that takes a handle, with none, an invented one, one of another kind and a dead one. */
  private void wrongHandles() throws Exception {
    try (StringVector texts = new StringVector()) {
      StringVector dead = new StringVector();
      dead.close();
      for (Method method : kvxi.class.getDeclaredMethods()) {
        if (!Modifier.isNative(method.getModifiers()) || method.getParameterCount() == 0) continue;
        boolean isOfObject = method.getName().contains("KVXEGuiInterface");
        boolean isOfTexts = method.getName().contains("StringVector");
        call(method, 0, NullPointerException.class);
        call(method, 1L << 60, IllegalArgumentException.class);
        call(method, -1, IllegalArgumentException.class);
        call(method, dead.handle(), IllegalArgumentException.class);
        call(method, isOfTexts ? session.engine().handle() : texts.handle(), IllegalArgumentException.class);
        if (isOfObject) wrongVectors(method);
      }
    }
    Check.throwsException(NullPointerException.class, "null KVXEGuiInterface",
        () -> kvxi.KVXEGuiInterface_getSelectedDeviceName(0));
    Check.throwsException(NullPointerException.class, "KVXEGuiInterface::StringVector & reference is null",
        () -> kvxi.KVXEGuiInterface_getDeviceSelectionDropDownsList(session.engine().handle(), 0));
    Check.throwsException(NullPointerException.class, "KVXEGuiInterface::IntVector & reference is null",
        () -> kvxi.KVXEGuiInterface_deleteTableRows(session.engine().handle(), 1, 1, 0));
  }

  private void wrongVectors(Method method) throws Exception {
    Class<?>[] types = method.getParameterTypes();
    for (int i = 1; i < types.length; ++i) {
      if (types[i] != long.class) continue;
      Object[] arguments = arguments(method, session.engine().handle());
      for (long vector : new long[] {0, -1, session.engine().handle()}) {
        arguments[i] = vector;
        expect(method, arguments, vector == 0 ? NullPointerException.class : IllegalArgumentException.class);
      }
    }
  }

  private static void call(Method method, long handle, Class<? extends Throwable> expected) throws Exception {
    expect(method, arguments(method, handle), expected);
  }

  private static void expect(Method method, Object[] arguments, Class<? extends Throwable> expected)
      throws Exception {
    String what = method.getName() + List.of(arguments);
    try {
      method.invoke(null, arguments);
    } catch (InvocationTargetException e) {
      Check.same(expected, e.getCause().getClass(), what + " threw " + e.getCause().getMessage());
      return;
    }
    throw new AssertionError(what + " was taken");
  }

  private static Object[] arguments(Method method, long handle) {
    Object[] arguments = new Object[method.getParameterCount()];
    for (int i = 0; i < arguments.length; ++i) {
      Class<?> type = method.getParameterTypes()[i];
      arguments[i] = type == long.class ? (Object) 0L
          : type == int.class ? (Object) 0
          : type == boolean.class ? (Object) false
          : type == byte[].class ? new byte[0] : "";
    }
    arguments[0] = handle;
    return arguments;
  }

  private void wrongArguments() {
    long self = session.engine().handle();
    byte[] bytes = new byte[8];
    Check.throwsException(NullPointerException.class, "null array",
        () -> kvxi.KVXEGuiInterface_getKvxHandshakeDataSize(self, null, 0, false, false, false, false));
    Check.throwsException(NullPointerException.class, "null array",
        () -> kvxi.KVXEGuiInterface_getKvxHandshakeDataByteArray(self, null, 1));
    Check.throwsException(NullPointerException.class, "null array",
        () -> kvxi.KVXEGuiInterface_getGenericTreeTableData(self, 1, 1, null, 1));
    for (int length : new int[] {-1, Integer.MIN_VALUE, 9, Integer.MAX_VALUE}) {
      Check.throwsException(IndexOutOfBoundsException.class, null,
          () -> kvxi.KVXEGuiInterface_getKvxHandshakeDataSize(
              self, bytes, length, false, false, true, false));
      Check.throwsException(IndexOutOfBoundsException.class, null,
          () -> kvxi.KVXEGuiInterface_getKvxHandshakeDataByteArray(self, bytes, length));
      Check.throwsException(IndexOutOfBoundsException.class, null,
          () -> kvxi.KVXEGuiInterface_getGenericTreeTableData(
              self, tab.index(), table.index(), bytes, length));
    }
    Check.throwsException(NullPointerException.class, "null std::string",
        () -> kvxi.KVXEGuiInterface_setDeviceSelectionDropDownCurrentValue(self, 0, null));
    Check.throwsException(NullPointerException.class, "null std::string",
        () -> kvxi.KVXEGuiInterface_setArchitectureDropDownCurrentValue(self, 0, null));
    Check.throwsException(ui.frmwork.cmd.CommandFailedException.class, null,
        () -> session.engine().handshake(new byte[9 << 20], View.INTERNAL, false));
    session.update();
    Check.that(!kvxi.KVXEGuiInterface_getKvxHandshakeDataByteArray(self, bytes, 0), "fits in nothing");
    try (IntVector numbers = IntVector.of(List.of(1)); StringVector texts = new StringVector()) {
      for (int index : new int[] {-1, 1, Integer.MAX_VALUE}) {
        Check.throwsException(IndexOutOfBoundsException.class, null,
            () -> kvxi.IntVector_get(numbers.handle(), index));
        Check.throwsException(IndexOutOfBoundsException.class, null,
            () -> kvxi.StringVector_get(texts.handle(), index));
      }
      Check.throwsException(NullPointerException.class, "null std::string",
          () -> kvxi.StringVector_add(texts.handle(), null));
    }
    alive("wrong arguments");
  }

  private void oddIndices() {
    for (int index : ODD_INDICES) {
      session.engine().setDropDown(index, "no such value");
      try (StringVector values = new StringVector()) {
        Check.same(-1, kvxi.KVXEGuiInterface_getDeviceSelectionDropDownValues(
            session.engine().handle(), index, values.handle()), "drop-down " + index);
      }
      for (TableOperation operation : TableOperation.values()) {
        for (int[] place : new int[][] {{index, 0, 0, 0}, {tab.index(), index, 0, 0},
            {tab.index(), table.index(), index, 0}, {tab.index(), table.index(), 0, index}}) {
          session.engine().can(operation, place[0], place[1], List.of(place[2]), place[3]);
          session.engine().perform(operation, place[0], place[1], List.of(place[2], place[2]), place[3]);
        }
      }
      Check.same(false, session.engine().hasTableEditingFeatures(index, index), "features of no table");
      if (index != 499) session.engine().table(index, index);
      session.update();
    }
    List<Integer> many = IntStream.range(0, 100_000).boxed().toList();
    session.engine().perform(TableOperation.CLEAR, tab.index(), table.index(), many, 0);
    session.engine().perform(TableOperation.DELETE, tab.index(), table.index(), List.of(3, 3, 3), 0);
    session.update();
    alive("odd indices");
  }

  private void oddCells() {
    for (int column = -1; column <= table.columns().size(); ++column) {
      for (int row : new int[] {-1, 0, 1, 499, 100_000}) {
        for (Object value : new Object[] {null, Float.NaN, Float.POSITIVE_INFINITY, -Float.MAX_VALUE, 0f,
            Integer.MIN_VALUE, Integer.MAX_VALUE, "", "text", "\0", "\u03a9"}) {
          for (ValueKind kind : ValueKind.values()) {
            boolean isNumber = value instanceof Number;
            if (kind != ValueKind.STRING && value != null && !isNumber) continue;
            KvxCellPacket.Builder cell = KvxCellPacket.newBuilder().setRow(row).setColumn(column);
            Values.put(cell, kind, value);
            session.edit(packet(tab.index(), table.index(), cell));
          }
        }
      }
    }
    for (int index : ODD_INDICES) {
      KvxCellPacket.Builder cell = KvxCellPacket.newBuilder().setRow(0).setColumn(1);
      Values.put(cell, ValueKind.STRING, "x");
      session.edit(packet(index, 0, cell));
      session.edit(packet(tab.index(), index, cell));
      session.edit(packet(tab.index(), table.index(), cell.clone().setColumn(index)));
      session.edit(packet(tab.index(), table.index(), cell.clone().clearRow().clearColumn().setUid(index)));
    }
    session.edit(packet(tab.index(), table.index(), KvxCellPacket.newBuilder().setRow(0).setColumn(1)));
    alive("odd cells");
  }

  private void identifiersOfDeletedRows() {
    long[] uids = session.engine().table(tab.index(), table.index()).getModel().getRowsList().stream()
        .flatMapToLong(row -> row.getCellsList().stream().mapToLong(cell -> cell.getUid())).toArray();
    List<Integer> rows = IntStream.range(1, table.rows().size()).boxed().toList();
    session.engine().perform(TableOperation.DELETE, tab.index(), table.index(), rows, 0);
    session.update();
    for (int i = 0; i < uids.length; i += 7) {
      KvxCellPacket.Builder cell = KvxCellPacket.newBuilder().setUid(uids[i]);
      Values.put(cell, ValueKind.STRING, "ghost");
      session.edit(packet(tab.index(), table.index(), cell));
    }
    alive("identifiers of deleted rows");
  }

  private void oddMessages() {
    for (int i = 0; i < 3000; ++i) {
      byte[] bytes = new byte[random.nextInt(200)];
      random.nextBytes(bytes);
      send(bytes);
    }
    byte[] edit = realEdit().toByteArray();
    for (int length = 0; length < edit.length; ++length) send(java.util.Arrays.copyOf(edit, length));
    for (int i = 0; i < 2000; ++i) {
      byte[] bytes = edit.clone();
      for (int j = random.nextInt(3); j >= 0; --j) {
        bytes[random.nextInt(bytes.length)] = (byte) random.nextInt(256);
      }
      send(bytes);
    }
    send(nested(90));
    send(nested(5000));
  }

  private KvxHandshakeData realEdit() {
    KvxTablePacket.Builder rows = KvxTablePacket.newBuilder().setTableIndex(table.index());
    for (int column = 1; column < table.columns().size(); ++column) {
      KvxCellPacket.Builder cell = KvxCellPacket.newBuilder().setRow(column % 5).setColumn(column);
      ValueKind kind = table.columns().get(column).kind();
      Values.put(cell, kind, kind == ValueKind.STRING ? "clk" : (Object) 250f);
      rows.addCells(cell);
    }
    var section = KvxSectionPacket.newBuilder().setTabIndex(tab.index()).addTables(rows);
    return request(OperationType.INCREMENTAL_CALCULATION,
        KvxBookPacketData.newBuilder().addSections(section).build());
  }

  /** A dialog packet of panels in panels; every length on the way is right. */
  private static byte[] nested(int depth) {
    ByteString bytes = ByteString.EMPTY;
    for (int i = 0; i < depth; ++i) {
      boolean isPanel = i % 2 == 0;
      bytes = wrapped(
          isPanel ? GenericGridPanel.COMPONENTS_FIELD_NUMBER : GenericGuiComponent.GRIDPANEL_FIELD_NUMBER,
          bytes);
    }
    KvxHandshakeData operation = request(OperationType.DIALOG_PACKET, KvxBookPacketData.getDefaultInstance());
    return operation.toByteString()
        .concat(wrapped(KvxHandshakeData.GENERICDIALOGPACKET_FIELD_NUMBER, wrapped(1, wrapped(1, bytes))))
        .toByteArray();
  }

  private static ByteString wrapped(int field, ByteString content) {
    var unknown = com.google.protobuf.UnknownFieldSet.newBuilder();
    unknown.addField(field,
        com.google.protobuf.UnknownFieldSet.Field.newBuilder().addLengthDelimited(content).build());
    return unknown.build().toByteString();
  }

  /** Sends bytes as they are. The copy does not follow: replies may be anything. */
  private void send(byte[] bytes) {
    try {
      session.engine().handshake(bytes, View.INTERNAL, false);
    } catch (RuntimeException refused) {
      Check.that(!(refused instanceof IllegalStateException), "a reply that cannot be read: " + refused);
    }
  }

  /** The session still works. */
  private void alive(String after) {
    if (!session.refresh().getStatus().getIsProjectOpen()) Devices.createProject(session, "Tarvek");
    session.look(View.DEVELOPER);
    session.look(View.INTERNAL);
    Check.none(Probe.differences(session.book()), after);
    Tab clocks = session.book().tab("CLOCK").orElseThrow();
    Table rows = clocks.table(table.index());
    int name = rows.column("Name").orElse(1);
    session.edit(clocks, rows, 0, List.of(new Session.Edit(name, "alive_" + random.nextInt(1000))));
    Check.none(Probe.differences(session.book()), after + " and an edit");
  }

  private static KvxBookPacketData packet(int tabIndex, int tableIndex, KvxCellPacket.Builder cell) {
    var rows = KvxTablePacket.newBuilder().setTableIndex(tableIndex).addCells(cell);
    var section = KvxSectionPacket.newBuilder().setTabIndex(tabIndex).addTables(rows);
    return KvxBookPacketData.newBuilder().addSections(section).build();
  }

  private static KvxHandshakeData request(OperationType type, KvxBookPacketData packet) {
    return KvxHandshakeData.newBuilder().setOperation(KvxOperationData.newBuilder().setType(type))
        .setBookPacket(packet).build();
  }
}
