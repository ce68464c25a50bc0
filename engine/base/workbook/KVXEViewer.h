#pragma once

#include "engine/base/workbook/KVXEEnums.h"

/// Who looks at the workbook: rows, columns and tables above this level have no place on screen and raise no
/// severity.
class KVXEViewer {
 public:
  static KVXEEnums::Visibility getLevel() { return s_level; }
  static void setLevel(KVXEEnums::Visibility level) { s_level = level; }
  static bool sees(KVXEEnums::Visibility visibility) { return visibility <= s_level; }

 private:
  static KVXEEnums::Visibility s_level;
};
