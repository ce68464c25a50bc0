#include <gtest/gtest.h>

#include "engine/base/workbook/KVXETabButton.h"
#include "messages/book.pb.h"

namespace {

TEST(TabButton, SendsEitherKindOfButtonWithWhatItDoes) {
  KvxButtonData data;
  KVXETabButton summary(std::in_place_type<KVXEGenericButton>, "KVX_SUMMARY", 2u);
  summary.setText("Go To Summary");
  summary.setToolTip("");
  ASSERT_TRUE(summary.populate(&data));
  EXPECT_TRUE(data.isenabled());
  EXPECT_EQ(data.operation(), KvxButtonData::GO_TO_SUMMARY);
  EXPECT_EQ(data.genericbutton().uid(), "KVX_SUMMARY");
  EXPECT_EQ(data.genericbutton().text(), "Go To Summary");
  EXPECT_FALSE(data.genericbutton().has_tooltip()) << "an empty text is none";

  KVXETabButton exporter(std::in_place_type<KVXEGenericFileChooserButton>, "ExportZCF", std::nullopt);
  exporter.setToolTip("Export");
  exporter.setIsEnabled(false);
  exporter.getButton().setFileTypeExtensions({"zcf"});
  ASSERT_TRUE(exporter.populate(&data));
  EXPECT_FALSE(data.isenabled());
  EXPECT_FALSE(data.has_operation()) << "what the message said before is gone";
  EXPECT_FALSE(data.has_genericbutton());
  EXPECT_EQ(data.genericfilechooserbutton().uid(), "ExportZCF");
  EXPECT_EQ(data.genericfilechooserbutton().tooltip(), "Export");
  EXPECT_EQ(data.genericfilechooserbutton().filetypeextensions(0), "zcf");
  EXPECT_EQ(exporter.getOperation(), 1u);
  EXPECT_FALSE(exporter.populate(nullptr));
}

}  // namespace
