#include "models/catalogue/SomBoardReader.h"

#include <algorithm>

#include "models/catalogue/ModelDataStore.h"

namespace kvxm {
namespace {

using Words = std::vector<std::string_view>;

#define KVXM_BOARD_LOAD(number, name, meaning) #name,
const Words loadWords{
#include "models/catalogue/SomBoard.def"
};
#undef KVXM_BOARD_LOAD
#define KVXM_BOARD_USE(number, name, meaning) #name,
#define KVXM_BOARD_INTERFACE(number, name, meaning) #name,
const Words useWords{
#include "models/catalogue/SomBoard.def"
};
#undef KVXM_BOARD_USE
#undef KVXM_BOARD_INTERFACE
#define KVXM_BOARD_COMPONENT(number, name, meaning) #name,
const Words componentWords{
#include "models/catalogue/SomBoard.def"
};
#undef KVXM_BOARD_COMPONENT
#define KVXM_BOARD_OUTPUT(number, name) #name,
const Words outputWords{
#include "models/catalogue/SomBoard.def"
};
#undef KVXM_BOARD_OUTPUT

/// The member of a word; the lists are numbered from 0 without gaps.
template <class Enum>
Enum memberOf(std::string_view word, const Words& words) {
  const auto found = std::find(words.begin(), words.end(), word);
  return static_cast<Enum>(found == words.end() ? 0 : found - words.begin());
}

template <class Enum>
Enum readWord(CsvRow& row, std::string_view column, const Words& words) {
  return memberOf<Enum>(row.choice(column, words), words);
}

std::vector<BoardLoad> readLoads(CsvRow& row) {
  std::vector<BoardLoad> loads;
  for (const std::string& word : row.words("loads")) {
    if (std::find(loadWords.begin(), loadWords.end(), word) == loadWords.end())
      row.wrong("loads", quoted(word), expectedOneOf(word, loadWords));
    loads.push_back(memberOf<BoardLoad>(word, loadWords));
  }
  return loads;
}

template <class Record, class Same>
void put(std::vector<Record>& records, Record record, Same same) {
  const auto found = std::find_if(records.begin(), records.end(), same);
  if (found == records.end()) return records.push_back(std::move(record));
  *found = std::move(record);
}

}  // namespace

void SomBoardReader::read(const DataFile& file, const std::vector<std::string_view>& modules) {
  m_modules = modules;
  const bool isRegulators = file.kind == DataKind::BoardRegulators;
  CsvTable table(file, m_problems);
  const Words columns = isRegulators ? Words{"module",     "output",    "component", "volts",
                                             "efficiency", "milliohms", "limit_w",   "loads"}
                                     : Words{"module", "use", "load", "component", "watts"};
  if (!table.checkColumns(columns)) return;
  if (isRegulators) m_origin = {file.kind, file.directory, file.path, {}, file.isUser};
  for (const CsvTable::Row& cells : table.rows()) {
    CsvRow row(table, cells);
    if (isRegulators) {
      readRegulator(row, file);
    } else {
      readConsumer(row, file);
    }
  }
}

void SomBoardReader::readRegulator(CsvRow& row, const DataFile& file) {
  const std::string device = row.choice("module", m_modules);
  BoardRegulator regulator;
  regulator.output = readWord<BoardOutput>(row, "output", outputWords);
  regulator.component = readWord<BoardComponent>(row, "component", componentWords);
  regulator.volts = row.number("volts", 0.1f, 60);
  regulator.efficiency = row.number("efficiency", 0.05f, 1);
  regulator.ohms = row.number("milliohms", 0, 1000) * 1e-3f;
  regulator.limitWatts = row.number("limit_w", 0, 1000);
  regulator.loads = readLoads(row);
  const bool isInput = regulator.output == BoardOutput::VCC_SOM;
  if (isInput && (!regulator.loads.empty() || regulator.efficiency != 1.0f))
    row.wrong("output", "VCC_SOM", "expected no loads and efficiency 1: it feeds the regulators");
  const std::string key = device + " " + std::string(row.text("output"));
  if (!firstInLayer(row, file, "output", key) || !row.ok()) return;
  SomBoard& board = boardOf(device);
  if (isInput) {
    board.input = std::move(regulator);
    return;
  }
  const BoardOutput output = regulator.output;
  put(board.regulators, std::move(regulator),
      [&](const BoardRegulator& known) { return known.output == output; });
}

void SomBoardReader::readConsumer(CsvRow& row, const DataFile& file) {
  const std::string device = row.choice("module", m_modules);
  BoardConsumer consumer;
  consumer.use = readWord<BoardUse>(row, "use", useWords);
  consumer.load = readWord<BoardLoad>(row, "load", loadWords);
  consumer.component = readWord<BoardComponent>(row, "component", componentWords);
  consumer.watts = row.number("watts", 0, 100);
  std::string key = device;
  for (const char* column : {"use", "load", "component"}) key.append(" ").append(row.text(column));
  if (!firstInLayer(row, file, "use", key) || !row.ok()) return;
  put(boardOf(device).consumers, consumer, [&](const BoardConsumer& known) {
    return known.use == consumer.use && known.load == consumer.load && known.component == consumer.component;
  });
}

bool SomBoardReader::firstInLayer(CsvRow& row, const DataFile& file, std::string_view column,
                                  const std::string& key) {
  const char* layer = file.isUser ? "user " : "built-in ";
  if (m_seen.insert(layer + key).second) return true;
  row.wrong(column, quoted(key) + " stands here twice", "expected one row for each");
  return false;
}

SomBoard& SomBoardReader::boardOf(const std::string& device) {
  const auto found = std::find_if(boards.begin(), boards.end(),
                                  [&](const SomBoard& board) { return board.device == device; });
  if (found != boards.end()) return *found;
  boards.push_back({device, {}, {}, {}});
  return boards.back();
}

void SomBoardReader::finish() {
  for (const SomBoard& board : boards) {
    if (board.input.volts <= 0.0f)
      m_problems.error(m_origin, 0, board.device, "no output VCC_SOM",
                       "expected a row for the board's input");
    checkFeeds(board);
  }
}

/// A load without a supply, or with two, would break the balance of the board.
void SomBoardReader::checkFeeds(const SomBoard& board) {
  for (std::size_t i = 0; i < loadWords.size(); ++i) {
    std::ptrdiff_t feeds = 0;
    for (const BoardRegulator& regulator : board.regulators)
      feeds += std::count(regulator.loads.begin(), regulator.loads.end(), static_cast<BoardLoad>(i));
    if (feeds == 1) continue;
    m_problems.error(m_origin, 0, board.device,
                     std::string(loadWords[i]) + (feeds ? " is fed twice" : " is not fed"),
                     "expected each load at one output");
  }
}

BoardComponent SomBoard::heatedBy(BoardOutput output) const {
  for (const BoardRegulator& regulator : regulators)
    if (regulator.output == output) return regulator.component;
  return BoardComponent::PCB;
}

const SomBoard* findSomBoard(std::string_view device) {
  for (const SomBoard& board : ModelDataStore::current().boards)
    if (board.device == device) return &board;
  return nullptr;
}

}  // namespace kvxm
