#pragma once

#include "engine/base/workbook/KVXETable.h"

/// An image of a tab: a one-row table whose one cell is the file, so that the picture can follow the device
/// by a formula like any other cell.
class KVXEImage final : public KVXETable {
 public:
  KVXEImage(KVXETab* tab, unsigned int index, const KVXETitle* title, const std::string& file,
            KVXEFormula formula, bool gridOptionA);

  std::string className() const override { return "KVXEImage"; }
  KVXEEnums::GridComponentType getPBGridViewType() override { return KVXEEnums::GridComponentType::IMAGE; }
  const KVXETitle* getImageTitle() const { return getTableTitle(); }

  using KVXETable::populate;
  bool populate(KvxGridComponentData* component) override;
  bool populate(KvxImageData* image) override;

  void setFileName(const std::string& file);
  bool getFileName(std::string& file) const;
  void setWidth(unsigned int width) { m_width = width; }
  void setHeight(unsigned int height) { m_height = height; }
  void clearWidth() { m_width.reset(); }
  void clearHeight() { m_height.reset(); }
  const boost::optional<unsigned int>& getWidth() const { return m_width; }
  const boost::optional<unsigned int>& getHeight() const { return m_height; }

 private:
  boost::optional<unsigned int> m_width;
  boost::optional<unsigned int> m_height;
};
