// The numbers of the wire messages: what is in field_numbers.golden holds for ever.

#include <google/protobuf/descriptor.h>
#include <gtest/gtest.h>

#include <fstream>
#include <set>
#include <string>

#include "messages/handshake.pb.h"

namespace {

namespace pb = google::protobuf;

void describe(const pb::EnumDescriptor& type, std::set<std::string>& lines) {
  for (int i = 0; i < type.value_count(); ++i)
    lines.insert(type.full_name() + "." + type.value(i)->name() + " = " +
                 std::to_string(type.value(i)->number()));
}

void describe(const pb::Descriptor& message, std::set<std::string>& lines) {
  for (int i = 0; i < message.field_count(); ++i) {
    const pb::FieldDescriptor& field = *message.field(i);
    const std::string type = field.message_type() ? field.message_type()->full_name()
                             : field.enum_type()  ? field.enum_type()->full_name()
                                                  : std::string(field.type_name());
    EXPECT_TRUE(field.is_repeated() || field.has_presence()) << field.full_name() << " cannot be absent";
    lines.insert(field.full_name() + " = " + std::to_string(field.number()) + " " +
                 (field.is_repeated() ? "repeated " : "") + type);
  }
  for (int i = 0; i < message.enum_type_count(); ++i) describe(*message.enum_type(i), lines);
  for (int i = 0; i < message.nested_type_count(); ++i) describe(*message.nested_type(i), lines);
}

/// A file and what it imports.
void describe(const pb::FileDescriptor& file, std::set<std::string>& lines) {
  for (int i = 0; i < file.message_type_count(); ++i) describe(*file.message_type(i), lines);
  for (int i = 0; i < file.dependency_count(); ++i) describe(*file.dependency(i), lines);
}

TEST(FieldNumbers, NeverChangeTheirMeaning) {
  std::set<std::string> present;
  describe(*KvxHandshakeData::descriptor()->file(), present);
  std::ifstream file(KVX_FIELD_NUMBERS_FILE);
  ASSERT_TRUE(file) << KVX_FIELD_NUMBERS_FILE;
  std::string gone;
  for (std::string line; std::getline(file, line);)
    if (present.erase(line) == 0) gone += line + '\n';
  EXPECT_TRUE(gone.empty()) << "these numbers are in use by front ends and may not change:\n" << gone;
  std::string added;
  for (const std::string& line : present) added += line + '\n';
  EXPECT_TRUE(added.empty()) << "new numbers, to be added to tests/wire/field_numbers.golden:\n" << added;
}

}  // namespace
