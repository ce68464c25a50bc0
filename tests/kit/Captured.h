#pragma once

#include <iostream>
#include <sstream>
#include <string>

/// Catches what the engine prints while it lives.
class Captured {
 public:
  explicit Captured(std::ostream& stream = std::cout)
      : m_stream(stream), m_before(stream.rdbuf(m_text.rdbuf())) {}
  ~Captured() { m_stream.rdbuf(m_before); }
  Captured(const Captured&) = delete;
  Captured& operator=(const Captured&) = delete;

  std::string text() const { return m_text.str(); }

 private:
  std::ostringstream m_text;
  std::ostream& m_stream;
  std::streambuf* m_before;
};
