#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <variant>
#include <vector>

/// What a front end does in one input of the fuzzer, and its form in bytes. Any bytes are a session.
namespace kvxe::fuzz {

/// A handshake.
struct Request {
  std::string bytes;
  bool mockMode = false;
  bool dumpJson = false;
  bool internalView = false;
  bool developerView = false;
};

/// A native method of a table: `kind` is a table operation, or beyond these a query.
struct TableCall {
  static constexpr int MenuQuery = 6;   ///< what the table's menu offers
  static constexpr int TableQuery = 7;  ///< the table as a message
  static constexpr int KindCount = 8;

  int kind = 0;
  int tab = 0;
  int table = 0;
  std::vector<int> rows;
  int row = 0;
};

/// A value taken in a drop-down of the device selection; list -1 is that of the architecture.
struct Choice {
  int list = 0;
  std::string value;
};

using Step = std::variant<Request, TableCall, Choice>;
using Session = std::vector<Step>;

Session decode(std::span<const std::uint8_t> bytes);
/// The session as bytes. Numbers that no byte can say become others.
std::string encode(const Session& session);

}  // namespace kvxe::fuzz
