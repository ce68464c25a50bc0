#include "models/catalogue/IoStandardReader.h"

#include <algorithm>
#include <iterator>

#include "models/catalogue/CatalogueBuilder.h"

namespace kvxm {
namespace {

using Words = std::vector<std::string_view>;

struct KnownBank {
  Architecture architecture;
  std::string_view type;
  IoBank bank;
};
constexpr KnownBank knownBanks[] = {
    {Architecture::Tarvek, "HSIO", IoBank::TarvekHsio},
    {Architecture::Tarvek, "LSIO", IoBank::TarvekLsio},
    {Architecture::Morlan, "MSIO", IoBank::MorlanMsio},
    {Architecture::Morlan, "LSIO", IoBank::MorlanLsio},
};

// In the order of IoSignalling.
const Words signallingWords{"rail", "half", "supply", "current"};

const KnownBank& readBank(CsvRow& row, Architecture architecture) {
  Words types;
  for (const KnownBank& known : knownBanks)
    if (known.architecture == architecture) types.push_back(known.type);
  const std::string type = row.choice("type", types);
  const auto found = std::find_if(std::begin(knownBanks), std::end(knownBanks), [&](const KnownBank& known) {
    return known.architecture == architecture && known.type == type;
  });
  return found == std::end(knownBanks) ? knownBanks[0] : *found;  // a wrong row is not taken in
}

std::string keyOf(const KnownBank& bank, const std::string& standard) {
  return std::string(architectureText(bank.architecture)).append(" ").append(bank.type) + " " + standard;
}

std::vector<std::string> readTerminations(CsvRow& row, std::string_view column) {
  constexpr double LeastOhms = 10.0, MostOhms = 10000.0;
  std::vector<std::string> names{std::string(noTermination)};
  for (const std::string& name : row.words(column)) {
    const double ohms = terminationOhms(name);
    if (ohms < LeastOhms || ohms > MostOhms)
      row.wrong(column, quoted(name), "expected a name that ends in _ and 10 to 10000 ohms, as RTT_40");
    names.push_back(name);
  }
  return names;
}

void checkSignalling(CsvRow& row, const IoStandard& standard) {
  const bool isCurrent = standard.signalling == IoSignalling::Current;
  if (isCurrent != (standard.driverMilliamps > 0.0))
    row.wrong("driver_ma", row.text("driver_ma"),
              "expected a current with the signalling \"current\", else 0");
  if (isCurrent && !standard.isDifferential)
    row.wrong("differential", row.text("differential"), "expected yes with the signalling \"current\"");
  if (standard.signalling == IoSignalling::Rail && standard.inputTerminations.size() > 1)
    row.wrong("input_terminations", row.text("input_terminations"),
              "expected none with the signalling \"rail\"");
  if (standard.signalling == IoSignalling::Rail && standard.outputTerminations.size() > 1)
    row.wrong("output_terminations", row.text("output_terminations"),
              "expected none with the signalling \"rail\"");
}

}  // namespace

void IoStandardReader::read(const DataFile& file, const std::vector<std::string_view>& rails) {
  CsvTable table(file, m_problems);
  if (!table.checkColumns({"type", "standard", "rail", "signalling", "differential", "driver_ohms", "swing",
                           "receiver_ma", "driver_ma", "input_terminations", "output_terminations"}))
    return;
  for (const CsvTable::Row& cells : table.rows()) {
    CsvRow row(table, cells);
    readStandard(row, file, rails);
  }
}

void IoStandardReader::readStandard(CsvRow& row, const DataFile& file,
                                    const std::vector<std::string_view>& rails) {
  const KnownBank& bank = readBank(row, architectureOf(file));
  std::vector<IoStandard>& standards = banks[static_cast<std::size_t>(bank.bank)].standards;
  IoStandard standard;
  standard.name = row.required("standard");
  standard.rail = row.choice("rail", rails);
  const auto word =
      std::find(signallingWords.begin(), signallingWords.end(), row.choice("signalling", signallingWords));
  standard.signalling = static_cast<IoSignalling>(word - signallingWords.begin());
  standard.isDifferential = row.yesNo("differential");
  standard.driverOhms = static_cast<double>(row.number("driver_ohms", 1, 1000));
  standard.swing = static_cast<double>(row.number("swing", 0.01f, 1));
  standard.receiverMilliamps = static_cast<double>(row.number("receiver_ma", 0, 20));
  standard.driverMilliamps = static_cast<double>(row.number("driver_ma", 0, 50));
  standard.inputTerminations = readTerminations(row, "input_terminations");
  standard.outputTerminations = readTerminations(row, "output_terminations");
  if (row.ok()) checkSignalling(row, standard);
  const std::string key = keyOf(bank, standard.name);
  if (!m_seen.insert((file.isUser ? "user " : "built-in ") + key).second)
    row.wrong("standard", "duplicate " + quoted(standard.name), "expected it once");
  if (!row.ok()) return;
  m_origins[key] = {{file.kind, file.directory, file.path, {}, file.isUser}, row.line()};
  const auto known = std::find_if(standards.begin(), standards.end(),
                                  [&](const IoStandard& one) { return one.name == standard.name; });
  if (known == standards.end()) return standards.push_back(std::move(standard));
  *known = std::move(standard);
}

void IoStandardReader::finish(const std::vector<Device>& devices) {
  for (IoBankStandards& bank : banks)
    for (const IoStandard& standard : bank.standards) bank.names.push_back(standard.name);
  for (const Device& device : devices) checkRails(device);
}

void IoStandardReader::checkRails(const Device& device) {
  for (const KnownBank& bank : knownBanks) {
    if (bank.architecture != device.architecture || device.resource(bank.type) == 0) continue;
    for (const IoStandard& standard : banks[static_cast<std::size_t>(bank.bank)].standards) {
      const Supply* supply = device.supply(standard.rail);
      if (supply && supply->category == "IO") continue;
      const Origin& origin = m_origins[keyOf(bank, standard.name)];
      m_problems.error(origin.file, origin.line, "rail",
                       quoted(standard.rail) + " is no IO supply of " + device.name,
                       "expected one of every device that has " + std::string(bank.type));
    }
  }
}

}  // namespace kvxm
