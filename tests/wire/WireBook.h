#pragma once

#include <google/protobuf/text_format.h>

#include <string>

#include "engine/base/workbook/KVXECellStateMgr.h"
#include "engine/swig/KVXEPBHelper.h"
#include "messages/handshake.pb.h"
#include "tests/kit/Captured.h"
#include "tests/kit/TinyBook.h"

/// A message from its text form.
template <class Message>
Message fromText(const std::string& text) {
  Message message;
  EXPECT_TRUE(google::protobuf::TextFormat::ParseFromString(text, &message)) << text;
  return message;
}

/// A tiny book with a front end that looks at it. Its table, number 0 of tab SYSMON, has the columns Name, A,
/// B, Sum (of A and B) and Choice (one of "x" and "y").
class WireBook : public TinyBook {
 public:
  static constexpr int SysmonTab = static_cast<int>(KVXEEnums::TabType::SYSMON);
  enum Column { NameColumn, AColumn, BColumn, SumColumn, ChoiceColumn };

 protected:
  void SetUp() override;
  void TearDown() override;

  /// The reply to whatever happened since the last.
  const KvxHandshakeData& reply();
  /// The only table packet of a reply, or an empty one.
  const KvxTablePacket& tablePacket();
  /// Stores edits of cells of the table, written as text messages, and calculates.
  bool absorb(const std::string& cells);

 private:
  KvxHandshakeData m_reply;
};
