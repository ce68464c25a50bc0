#include <gmock/gmock.h>
#include <google/protobuf/text_format.h>

#include <boost/algorithm/string/trim.hpp>

#include "engine/base/components/KVXEGenericDialog.h"
#include "messages/generic_components.pb.h"

namespace {

/// A dialog with every container in it.
class Dialog : public ::testing::Test {
 protected:
  KVXEGenericDialog dialog{"D"};
  KVXEGenericContentPanel& panel = dialog.createContentPanel("P");
  KVXEGenericGridPanel& grid = panel.addGridPanel("Grid");
  KVXEGenericGridPanel& subGrid = grid.addComponent<KVXEGenericGridPanel>("Sub", 1, 0, 1, 2);
  KVXEGenericComboBox& source = subGrid.addComponent<KVXEGenericComboBox>("Source", 0, 1);
  KVXEGenericRadioButtonGroup& kind = grid.addComponent<KVXEGenericRadioButtonGroup>("Kind", 0, 0);
  KVXEGenericRadioButton& simple = kind.addRadioButton("Simple");
  KVXEGenericButton& ok = dialog.addButton("Ok");

  std::string sent() {
    EXPECT_TRUE(dialog.populate(&message));
    google::protobuf::TextFormat::Printer printer;
    printer.SetSingleLineMode(true);
    std::string text;
    printer.PrintToString(message, &text);
    boost::trim_right(text);
    return text;
  }

  GenericDialog message;
};

TEST_F(Dialog, GoesOutWholeAndSaysWhatItIsEachTime) {
  dialog.setTitle("Clock");
  dialog.addButton("Cancel").setText("Cancel");
  dialog.addFileChooserButton("Open");
  dialog.addDialog("Help").setTitle("Help");
  source.setChoices({"External", "Internal"});
  source.setCurrentItem("Internal");
  simple.setIsSelected(true);
  subGrid.getCells()[0].getLocation().createBounds().setWidth(80);
  const auto expected = [](const std::string& choices) {
    return R"(uid: "D" title: "Clock" childDialogs { uid: "D.Help" title: "Help" } contentPanel { uid: "D.P" )"
           R"(gridPanels { uid: "D.P.Grid" components { uid: "D.P.Grid.Sub" )"
           R"(location { uid: "D.P.Grid.Sub.Location" row: 1 column: 0 rowSpan: 1 columnSpan: 2 } )"
           R"(gridPanel { uid: "D.P.Grid.Sub" components { uid: "D.P.Grid.Sub.Source" )"
           R"(location { uid: "D.P.Grid.Sub.Source.Location" row: 0 column: 1 rowSpan: 1 columnSpan: 1 )"
           R"(bounds { uid: "D.P.Grid.Sub.Source.Location.Bounds" width: 80 } } )"
           R"(comboBox { uid: "D.P.Grid.Sub.Source" )" +
           choices +
           R"( } } } } components { uid: "D.P.Grid.Kind" )"
           R"(location { uid: "D.P.Grid.Kind.Location" row: 0 column: 0 rowSpan: 1 columnSpan: 1 } )"
           R"(radioButtonGroup { uid: "D.P.Grid.Kind" )"
           R"(radioButtons { uid: "D.P.Grid.Kind.Simple" isSelected: true } } } } } )"
           R"(buttons { uid: "D.Ok" } buttons { uid: "D.Cancel" text: "Cancel" } )"
           R"(fileChooserButtons { uid: "D.Open" })";
  };
  EXPECT_EQ(sent(), expected(R"(currentItem: "Internal" choices: "External" choices: "Internal")"));
  source.clearCurrentItem();
  source.setChoices({"External"});
  EXPECT_EQ(sent(), expected(R"(choices: "External")"));
  EXPECT_EQ(sent(), expected(R"(choices: "External")")) << "the same again";
}

TEST_F(Dialog, AChangeFlagsThePathToTheRootAndNothingElse) {
  KVXEGenericBase* const all[] = {&dialog, &panel, &grid, &subGrid, &source, &kind, &simple, &ok};
  const struct {
    const char* label;
    std::function<void()> change;
    std::vector<KVXEGenericBase*> flagged;
  } cases[] = {
      {"a leaf is set", [this] { source.setTooltip("x"); }, {&source, &subGrid, &grid, &panel, &dialog}},
      {"a leaf is cleared", [this] { source.clearTooltip(); }, {&source, &subGrid, &grid, &panel, &dialog}},
      {"a radio button", [this] { simple.setIsSelected(false); }, {&simple, &kind, &grid, &panel, &dialog}},
      {"a location",
       [this] { subGrid.getCells()[0].getLocation().setRow(2); },
       {&subGrid, &grid, &panel, &dialog}},
      {"a component comes", [this] { panel.addGridPanel("More"); }, {&panel, &dialog}},
      {"a button", [this] { ok.setIsDisabled(true); }, {&ok, &dialog}},
  };
  for (const auto& [label, change, flagged] : cases) {
    SCOPED_TRACE(label);
    for (KVXEGenericBase* component : all) component->clearChanged();
    change();
    std::vector<KVXEGenericBase*> changed;
    for (KVXEGenericBase* component : all)
      if (component->isChanged()) changed.push_back(component);
    EXPECT_THAT(changed, ::testing::UnorderedElementsAreArray(flagged));
  }
  dialog.clearChanged();
  kind.reset();
  EXPECT_TRUE(dialog.isChanged()) << "components went";
}

TEST_F(Dialog, ResetReachesTheWholeTreeAndLeavesADialogToFill) {
  dialog.setTitle("Clock");
  dialog.addDialog("Help").addButton("Cancel");
  sent();
  dialog.reset();
  EXPECT_EQ(sent(), R"(uid: "D")");
  dialog.createContentPanel("New").addGridPanel("Grid").addComponent<KVXEGenericLabel>("Hint", 0, 0);
  EXPECT_EQ(message.contentpanel().gridpanels_size(), 0) << "nothing goes out unsent";
  sent();
  EXPECT_EQ(message.contentpanel().gridpanels(0).components(0).label().uid(), "D.New.Grid.Hint");
}

TEST_F(Dialog, OnePanelTakesThePlaceOfTheOther) {
  sent();
  KVXEGenericSection& section = dialog.createSectionPanel("Sections").addSection("Power");
  section.setCaption("Power Management");
  section.addGridPanel("Grid");
  sent();
  EXPECT_FALSE(message.has_contentpanel());
  EXPECT_EQ(message.sectionpanel().sections(0).caption(), "Power Management");
  EXPECT_EQ(message.sectionpanel().sections(0).gridpanels(0).uid(), "D.Sections.Power.Grid");
}

TEST(GuiComponent, SendsEachKindOfLeafAsItsCase) {
  KVXEGenericGuiComponent cell("Cell");
  GenericGuiComponent message;
  const auto check = [&](const KVXEGenericBase& leaf, GenericGuiComponent::ComponentCase expected) {
    EXPECT_EQ(cell.getLeaf(), &leaf);
    EXPECT_EQ(leaf.getUid(), "Cell") << "what stands in the cell is found by the uid of the cell";
    EXPECT_TRUE(cell.populate(&message));
    EXPECT_EQ(message.component_case(), expected);
    EXPECT_TRUE(message.has_location());
  };
  check(cell.create<KVXEGenericCheckBox>(), GenericGuiComponent::kCheckBox);
  check(cell.create<KVXEGenericRadioButtonGroup>(), GenericGuiComponent::kRadioButtonGroup);
  check(cell.create<KVXEGenericTextField>(), GenericGuiComponent::kTextField);
  check(cell.create<KVXEGenericFileTextField>(), GenericGuiComponent::kFileTextField);
  check(cell.create<KVXEGenericComboBox>(), GenericGuiComponent::kComboBox);
  check(cell.create<KVXEGenericLabel>(), GenericGuiComponent::kLabel);
  check(cell.create<KVXEGenericSpinner>(), GenericGuiComponent::kSpinner);
  check(cell.create<KVXEGenericButton>(), GenericGuiComponent::kButton);
  check(cell.create<KVXEGenericGridPanel>(), GenericGuiComponent::kGridPanel);
  cell.reset();
  EXPECT_TRUE(cell.populate(&message));
  EXPECT_EQ(cell.getLeaf(), nullptr);
  EXPECT_EQ(message.component_case(), GenericGuiComponent::COMPONENT_NOT_SET);
}

TEST(TextField, SendsAWidthInAnyCase) {
  KVXEGenericTextField field("Field");
  GenericTextField message;
  for (const auto& [isSet, expected] : {std::pair(false, 100), {true, 0}, {false, 100}}) {
    isSet ? field.setWidth(0) : field.clearWidth();
    field.populate(&message);
    EXPECT_TRUE(message.has_width());
    EXPECT_EQ(message.width(), expected);
  }
}

TEST(FileTextField, IsColouredOnlyBesideAToolTip) {
  KVXEGenericFileTextField field("File");
  GenericFileTextField message;
  const auto isColoured = [&] { return field.populate(&message) && message.has_backgroundcolor(); };
  field.setBackgroundColor(0xFFD9D9);
  field.setCaption("File");
  EXPECT_FALSE(isColoured());
  field.setTooltip("There is no such file");
  EXPECT_TRUE(isColoured());
  EXPECT_EQ(message.backgroundcolor(), 0xFFD9D9u);
  field.clearTooltip();
  EXPECT_FALSE(isColoured());
}

}  // namespace
