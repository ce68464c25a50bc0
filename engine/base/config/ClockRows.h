#pragma once

#include <string>
#include <string_view>
#include <vector>

class KVXERow;
class KVXETab;
class KVXETable;

/// What the records of clocks and clock managers read from the rows of the clock tab. Stored values only,
/// as everywhere in this layer.
namespace kvxe::detail {

/// The tag that the name and the frequency of a clock's row make; empty while one of them is blank.
std::string tagOfRow(KVXERow& clock);
/// The tag by which the row was known when it was calculated last.
std::string calculatedTagOfRow(KVXERow& clock);

/// The managers that a clock is connected to: those its row lists, or else those whose names end in ":" and
/// its name.
std::vector<std::string> managersOfRow(KVXERow& clock);
/// Adds a manager to the row's list, once.
void connectManager(KVXERow& clock, const std::string& manager);
void disconnectManager(KVXERow& clock, const std::string& manager);
/// Takes a manager from the lists of all clocks.
void disconnectFromClocks(KVXERow& manager);

/// The outputs of a manager: those its row lists, or else every output that the sources of the clock table
/// name, as "type:manager:output".
std::vector<std::string> outputsOfRow(KVXERow& manager);

/// Whether a clock drives nothing: its fanout is blank, no number, or 0.
bool hasNoLoads(KVXERow& clock);

/// Writes what the next calculation will make of a manager's counters.
void fillOscillator(KVXERow& manager);

/// The types of clock managers that the tab offers.
std::vector<std::string> managerTypes(const KVXETab* tab);

/// The part of "...:clock" in front of the colon; empty for another text.
std::string_view managerBefore(std::string_view text, std::string_view clock);
/// The part of "...:...:output" behind the last colon; empty for another text.
std::string_view outputOfSource(std::string_view source);

}  // namespace kvxe::detail
