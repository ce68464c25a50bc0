#pragma once

#include <map>
#include <optional>
#include <string>

#include "engine/base/workbook/KVXEUID.h"

/// The transceivers that a device has and a design uses, by kind: "XCVRA" to "XCVRD". Four of them make a
/// quad; power planes feed several quads. Used ones are counted from the configuration table of the kind's
/// tab: its first table with a column "CHANNELS".
struct KVXEPowerXcvrCounts {
  /// Nothing while the kind has no configuration table.
  static std::optional<int> countUsedXcvrs(const KVXEUID& uid, const std::string& kind);
  /// As above, 0 without the table.
  static int getUsedXcvrs(const KVXEUID& uid, const std::string& kind);
  static int getAvailXcvrs(const KVXEUID& uid, const std::string& kind);
  static int getUsedXcvrQuads(const KVXEUID& uid, const std::string& kind);
  static int getUsedXcvrPowerPlanes(const KVXEUID& uid, const std::string& kind);
  static int getAvailXcvrPowerPlanes(const KVXEUID& uid, const std::string& kind);
  /// The transceivers that the device has, by kind.
  static std::map<std::string, int> getXcvrResources(const KVXEUID& uid);
};
