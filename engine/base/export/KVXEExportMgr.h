#pragma once

#include <string>

/// Writes the estimate in forms that other tools read. None exists so far: the user is told.
class KVXEExportMgr {
 public:
  static KVXEExportMgr& getGlobal();

  /// Writes the power design for a schematic checklist; one architecture has it. False, with a message to the
  /// user, when that fails.
  bool exportPowerDesign(const std::string& path);

 private:
  KVXEExportMgr() = default;
};
