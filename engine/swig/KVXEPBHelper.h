#pragma once

#include <string>
#include <vector>

#include "engine/base/workbook/KVXEEnums.h"

class KVXEBook;
class KVXETab;
class KvxBookBundleData;
class KvxBookPacketData;
class KvxHandshakeData;
class KvxSectionPacket;
class KvxStatusData;
class KvxSummaryPanelData;

/// Translates between the book and the message that the front end exchanges with the engine: fills replies,
/// and stores the edits of requests.
///
/// A reply has one of two forms: a bundle, which describes the whole book, and a packet with just the cells
/// that the front end does not know yet. The cells' states decide (KVXECellStateMgr::isGuiRedrawNeeded): once
/// the book's shape changed, a packet cannot say so. Mismatches of the wire are lines on standard output;
/// nothing here throws.
class KVXEPBHelper {
 public:
  static KVXEPBHelper& getGlobal();

  /// Replaces the message with the reply: the status, then bundle and summary panel, or packet. False when a
  /// part failed, with what could be filled. A null message gives false, here and below.
  bool populate(KvxHandshakeData* message);
  bool populate(KvxBookBundleData* bundle);
  bool populate(KvxBookPacketData* packet);
  bool populate(KvxStatusData* status);
  bool populate(KvxSummaryPanelData* panel);

  /// Stores the cell edits of a request as the user's. The first mismatch is reported and ends the walk; what
  /// was stored before stays. True when there was nothing to store.
  bool absorb(const KvxHandshakeData* message);
  bool absorb(const KvxBookPacketData& packet);

  /// Who looks: what lies above the level is not sent. A change has the whole book sent next.
  void setVisibility(KVXEEnums::Visibility visibility);
  KVXEEnums::Visibility getVisibility() const { return m_visibility; }
  void setProjectSaved(bool isSaved) { m_projectSaved = isSaved; }

 private:
  /// What the front end last got to know about a tab beside its cells. It can change without them: a tab's
  /// share of the chip's power follows every other tab.
  struct TabLook {
    std::string suffix;
    int severity = 0;

    bool operator==(const TabLook&) const = default;
    static TabLook of(KVXETab* tab);
    void populate(KvxSectionPacket& section) const;
  };

  KVXEPBHelper();
  /// Null before the first project, and after the last.
  static KVXEBook* currentBook();
  void rememberLooks();
  void addChangedLooks(KvxBookPacketData& packet);

  bool m_projectSaved = true;
  KVXEEnums::Visibility m_visibility = KVXEEnums::Visibility::INTERNAL;
  std::vector<TabLook> m_sentLooks;  // by tab index
};
