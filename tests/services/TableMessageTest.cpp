#include <gtest/gtest.h>

#include "engine/base/workbook/KVXETableOperations.h"
#include "messages/generic_table.pb.h"
#include "tests/kit/Captured.h"
#include "tests/kit/DeviceBook.h"

namespace {

class TableMessage : public ::testing::TestWithParam<std::string> {};

TEST_P(TableMessage, HasTheSizeThatWasToldAndTheRowsOnScreen) {
  DeviceBook book(GetParam());
  book.trim(5);
  const Captured silence;
  const KVXETableOperations& operations = KVXETableOperations::getGlobal();
  for (unsigned int i = 0; i < book.book()->getTabCount(); ++i) {
    const KVXETab* tab = book.book()->getTab(i);
    for (unsigned int j = 0; tab && j < tab->getTableCount(); ++j) {
      const int tabIndex = static_cast<int>(i), tableIndex = static_cast<int>(j);
      const int size = operations.getGenericTreeTableDataSize(tabIndex, tableIndex);
      ASSERT_GT(size, 0);
      std::vector<unsigned char> bytes(static_cast<size_t>(size), 0xEE);
      operations.getGenericTreeTableData(tabIndex, tableIndex, bytes.data(), size - 1);
      EXPECT_EQ(bytes, std::vector<unsigned char>(bytes.size(), 0xEE))
          << "a buffer too small stays untouched";
      operations.getGenericTreeTableData(tabIndex, tableIndex, bytes.data(), size);
      GenericTreeTableData data;
      ASSERT_TRUE(data.ParseFromArray(bytes.data(), size)) << tab->getTypeAsStr() << j;
      EXPECT_EQ(data.tableindex(), tableIndex);
      EXPECT_EQ(data.hastableeditingfeatures(), operations.hasTableEditingFeatures(tabIndex, tableIndex));
      for (const GenericTreeTableRowData& row : data.model().rows())
        EXPECT_LT(static_cast<unsigned int>(row.index()), tab->getTable(j)->getRowCount());
    }
  }
}

TEST_P(TableMessage, WithoutATableThereIsNone) {
  DeviceBook book(GetParam());
  const KVXETableOperations& operations = KVXETableOperations::getGlobal();
  unsigned char byte = 0xEE;
  for (const int missing : {-1, 1 << 20}) {
    EXPECT_EQ(operations.getGenericTreeTableDataSize(missing, 0), 0);
    EXPECT_EQ(operations.getGenericTreeTableDataSize(0, missing), 0);
    operations.getGenericTreeTableData(missing, 0, &byte, 1);
  }
  EXPECT_EQ(operations.getGenericTreeTableDataSize(nullptr), 0);
  operations.getGenericTreeTableData(nullptr, &byte, 1);
  operations.getGenericTreeTableData(book.book()->getTab(0u)->getTable(0u), nullptr, 100);
  operations.getGenericTreeTableData(book.book()->getTab(0u)->getTable(0u), &byte, -1);
  EXPECT_EQ(byte, 0xEE);
}

INSTANTIATE_TEST_SUITE_P(Architectures, TableMessage, ::testing::ValuesIn(DeviceBook::architectures()));

}  // namespace
