#pragma once

#include <span>
#include <string>
#include <string_view>

namespace kvxe {

/// A grade's short code, as in part names, and the text that lists show. Several codes may share a text.
struct GradeText {
  std::string_view code;
  std::string_view text;
};

/// How a code is recognised in a text: by words that all stand in it; an empty word stands in any.
struct GradeMark {
  std::string_view word;
  std::string_view secondWord;
  std::string_view code;
};

/// Both directions between the codes of one kind of grade and their texts.
struct GradeTable {
  std::span<const GradeText> texts;
  std::span<const GradeMark> marks;  ///< tried in order; the last one stands for all other texts

  /// The text of a code; anything else stays, as does everything in an empty table.
  std::string textOf(std::string_view code) const;
  /// The code that a text stands for; a code stays.
  std::string codeOf(std::string_view text) const;
};

/// Codes that are their own texts.
inline constexpr GradeTable plainCodes{};

}  // namespace kvxe
