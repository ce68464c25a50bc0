#pragma once

#include <optional>
#include <string>
#include <vector>

#include "engine/base/services/KvxSeverity.h"

class KVXEBook;

namespace kvx {

/// The results of a calculated workbook as plain numbers: watts, amperes, volts, degrees C.
struct Estimate {
  struct Block {
    std::string name;
    std::string category;  ///< the heading above it; empty for a block that stands alone
    bool isStatic = false;
    float watts = 0;
  };
  struct Rail {
    std::string name;
    float volts = 0;
    float dynamicAmperes = 0;
    float staticAmperes = 0;
    float amperes = 0;
    std::optional<float> powerupAmperes = {};  ///< where startup draws more than operation
    std::optional<float> stepLoad = {};        ///< the share of the dynamic current that may switch at once
    std::string group = {};                    ///< the supply that feeds it, by `Supply::group`
    double watts() const { return static_cast<double>(volts) * static_cast<double>(amperes); }
  };
  /// A physical supply: of rails that share it, or of one alone.
  struct Supply {
    std::string group;
    std::string schematicName;       ///< the user's, or empty
    std::vector<std::string> rails;  ///< by the names of Rail
    float volts = 0;
    std::optional<float> availableAmperes;  ///< as the user says
    float estimatedAmperes = 0;
    float stepLoadAmperes = 0;
    std::optional<float> marginAmperes;  ///< what is available less the most that the rails may draw
  };
  /// What the design uses of something that the device has a limited number of.
  struct Resource {
    std::string tab, name;
    double used = 0;
    double available = 0;
    double share() const { return available > 0 ? used / available : 0; }
  };
  /// A part of a module's board and what it turns into heat.
  struct Component {
    std::string name;
    float watts = 0;
  };
  struct Message {
    KvxSeverity severity = KvxSeverity::WARNING;
    std::string tab, table, row, column, text;
  };

  // From the sheet.
  std::string name, part, process, architecture, family;

  std::string characterization;
  std::vector<Block> blocks;          ///< in the order of the summary, dynamic ones first
  std::vector<Rail> rails;            ///< that the part has
  std::string consolidation;          ///< by which rule rails share supplies
  std::vector<Supply> supplies;       ///< that are in use under it
  std::vector<Resource> resources;    ///< that the part has and a tab of the book counts
  std::vector<Component> components;  ///< of the board; none for a part that is no module
  std::vector<Message> messages;

  float offChipWatts = 0;  ///< drawn from the rails, but not dissipated on the chip

  bool isJunctionGiven = false;  ///< by the user, not calculated
  bool isJunctionValid = true;   ///< false when the device runs away, or beyond where estimates hold
  float junction = 0;
  float junctionMax = 0;
  float ambient = 0;
  std::optional<float> thetaJa;  ///< C/W; nothing while the junction temperature is given
  float marginDegrees = 0;
  std::optional<float> marginWatts;
  std::optional<double> budget;  ///< watts, from the command line

  double dynamicWatts() const;
  double staticWatts() const;
  /// On the chip.
  double totalWatts() const { return dynamicWatts() + staticWatts(); }
  /// At the board's input; nothing for a part that is no module.
  std::optional<double> boardWatts() const;
  /// The budget of a module is that of its board.
  bool isBudgetBroken() const { return budget && !(boardWatts().value_or(totalWatts()) <= *budget); }
  bool hasErrors() const;
};

/// Reads a calculated book. What the sheet says is left to the caller.
Estimate readEstimate(KVXEBook& book);

}  // namespace kvx
