#include "engine/base/workbook/KVXEImage.h"

#include "engine/base/workbook/KVXERow.h"

KVXEImage::KVXEImage(KVXETab* tab, unsigned int index, const KVXETitle* title, const std::string& file,
                     KVXEFormula formula, bool gridOptionA)
    : KVXETable(tab, index, title, false, gridOptionA, true) {
  addColumn<std::string>(*title, false, KVXEEnums::CellType::STRING, formula, KVXEEnums::Unit::NO_UNIT, false,
                         file, {});
  getOrCreateRow(1);
}

void KVXEImage::setFileName(const std::string& file) {
  getCellAt(1, 0u)->setValAndMarkEngineClean(file);
}

bool KVXEImage::getFileName(std::string& file) const {
  KVXECell* cell = getCellAt(1, 0u);
  return cell && cell->getVal(file, true);
}
