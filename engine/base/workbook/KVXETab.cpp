#include "engine/base/workbook/KVXETab.h"

#include <iostream>

#include "engine/base/workbook/KVXEBook.h"
#include "engine/base/workbook/KVXECellStateMgr.h"
#include "engine/base/workbook/KVXEImage.h"
#include "engine/base/workbook/KVXETemplateCell.h"
#include "models/common/KVXMHelperUtils.h"

using KVXEEnums::GridComponentType;
using KVXEEnums::TabType;

KVXETab::KVXETab(KVXEBook* book, TabType type) : m_book(book), m_type(type) {
  KVXETab::init();
}

KVXETab::~KVXETab() {
  for (KVXETable* table : m_tables) delete table;
  for (KVXEImage* image : m_images) delete image;
}

void KVXETab::init() {
  if (!m_buttons.empty()) return;
  const auto add = [this](const char* id, const char* text, const char* toolTip,
                          KvxButtonOperation operation) {
    addButton(id, text, toolTip, static_cast<unsigned int>(operation));
  };
  add("KVX_SUMMARY", "Go To Summary", "", KvxButtonOperation::GO_TO_SUMMARY);
  add("KVX_AUTOFIT", "Auto-Fit Table Columns", "", KvxButtonOperation::AUTO_FIT_COLUMNS);
  add("KVX_CREATE_IP", "Manage IP", "Manage IP Wizard", KvxButtonOperation::NONE);
}

std::string KVXETab::getPBTitle() const {
  std::string title = getTypeAsStr();
  if (m_type != TabType::PS) KVXMHelperUtils::convertToCamelString(title);
  return title;
}

std::string KVXETab::getPlaceholderText() const {
  return className() == "KVXETab" ? getPBTitle() + " tab is yet to be implemented. Stay tuned!"
                                  : std::string();
}

std::string KVXETab::getPBSuffix() {
  float power = 0.0f;
  if (!getTabTotalPower(power)) return m_type == TabType::PS ? "( 0 W )" : "";
  return "( " + KVXMHelperUtils::ToString(KVXMHelperUtils::ROUND(power, 3)) + " W, " +
         getPercentOfTotalChipPowerStr(power) + " % )";
}

int KVXETab::getTabSeverity() {
  return severityOfVisible(m_msgCells);
}

void KVXETab::initSpacerTable() {
  KVXETable* spacer = createTable(&m_SpacerTable, false, false, true, GridComponentType::SPACER);
  spacer->getGridConstraints() = {.row = 10, .column = 0, .rowSpan = 1, .columnSpan = 10};
}

void KVXETab::setIsEnabled(bool isEnabled) {
  if (isEnabled == m_isEnabled) return;
  m_isEnabled = isEnabled;
  KVXECellStateMgr::getGlobal().requestGuiRedraw();
  for (KVXETable* table : m_tables) table->setIsEnabled(isEnabled);
  for (KVXEImage* image : m_images) image->setIsEnabled(isEnabled);
}

void KVXETab::setVisibility(KVXEEnums::Visibility visibility) {
  if (visibility == m_visibility) return;
  m_visibility = visibility;
  KVXECellStateMgr::getGlobal().requestGuiRedraw();
}

// Tables and images.

namespace {

template <class T>
T* findByTitle(const std::vector<T*>& tables, const KVXETitle* title) {
  for (T* table : tables)
    if (table->KVXETable::getTableTitle() == title) return table;
  return nullptr;
}

template <class T>
T* findByName(const std::vector<T*>& tables, const std::string& name) {
  for (T* table : tables)
    if (table->getTableTitle()->getTag(KVXEEnums::TitleType::SW) == name) return table;
  return nullptr;
}

template <class T>
T* findByIndex(const std::vector<T*>& tables, unsigned int index) {
  return index < tables.size() ? tables[index] : nullptr;
}

}  // namespace

KVXETable* KVXETab::getTable(const KVXETitle* title) const {
  return findByTitle(m_tables, title);
}
KVXETable* KVXETab::getTable(const std::string& name) const {
  return findByName(m_tables, name);
}
KVXETable* KVXETab::getTable(unsigned int index) const {
  return findByIndex(m_tables, index);
}
KVXEImage* KVXETab::getImage(const KVXETitle* title) const {
  return findByTitle(m_images, title);
}
KVXEImage* KVXETab::getImage(const std::string& name) const {
  return findByName(m_images, name);
}
KVXEImage* KVXETab::getImage(unsigned int index) const {
  return findByIndex(m_images, index);
}

KVXETable* KVXETab::createTable(const KVXETitle* title, bool showRowIds, bool gridOptionA, bool gridOptionB,
                                GridComponentType kind) {
  if (!title) return nullptr;
  if (KVXETable* present = getTable(title)) {
    std::cout << "Warning: Trying to create table " << title->getDisplayTag(false)
              << " again. Please use unique names for tables inside a tab." << '\n';
    return present;
  }
  const unsigned int index = getTableCount();
  std::unique_ptr<KVXETable> table;
  switch (kind) {
    case GridComponentType::DEVICE_SELECTION:
      table = std::make_unique<KVXEDeviceSelectionTable>(this, index, title);
      break;
    case GridComponentType::SPACER:
      table = std::make_unique<KVXESpacerTable>(this, index, title);
      break;
    default:
      table = std::make_unique<KVXETable>(this, index, title, showRowIds, gridOptionA, gridOptionB);
      break;
  }
  m_tables.push_back(table.get());
  return table.release();
}

KVXEImage* KVXETab::createImage(const KVXETitle* title, std::string& file, KVXEFormula formula,
                                bool gridOptionA) {
  if (!title) return nullptr;
  if (KVXEImage* present = getImage(title)) {
    std::cout << "Warning: Trying to create image " << title->getDisplayTag(false)
              << " again. Please use unique names for images inside a tab." << '\n';
    return present;
  }
  auto image = std::make_unique<KVXEImage>(this, 0, title, file, formula, gridOptionA);
  m_images.push_back(image.get());
  return image.release();
}

bool KVXETab::hasMultipleTablesInTabWidget(const std::string& title) const {
  const auto found = m_tabWidgetTitleCounts.find(title);
  return found != m_tabWidgetTitleCounts.end() && found->second > 1;
}

// Buttons.

KVXETabButton& KVXETab::addButton(const std::string& id, const std::string& text, const std::string& toolTip,
                                  std::optional<unsigned int> operation) {
  m_buttons.push_back(std::make_unique<KVXETabButton>(std::in_place_type<KVXEGenericButton>, id, operation));
  KVXETabButton& button = *m_buttons.back();
  button.setText(text);
  button.setToolTip(toolTip);
  return button;
}

KVXETabButton& KVXETab::addFileChooserButton(const std::string& id, const std::string& text,
                                             const std::string& toolTip, const std::string& fileFilter,
                                             unsigned int dialogWidth) {
  m_buttons.push_back(
      std::make_unique<KVXETabButton>(std::in_place_type<KVXEGenericFileChooserButton>, id, std::nullopt));
  KVXETabButton& button = *m_buttons.back();
  button.setText(text);
  button.setToolTip(toolTip);
  button.getButton().setFileTypeExtensions({fileFilter});
  button.getButton().setDialogWidth(dialogWidth);
  return button;
}

namespace {

KVXETabButton* findButton(const std::vector<std::unique_ptr<KVXETabButton>>& buttons, const std::string& id) {
  for (const auto& button : buttons)
    if (button->getId() == id) return button.get();
  return nullptr;
}

/// Changes a button, if there is one. Buttons go out with the whole book only.
void changeButton(KVXETabButton* button, bool isEnabled, const std::string& toolTip,
                  const std::string& text) {
  if (!button) return;
  const bool isAsItWas =
      button->getIsEnabled() == isEnabled && button->getToolTip() == toolTip && button->getText() == text;
  if (isAsItWas) return;
  button->setIsEnabled(isEnabled);
  button->setToolTip(toolTip);
  button->setText(text);
  KVXECellStateMgr::getGlobal().requestGuiRedraw();
}

std::string textOf(const KVXETabButton* button) {
  return button ? button->getText() : std::string();
}

}  // namespace

void KVXETab::enableButton(const std::string& id, const std::string& toolTip) {
  KVXETabButton* button = findButton(m_buttons, id);
  changeButton(button, true, toolTip, textOf(button));
}

void KVXETab::enableButton(const std::string& id, const std::string& toolTip, const std::string& text) {
  changeButton(findButton(m_buttons, id), true, toolTip, text);
}

void KVXETab::disableButton(const std::string& id, const std::string& toolTip) {
  KVXETabButton* button = findButton(m_buttons, id);
  changeButton(button, false, toolTip, textOf(button));
}
