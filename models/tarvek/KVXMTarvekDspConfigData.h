#pragma once

#include <map>
#include <string>
#include <string_view>

namespace kvxm {

/// One way to configure a DSP slice.
struct DspConfiguration {
  std::string_view key;      ///< begins with "48" if the slice works as the older one with a 48 bit adder
  std::string_view display;  ///< the text in the workbook
  std::string_view mode;     ///< kind of arithmetic: INT24, CPLX, FP32, INT8 or LEGACY
  int widthA = 0;            ///< bits of the operand that the pre-adder makes
  int widthB = 0;
  int products = 0;          ///< products that one operation multiplies, 0 without the multiplier
  int slices = 0;            ///< slices that one operation takes
  int adderWidth = 0;        ///< bits of the adder behind the multiplier, 0 for none
  int outputWidth = 0;       ///< bits of the result that each slice drives
  bool isDerived = false;    ///< the configuration, not the user, says whether the multiplier is used
  bool hasPreadder = false;  ///< the adder in front of the multiplier is used
  bool hasAdReg = false;     ///< the register in front of the multiplier may be used
};

}  // namespace kvxm

/// The configurations of the DSP slices of Tarvek devices.
class KVXMTarvekDspConfigData {
 public:
  static const KVXMTarvekDspConfigData& getGlobal();

  /// The text in the workbook by the key, in the order of the keys.
  std::map<std::string, std::string> getDspConfigMap() const;
  /// A configuration by its key or its text in the workbook; null for an unknown one.
  const kvxm::DspConfiguration* getDspConfigData(std::string_view keyOrText) const;

 private:
  KVXMTarvekDspConfigData() = default;
};
