#include "fuzz/Session.h"

#include <algorithm>
#include <limits>

// A step begins with a byte of which two bits tell the kind and four the flags of a request. Numbers of rows
// are signed bytes, the two ends of which stand for those of an int. What is cut off at the end reads as 0.

namespace kvxe::fuzz {
namespace {

constexpr std::size_t MostSteps = 12;

enum Kind : unsigned int { REQUEST = 0, TABLE_CALL = 2, CHOICE = 3 };  // 1 is a request, too
enum Flag : unsigned int { MOCK = 4, DUMP = 8, INTERNAL = 16, DEVELOPER = 32 };

class Reader {
 public:
  explicit Reader(std::span<const std::uint8_t> bytes) : m_bytes(bytes) {}

  bool isAtEnd() const { return m_bytes.empty(); }

  unsigned int byte() {
    if (m_bytes.empty()) return 0;
    const unsigned int value = m_bytes.front();
    m_bytes = m_bytes.subspan(1);
    return value;
  }

  int row() {
    const auto value = static_cast<std::int8_t>(byte());
    if (value == std::numeric_limits<std::int8_t>::max()) return std::numeric_limits<int>::max();
    if (value == std::numeric_limits<std::int8_t>::min()) return std::numeric_limits<int>::min();
    return value;
  }

  std::string text(std::size_t length) {
    const std::size_t taken = std::min(length, m_bytes.size());
    const std::string value(m_bytes.begin(), m_bytes.begin() + static_cast<std::ptrdiff_t>(taken));
    m_bytes = m_bytes.subspan(taken);
    return value;
  }

 private:
  std::span<const std::uint8_t> m_bytes;
};

Step readStep(Reader& reader) {
  const unsigned int head = reader.byte();
  if ((head & 3u) == TABLE_CALL) {
    TableCall call;
    call.kind = static_cast<int>(reader.byte() % TableCall::KindCount);
    call.tab = static_cast<int>(reader.byte());
    call.table = static_cast<int>(reader.byte());
    call.row = reader.row();
    for (unsigned int count = reader.byte() % 16; count > 0; --count) call.rows.push_back(reader.row());
    return call;
  }
  if ((head & 3u) == CHOICE) {
    Choice choice;
    choice.list = static_cast<std::int8_t>(reader.byte());
    choice.value = reader.text(reader.byte());
    return choice;
  }
  Request request;
  request.mockMode = head & MOCK;
  request.dumpJson = head & DUMP;
  request.internalView = head & INTERNAL;
  request.developerView = head & DEVELOPER;
  const unsigned int low = reader.byte();
  request.bytes = reader.text(low + 256 * reader.byte());
  return request;
}

class Writer {
 public:
  void byte(std::size_t value) { m_bytes.push_back(static_cast<char>(value)); }
  void row(int value) { byte(static_cast<std::uint8_t>(std::clamp(value, -128, 127))); }

  void operator()(const Request& request) {
    byte(REQUEST | (request.mockMode ? MOCK : 0u) | (request.dumpJson ? DUMP : 0u) |
         (request.internalView ? INTERNAL : 0u) | (request.developerView ? DEVELOPER : 0u));
    byte(request.bytes.size() % 256);
    byte(request.bytes.size() / 256);
    m_bytes += request.bytes;
  }
  void operator()(const TableCall& call) {
    byte(TABLE_CALL);
    for (const int number : {call.kind, call.tab, call.table}) byte(static_cast<std::size_t>(number));
    row(call.row);
    byte(call.rows.size());
    for (const int number : call.rows) row(number);
  }
  void operator()(const Choice& choice) {
    byte(CHOICE);
    row(choice.list);
    byte(choice.value.size());
    m_bytes += choice.value;
  }

  std::string take() { return std::move(m_bytes); }

 private:
  std::string m_bytes;
};

}  // namespace

Session decode(std::span<const std::uint8_t> bytes) {
  Session session;
  for (Reader reader(bytes); !reader.isAtEnd() && session.size() < MostSteps;)
    session.push_back(readStep(reader));
  return session;
}

std::string encode(const Session& session) {
  Writer writer;
  for (const Step& step : session) std::visit(writer, step);
  return writer.take();
}

}  // namespace kvxe::fuzz
