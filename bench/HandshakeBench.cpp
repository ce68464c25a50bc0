// What the front end waits for: bytes in, bytes out, on the workbook of a large estimate.
//
// Each benchmark sends a request and fetches the reply, as the native methods do. The counters tell what came
// back: bytes, and cells.

#include <benchmark/benchmark.h>

#include <chrono>
#include <functional>
#include <iostream>
#include <memory>

#include "bench/BenchBook.h"
#include "engine/base/workbook/KVXEBook.h"
#include "engine/base/workbook/KVXECellStateMgr.h"
#include "engine/base/workbook/KVXERow.h"
#include "engine/base/workbook/KVXETemplateCell.h"
#include "engine/swig/KVXEGuiInterface.h"

namespace {

using Bytes = std::vector<unsigned char>;

constexpr unsigned int Rows = 500;

/// A front end with a full book.
struct Session {
  BenchBook book{Rows};
  KVXEGuiInterface engine;
  Bytes reply;
  double firstSeconds = 0;  ///< of the first bundle, for which the message finds no memory of its own yet

  Session() {
    book.settle();
    KVXECellStateMgr::getGlobal().requestGuiRedraw();
    const auto begin = std::chrono::steady_clock::now();
    send(requestFor(KvxOperationData_OperationType_TABLE_EDIT, {}));
    firstSeconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
  }

  static Bytes requestFor(KvxOperationData_OperationType type, const KvxBookPacketData& packet) {
    KvxHandshakeData request;
    request.mutable_operation()->set_type(type);
    if (packet.sections_size() > 0) *request.mutable_bookpacket() = packet;
    Bytes bytes(request.ByteSizeLong());
    request.SerializeToArray(bytes.data(), static_cast<int>(bytes.size()));
    return bytes;
  }

  void send(Bytes request) {
    const unsigned int size = engine.getKvxHandshakeDataSize(request.data(), static_cast<int>(request.size()),
                                                             false, false, false, false);
    reply.resize(size);
    engine.getKvxHandshakeDataByteArray(reply.data(), static_cast<int>(size));
  }
};

Session& session() {
  static Session theSession;
  return theSession;
}

KvxTablePacket& tablePacket(KvxBookPacketData& packet, KVXETable* table) {
  KvxSectionPacket* section = packet.add_sections();
  section->set_tabindex(static_cast<int>(table->getTab()->getIndex()));
  KvxTablePacket* tables = section->add_tables();
  tables->set_tableindex(static_cast<int>(table->getIndex()));
  return *tables;
}

void addCell(KvxTablePacket& packet, KVXECell* cell, float shown) {
  KvxCellPacket* entry = packet.add_cells();
  entry->set_row(static_cast<int>(cell->getRow()->getIndex()) - 1);
  entry->set_column(static_cast<int>(cell->getColumnIndex()));
  entry->mutable_floatpacket()->set_value(shown);
}

Bytes editOf(KVXECell* cell, float shown) {
  KvxBookPacketData packet;
  addCell(tablePacket(packet, cell->getRow()->getTable()), cell, shown);
  return Session::requestFor(KvxOperationData_OperationType_INCREMENTAL_CALCULATION, packet);
}

/// Every editable number of every row of a table, as after a paste of the whole table.
Bytes pasteInto(KVXETable* table, float factor) {
  KvxBookPacketData packet;
  KvxTablePacket& cells = tablePacket(packet, table);
  for (unsigned int i = 1; i < table->getRowCount(); ++i)
    for (unsigned int c = 1; c < table->getColumnCount(); ++c) {
      KVXECell* cell = table->getCellAt(i, c);
      float value = 0.0f;
      if (cell->getCellType() == KVXEEnums::CellType::STRING || !cell->getIsEditable()) continue;
      if (!cell->getVal(value, false)) continue;
      cell->unitAdjustment(value, true);
      addCell(cells, cell, value * factor);
    }
  return Session::requestFor(KvxOperationData_OperationType_INCREMENTAL_CALCULATION, packet);
}

double cellsIn(const KvxBookBundleNodeData& node) {
  double count = 0;
  for (const KvxGridComponentData& component : node.gridcontent().components())
    for (const GenericTreeTablesTabData& tab : component.tablechart().tables().tabs())
      for (const GenericTreeTableRowData& row : tab.table().model().rows()) count += row.cells_size();
  for (const KvxBookBundleNodeData& child : node.children()) count += cellsIn(child);
  return count;
}

double cellsIn(const Bytes& bytes) {
  KvxHandshakeData reply;
  reply.ParseFromArray(bytes.data(), static_cast<int>(bytes.size()));
  double count = 0;
  for (const KvxBookBundleNodeData& node : reply.bookbundle().nodes()) count += cellsIn(node);
  for (const KvxSectionPacket& section : reply.bookpacket().sections())
    for (const KvxTablePacket& table : section.tables()) count += table.cells_size();
  return count;
}

/// Sends two requests in turn, so that each has something to change.
void alternate(benchmark::State& state, const Bytes& a, const Bytes& b, const std::function<void()>& before) {
  bool isA = false;
  for (auto _ : state) {
    before();
    session().send((isA = !isA) ? a : b);
  }
  state.counters["bytes"] = static_cast<double>(session().reply.size());
  state.counters["cells"] = cellsIn(session().reply);
}

void nothing() {}

void bundle(benchmark::State& state) {
  const Bytes request = Session::requestFor(KvxOperationData_OperationType_TABLE_EDIT, {});
  alternate(state, request, request, [] { KVXECellStateMgr::getGlobal().requestGuiRedraw(); });
  state.counters["first_s"] = session().firstSeconds;
}

void editRow(benchmark::State& state) {
  KVXECell* cell = session().book.getToggleRate(7);
  alternate(state, editOf(cell, 20.0f), editOf(cell, 30.0f), nothing);
}

void editClock(benchmark::State& state) {
  KVXECell* cell = session().book.getClockFrequency(3);
  alternate(state, editOf(cell, 200.0f), editOf(cell, 250.0f), nothing);
}

void pasteRows(benchmark::State& state) {
  KVXETable* table = session().book.getLogicTable();
  alternate(state, pasteInto(table, 0.5f), pasteInto(table, 1.0f), nothing);
}

void refresh(benchmark::State& state) {
  const Bytes request = Session::requestFor(KvxOperationData_OperationType_REFRESH, {});
  alternate(state, request, request, nothing);
}

void noEdit(benchmark::State& state) {
  const Bytes request = Session::requestFor(KvxOperationData_OperationType_INCREMENTAL_CALCULATION, {});
  alternate(state, request, request, nothing);
}

}  // namespace

BENCHMARK(bundle)->Unit(benchmark::kMillisecond);
BENCHMARK(editRow)->Unit(benchmark::kMillisecond);
BENCHMARK(editClock)->Unit(benchmark::kMillisecond);
BENCHMARK(pasteRows)->Unit(benchmark::kMillisecond);
BENCHMARK(refresh)->Unit(benchmark::kMillisecond);
BENCHMARK(noEdit)->Unit(benchmark::kMillisecond);

int main(int argc, char** argv) {
  std::cout.setstate(std::ios::failbit);  // what the engine prints would mix with the figures
  benchmark::Initialize(&argc, argv);
  session();
  std::cout.clear();
  benchmark::RunSpecifiedBenchmarks();
}
