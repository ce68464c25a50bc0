#include "engine/base/selection/GradeTable.h"

namespace kvxe {

std::string GradeTable::textOf(std::string_view code) const {
  for (const GradeText& grade : texts) {
    if (grade.code == code) return std::string(grade.text);
  }
  return std::string(code);
}

std::string GradeTable::codeOf(std::string_view text) const {
  for (const GradeText& grade : texts) {
    if (grade.code == text) return std::string(text);
  }
  const auto stands = [text](std::string_view word) { return text.find(word) != std::string_view::npos; };
  for (const GradeMark& mark : marks) {
    if (stands(mark.word) && stands(mark.secondWord)) return std::string(mark.code);
  }
  return std::string(text);
}

}  // namespace kvxe
