// What a project costs on its way to the disk and back: a full book, 5 tables of 500 rows in use.

#include <benchmark/benchmark.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "bench/BenchBook.h"
#include "engine/base/calculation/KVXECalculationMgr.h"
#include "engine/base/project/KVXEPrjMgr.h"
#include "engine/base/workbook/KVXEBookMgr.h"
#include "engine/base/workbook/KVXECellStateMgr.h"

namespace fs = std::filesystem;

namespace {

constexpr unsigned int Rows = 500;
constexpr const char* File = "bench.kvx";

/// A directory of its own, which the staging directories lie in, too.
class Place {
 public:
  Place() : m_path(fs::temp_directory_path() / ("kvx-bench-" + std::to_string(getpid()))) {
    fs::create_directories(m_path);
    fs::current_path(m_path);
  }
  ~Place() {
    fs::current_path("/");
    fs::remove_all(m_path);
  }

 private:
  fs::path m_path;
};

/// A line of the kernel's account of this process, in bytes.
double memory(const std::string& line) {
  std::ifstream status("/proc/self/status");
  for (std::string word; status >> word;) {
    if (word != line) continue;
    double kilobytes = 0.0;
    status >> kilobytes;
    return kilobytes * 1024.0;
  }
  return 0.0;
}

/// Lets go of the highest mark that the memory has reached so far.
void resetPeak() {
  std::ofstream("/proc/self/clear_refs") << "5";
}

void saveBook() {
  KVXEPrjMgr& project = KVXEPrjMgr::getGlobal();
  project.newProject(File);
  project.saveProject("");
}

void openBook() {
  KVXEPrjMgr::getGlobal().openProject(File);
  KVXECalculationMgr::getGlobal().fullCalculate();
}

void closeBook() {
  KVXEPrjMgr::getGlobal().closeProject();
  KVXEBookMgr::getGlobal().closeProject();
}

/// Resident memory in bytes: of the book, and the most while it is saved or opened.
struct Memory {
  double book = 0.0, peak = 0.0;
};
Memory saveMemory, openMemory;

/// In a process of its own, whose memory nobody has used before.
template <class Measure>
Memory measureApart(Measure measure) {
  int channel[2];
  Memory memory;
  if (pipe(channel) != 0) return memory;
  const pid_t child = fork();
  if (child == 0) {
    memory = measure();
    _exit(write(channel[1], &memory, sizeof memory) == sizeof memory ? 0 : 1);
  }
  close(channel[1]);
  if (read(channel[0], &memory, sizeof memory) != sizeof memory) memory = {};
  close(channel[0]);
  waitpid(child, nullptr, 0);
  return memory;
}

/// Leaves the project file behind.
Memory measureSave() {
  const double empty = memory("VmRSS:");
  BenchBook book(Rows);
  KVXECalculationMgr::getGlobal().fullCalculate();
  const double size = memory("VmRSS:") - empty;
  resetPeak();
  saveBook();
  return {size, memory("VmHWM:") - empty};
}

Memory measureOpen() {
  const double empty = memory("VmRSS:");
  resetPeak();
  openBook();
  return {memory("VmRSS:") - empty, memory("VmHWM:") - empty};
}

void tell(benchmark::State& state, const Memory& memory) {
  constexpr double mega = 1024.0 * 1024.0;
  state.counters["book_MB"] = saveMemory.book / mega;
  state.counters["peak_MB"] = memory.peak / mega;
  state.counters["peak_per_book"] = memory.peak / saveMemory.book;
}

void save(benchmark::State& state) {
  BenchBook book(Rows);
  KVXECalculationMgr::getGlobal().fullCalculate();
  saveBook();
  for (auto _ : state)
    if (!KVXEPrjMgr::getGlobal().saveProject("")) state.SkipWithError("not saved");
  state.counters["file_MB"] = static_cast<double>(fs::file_size(File)) / 1e6;
  state.counters["cells"] = static_cast<double>(book.countCells());
  tell(state, saveMemory);
  closeBook();
}
BENCHMARK(save)->Unit(benchmark::kMillisecond);

/// Up to the results: with the full calculation.
void open(benchmark::State& state) {
  {
    BenchBook book(Rows);
    KVXECalculationMgr::getGlobal().fullCalculate();
    saveBook();
    closeBook();
  }
  for (auto _ : state) {
    openBook();
    state.PauseTiming();
    closeBook();
    state.ResumeTiming();
  }
  tell(state, openMemory);
}
BENCHMARK(open)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
  const Place place;
  saveMemory = measureApart(&measureSave);
  openMemory = measureApart(&measureOpen);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}
