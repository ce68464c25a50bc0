#include "engine/swig/KVXEPBHelper.h"

#include <iostream>

#include "engine/base/project/KVXEPrjMgr.h"
#include "engine/base/selection/KVXEPartSelection.h"
#include "engine/base/workbook/KVXEBook.h"
#include "engine/base/workbook/KVXEBookMgr.h"
#include "engine/base/workbook/KVXECellStateMgr.h"
#include "engine/base/workbook/KVXETab.h"
#include "engine/base/workbook/KVXEViewer.h"
#include "messages/handshake.pb.h"

using KVXEEnums::TabType;
using KVXEEnums::Visibility;

KVXEPBHelper& KVXEPBHelper::getGlobal() {
  static KVXEPBHelper helper;
  return helper;
}

KVXEPBHelper::KVXEPBHelper() {
  KVXEViewer::setLevel(m_visibility);
}

KVXEBook* KVXEPBHelper::currentBook() {
  const KVXEBookMgr& books = KVXEBookMgr::getGlobal();
  return books.getBookCount() > 0 ? books.getCurrentBook(KVXEBookMgr::getLastArchName()) : nullptr;
}

namespace {

void refreshTablesForViewer() {
  const KVXEBookMgr& books = KVXEBookMgr::getGlobal();
  for (unsigned int b = 0; b < books.getBookCount(); ++b)
    for (unsigned int t = 0; t < books.getBook(b)->getTabCount(); ++t)
      if (const KVXETab* tab = books.getBook(b)->getTab(t))
        for (unsigned int i = 0; i < tab->getTableCount(); ++i) tab->getTable(i)->refreshForViewer();
}

}  // namespace

void KVXEPBHelper::setVisibility(Visibility visibility) {
  if (visibility == m_visibility) return;
  m_visibility = visibility;
  KVXEViewer::setLevel(visibility);
  refreshTablesForViewer();
  KVXECellStateMgr::getGlobal().requestGuiRedraw();
}

bool KVXEPBHelper::populate(KvxHandshakeData* message) {
  if (!message) return false;
  message->Clear();
  bool isComplete = populate(message->mutable_status());
  const KVXECellStateMgr& states = KVXECellStateMgr::getGlobal();
  if (states.isGuiRedrawNeeded().first) {
    isComplete &= populate(message->mutable_bookbundle());
    isComplete &= populate(message->mutable_summarypanel());
  } else {
    isComplete &= populate(message->mutable_bookpacket());
  }
  if (const auto [isClean, count] = states.isGuiClean(); !isClean)
    std::cout << "Error: Gui is not fully up-to-date for " << count << " cells at the end of handshake update"
              << '\n';
  return isComplete;
}

bool KVXEPBHelper::populate(KvxStatusData* status) {
  if (!status) return false;
  status->set_isprojectopen(KVXEPrjMgr::getGlobal().isOpen());
  status->set_isprojectsaved(m_projectSaved);
  const KVXEBook* book = currentBook();
  if (!book || !book->getTab(TabType::SUMMARY)) return true;
  const KVXEPartSelection* selection = KVXEPartSelection::getGlobal();
  if (!selection) return false;
  status->set_parttext("Part: " + selection->getSelectedDeviceName());
  return true;
}

bool KVXEPBHelper::populate(KvxSummaryPanelData* panel) {
  if (!panel) return false;
  const KVXEBook* book = currentBook();
  KVXETab* console = book ? book->getTab(TabType::SUMMARY_CONSOLE) : nullptr;
  if (!console || !console->getIsEnabled()) return true;
  const bool isComplete = console->populate(panel->mutable_node());
  panel->mutable_node()->set_severity(console->getTabSeverity());
  return isComplete;
}
