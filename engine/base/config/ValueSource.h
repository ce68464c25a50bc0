#pragma once

#include "engine/base/workbook/KVXEEnums.h"

namespace kvxe::utils {

/// Whose values are being written into rows now. An import declares itself while it lives; what is written
/// through the configuration layer carries this source, so that it stands against formulas and is saved.
class ValueSource {
 public:
  static void set(KVXEEnums::ValueSource source) { m_current = source; }
  static KVXEEnums::ValueSource get() { return m_current; }

 private:
  inline static KVXEEnums::ValueSource m_current = KVXEEnums::ValueSource::USER;
};

}  // namespace kvxe::utils
