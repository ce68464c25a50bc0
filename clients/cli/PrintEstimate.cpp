#include "clients/cli/PrintEstimate.h"

#include "clients/cli/Apportion.h"
#include "clients/cli/TextTable.h"
#include "models/common/KVXMHelperUtils.h"

namespace kvx {

namespace {

constexpr double Milliwatt = 1e-3;
constexpr double TenthOfPercent = 1e-1;

/// With that many decimals; what would not fit into a column, in its shortest form.
std::string showNumber(double number, unsigned int decimals) {
  constexpr double Largest = 1e7;
  if (number > -Largest && number < Largest) return KVXMHelperUtils::formatFixed(number, decimals);
  return KVXMHelperUtils::ToString(static_cast<float>(number));
}

/// A line of the block table: a total, a category or a block.
struct BlockLine {
  std::string name;
  unsigned int level = 0;
  double watts = 0;
  std::vector<BlockLine> parts = {};
  // Rounded so that the parts of a line add up to it.
  std::int64_t milliwatts = 0;
  std::int64_t tenthsOfPercent = 0;
};

void addBlock(BlockLine& kind, const Estimate::Block& block) {
  const double watts = static_cast<double>(block.watts);
  kind.watts += watts;
  BlockLine* parent = &kind;
  if (!block.category.empty()) {
    if (kind.parts.empty() || kind.parts.back().name != block.category)
      kind.parts.push_back({block.category, 2});
    parent = &kind.parts.back();
    parent->watts += watts;
  }
  parent->parts.push_back({block.name, parent->level + 1, watts});
}

/// Hands the line's rounded values down to its parts.
void roundParts(BlockLine& line) {
  std::vector<double> watts, shares;
  for (const BlockLine& part : line.parts) {
    watts.push_back(part.watts);
    shares.push_back(line.watts > 0 ? part.watts / line.watts * static_cast<double>(line.tenthsOfPercent)
                                    : 0.0);
  }
  const std::vector<std::int64_t> milliwatts = apportion(watts, Milliwatt, line.milliwatts);
  const std::vector<std::int64_t> tenths = apportion(shares, 1.0, line.watts > 0 ? line.tenthsOfPercent : 0);
  for (std::size_t i = 0; i < line.parts.size(); ++i) {
    line.parts[i].milliwatts = milliwatts[i];
    line.parts[i].tenthsOfPercent = tenths[i];
    roundParts(line.parts[i]);
  }
}

BlockLine makeBlockTree(const Estimate& estimate) {
  BlockLine total{"Total", 0, estimate.totalWatts(), {{"Dynamic", 1}, {"Static", 1}}};
  for (const Estimate::Block& block : estimate.blocks) addBlock(total.parts[block.isStatic ? 1 : 0], block);
  total.milliwatts = toUnits(total.watts, Milliwatt);
  total.tenthsOfPercent = total.watts > 0 ? toUnits(100.0, TenthOfPercent) : 0;
  roundParts(total);
  return total;
}

std::string showMilliwatts(std::int64_t milliwatts) {
  return showNumber(static_cast<double>(milliwatts) * Milliwatt, 3);
}

/// Two columns: what, and a number with its unit.
std::string summaryLine(const std::string& what, const std::string& number, const std::string& note) {
  std::string line = padRight(what, 22) + padLeft(number, 12);
  if (!note.empty()) line += "   " + note;
  return line + "\n";
}

std::string showDegrees(float celsius) {
  return showNumber(static_cast<double>(celsius), 1) + " C";
}

std::string junctionNote(const Estimate& estimate) {
  std::string note = "at most " + showDegrees(estimate.junctionMax);
  if (estimate.isJunctionGiven) return note + "; given, not calculated";
  note += "; ambient " + showDegrees(estimate.ambient);
  if (estimate.thetaJa)
    note += ", theta JA " + showNumber(static_cast<double>(*estimate.thetaJa), 2) + " C/W";
  return note;
}

std::string budgetLine(const Estimate& estimate, const Style& style) {
  const std::string limit = showNumber(*estimate.budget, 3) + " W";
  return summaryLine("Power budget", limit, estimate.isBudgetBroken() ? style.error("exceeded") : "met");
}

std::string printSummary(const Estimate& estimate, const BlockLine& total, const Style& style) {
  std::string text;
  for (const std::string& line : wrapText(printable(estimate.name), LineWidth))
    text += style.bold(line) + "\n";
  text += estimate.part + (estimate.family.empty() ? "" : ", " + estimate.family) + ", process " +
          estimate.process + "\n";
  if (!estimate.characterization.empty()) text += "Characterization: " + estimate.characterization + "\n";
  text += "\n";
  if (const auto board = estimate.boardWatts())
    text += summaryLine("Total board power", showMilliwatts(toUnits(*board, Milliwatt)) + " W",
                        "at the board's input");
  text += summaryLine("Total on-chip power", showMilliwatts(total.milliwatts) + " W", "");
  for (const BlockLine& kind : total.parts)
    text += summaryLine("  " + kind.name, showMilliwatts(kind.milliwatts) + " W", "");
  if (const std::int64_t offChip = toUnits(static_cast<double>(estimate.offChipWatts), Milliwatt);
      offChip > 0)
    text += summaryLine("Off-chip power", showMilliwatts(offChip) + " W",
                        "drawn from the rails, burnt in terminations elsewhere");
  text += summaryLine("Junction temperature", showDegrees(estimate.junction), junctionNote(estimate));
  const bool isTooHot = estimate.marginDegrees < 0;
  std::string watts;
  if (estimate.marginWatts) watts = showNumber(static_cast<double>(*estimate.marginWatts), 3) + " W";
  if (isTooHot) watts = style.error(watts.empty() ? "too hot" : watts + ", too hot");
  text += summaryLine("Thermal margin", showDegrees(estimate.marginDegrees), watts);
  if (estimate.budget) text += budgetLine(estimate, style);
  return text;
}

// Blocks.

std::string blockLine(const BlockLine& line) {
  return padRight(std::string(2 * line.level, ' ') + line.name, 34) +
         padLeft(showMilliwatts(line.milliwatts), 12) +
         padLeft(showNumber(static_cast<double>(line.tenthsOfPercent) * TenthOfPercent, 1), 9) + "\n";
}

/// The line and its parts; a block that rounds to nothing is left out.
void printBlockLine(const BlockLine& line, std::string& text) {
  if (line.level > 1 && line.milliwatts == 0) return;
  text += blockLine(line);
  for (const BlockLine& part : line.parts) printBlockLine(part, text);
}

std::string printBlocks(const char* head, const BlockLine& total, const Style& style) {
  std::string text =
      "\n" + style.bold(padRight(head, 34) + padLeft("Power (W)", 12) + padLeft("%", 9)) + "\n";
  printBlockLine(total, text);
  return text;
}

// Board.

std::string printBoard(const Estimate& estimate, const Style& style) {
  const auto total = estimate.boardWatts();
  if (!total) return "";
  BlockLine board{"Total", 0, *total};
  for (const Estimate::Component& component : estimate.components)
    board.parts.push_back({component.name, 1, static_cast<double>(component.watts)});
  board.milliwatts = toUnits(board.watts, Milliwatt);
  board.tenthsOfPercent = board.watts > 0 ? toUnits(100.0, TenthOfPercent) : 0;
  roundParts(board);
  return printBlocks("Board", board, style);
}

// Rails.

std::string railLine(const std::string& name, const std::string (&cells)[5]) {
  std::string line = padRight(name, 24);
  for (const std::string& cell : cells) line += padLeft(cell, 13);
  return line;
}

std::string printRails(const Estimate& estimate, const Style& style) {
  if (estimate.rails.empty()) return "";
  const std::string head =
      railLine("Rail", {"Voltage (V)", "Dynamic (A)", "Static (A)", "Total (A)", "Power (W)"});
  std::string text = "\n" + style.bold(head) + "\n";
  for (const Estimate::Rail& rail : estimate.rails) {
    const std::int64_t total = toUnits(static_cast<double>(rail.amperes), Milliwatt);
    const auto parts =
        apportion({static_cast<double>(rail.dynamicAmperes), static_cast<double>(rail.staticAmperes)},
                  Milliwatt, total);
    text +=
        railLine(rail.name, {showNumber(static_cast<double>(rail.volts), 3), showMilliwatts(parts[0]),
                             showMilliwatts(parts[1]), showMilliwatts(total), showNumber(rail.watts(), 3)}) +
        "\n";
  }
  return text;
}

// Supplies.

constexpr std::size_t SupplyColumn = 15;

std::string supplyLine(const std::string& name, const std::string (&cells)[4], const std::string& margin) {
  std::string line = padRight(name, 24);
  for (const std::string& cell : cells) line += padLeft(cell, SupplyColumn);
  return line + margin;
}

std::string showAmperes(std::optional<float> amperes) {
  return amperes ? showNumber(static_cast<double>(*amperes), 3) : "-";
}

/// The rails stand below the line, since there may be many.
std::string printSupply(const Estimate::Supply& supply, const Style& style) {
  const std::string margin = padLeft(showAmperes(supply.marginAmperes), SupplyColumn);
  const bool isShort = supply.marginAmperes && *supply.marginAmperes < 0;
  std::string text =
      supplyLine(supply.group,
                 {showNumber(static_cast<double>(supply.volts), 3), showAmperes(supply.availableAmperes),
                  showAmperes(supply.estimatedAmperes), showAmperes(supply.stepLoadAmperes)},
                 isShort ? style.warning(margin) : margin) +
      "\n";
  std::string rails;
  for (const std::string& rail : supply.rails) rails += (rails.empty() ? "" : ", ") + rail;
  if (!supply.schematicName.empty()) rails = supply.schematicName + ": " + rails;
  for (const std::string& line : wrapText(printable(rails), LineWidth - 2)) text += "  " + line + "\n";
  return text;
}

/// A rail alone on its supply is in the table of rails, unless the user says what the supply can give.
std::string printSupplies(const Estimate& estimate, const Style& style) {
  std::string text;
  for (const Estimate::Supply& supply : estimate.supplies)
    if (supply.rails.size() > 1 || supply.availableAmperes) text += printSupply(supply, style);
  if (text.empty()) return text;
  const std::string head =
      supplyLine("Supply", {"Voltage (V)", "Available (A)", "Estimated (A)", "Step Load (A)"},
                 padLeft("Margin (A)", SupplyColumn));
  return "\n" + style.bold(head) + "\n" + text;
}

// Resources.

std::string resourceLine(const std::string& tab, const std::string& name, const std::string& used,
                         const std::string& available, const std::string& share) {
  return padRight(tab, 16) + padRight(name, 21) + padLeft(used, 13) + padLeft(available, 13) + share;
}

/// A count; half a memory is one, too.
std::string showCount(double count) {
  return KVXMHelperUtils::ToString(static_cast<float>(count));
}

/// What the design uses; the rest of the device is left out.
std::string printResources(const Estimate& estimate, const Style& style) {
  std::string text;
  std::string_view lastTab;
  for (const Estimate::Resource& resource : estimate.resources) {
    if (resource.used <= 0) continue;
    const std::string share = padLeft(showNumber(100.0 * resource.share(), 1), 13);
    text += resourceLine(resource.tab == lastTab ? "" : resource.tab, resource.name, showCount(resource.used),
                         showCount(resource.available),
                         resource.used > resource.available ? style.warning(share) : share) +
            "\n";
    lastTab = resource.tab;
  }
  if (text.empty()) return text;
  return "\n" + style.bold(resourceLine("Utilization", "", "Used", "Available", padLeft("%", 13))) + "\n" +
         text;
}

// Messages.

std::string printMessage(const Estimate::Message& message, const Style& style) {
  const bool isError = message.severity == KvxSeverity::ERROR;
  std::string text = message.tab + " / " + message.table;
  if (!message.row.empty()) text += " / " + message.row;
  text += ": " + message.text;
  std::string printed;
  for (const std::string& line : wrapText(printable(text), LineWidth - 9)) {
    const std::string head = printed.empty()
                                 ? (isError ? style.error("error") + "    " : style.warning("warning") + "  ")
                                 : std::string(9, ' ');
    printed += head + line + "\n";
  }
  return printed;
}

}  // namespace

std::string printEstimate(const Estimate& estimate, const Style& style) {
  const BlockLine total = makeBlockTree(estimate);
  std::string text = printSummary(estimate, total, style) + printBlocks("Block", total, style) +
                     printBoard(estimate, style) + printRails(estimate, style) +
                     printSupplies(estimate, style) + printResources(estimate, style);
  if (!estimate.messages.empty()) text += "\n" + style.bold("Messages") + "\n";
  for (const Estimate::Message& message : estimate.messages) text += printMessage(message, style);
  return text;
}

}  // namespace kvx
