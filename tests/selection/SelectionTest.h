#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "engine/base/selection/KVXEPartSelection.h"
#include "engine/base/workbook/KVXEBookMgr.h"
#include "engine/tarvek/KVXETarvekPartSelection.h"

/// A selection that ends with the test.
class SelectionTest : public ::testing::Test {
 protected:
  ~SelectionTest() override {
    KVXEPartSelection::resetPartSelection();
    KVXEBookMgr::getGlobal().closeProject();
  }

  KVXEPartSelection& choose(const std::string& archName, const std::string& part,
                            const std::string& process = KVXEPartSelection::m_maxStr) {
    KVXEPartSelection* selection = KVXEPartSelection::resetToArch(archName);
    EXPECT_TRUE(selection->selectPart(part, process)) << part;
    return *selection;
  }
  KVXEPartSelection& tarvek(const std::string& part = "AK1080-VSVA1024_2-MP-E-S") {
    return choose(KVXEPartSelection::m_arkeonArchName, part);
  }
};

/// What a front end does after every choice: reads the drop-downs from first to last.
inline void readAll(KVXEPartSelection& selection) {
  std::vector<std::string> values;
  const unsigned int count = static_cast<unsigned int>(selection.getDeviceSelectionList().size());
  for (unsigned int i = 0; i < count; ++i) selection.getDeviceSelectionValues(i, values);
}

/// A drop-down as the user sees it.
struct DropDown {
  std::vector<std::string> values;
  int index = -1;
  std::string shown() const { return values.at(static_cast<size_t>(index)); }
};

inline DropDown read(KVXEPartSelection& selection, unsigned int index) {
  DropDown list;
  list.index = selection.getDeviceSelectionValues(index, list.values);
  return list;
}
