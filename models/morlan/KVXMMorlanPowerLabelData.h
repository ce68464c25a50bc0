#pragma once

#include <string>

/// The maturity of the characterisation of Morlan parts.
class KVXMMorlanPowerLabelData {
 public:
  static const KVXMMorlanPowerLabelData& getGlobal();

  /// "PRODUCTION", "PRELIMINARY", "PREVIEW" or "ADVANCE" of a part or device; empty for an unknown name.
  std::string getPowerLabelInfo(const std::string& name) const;

 private:
  KVXMMorlanPowerLabelData() = default;
};
