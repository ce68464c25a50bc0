#pragma once

#include <string>

/// Between the engine's narrow texts, which are UTF-8, and wide texts of UTF-16 units, one unit a character:
/// a code point beyond the first plane is a pair of surrogates, however wide the type. So a wide text can be
/// handed on unit by unit. No process-wide locale has a say.
///
/// What cannot be converted (bytes that are no UTF-8, a surrogate without its other half) becomes the
/// replacement character U+FFFD, one for each run of bytes that starts like a character and is cut short. All
/// else comes back from a round trip as it was, NUL included.
class NLocale {
 public:
  static std::wstring convert(const std::string& narrow);
  /// Takes a unit beyond 16 bits for the code point that it is.
  static std::string convert(const std::wstring& wide);
};
