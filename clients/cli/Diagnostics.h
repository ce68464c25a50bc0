#pragma once

#include <ostream>
#include <string>
#include <vector>

#include "clients/cli/Place.h"

namespace kvx {

/// Collects every mistake of the user's input, so that one run reports them all.
class Diagnostics {
 public:
  /// The mistake and what would be right; the latter may be empty.
  void add(const Place& place, const std::string& what, const std::string& remedy);
  /// A finished line of another reader.
  void addLine(const std::string& line);
  /// Something to know, which is no mistake.
  void note(const Place& place, const std::string& what);

  /// Notes apart.
  bool isEmpty() const { return m_entries.empty(); }
  std::size_t size() const { return m_entries.size(); }
  /// Further mistakes are only counted; advice for them need not be worked out.
  bool isFull() const { return m_entries.size() >= MostPrinted; }
  /// One line each, the notes first; "file:line: what; what would be right", in the order of sources and
  /// lines.
  void print(std::ostream& out) const;

 private:
  static constexpr std::size_t MostPrinted =
      200;  // a sheet that is wrong throughout need not fill the terminal

  struct Entry {
    std::size_t source;  // in the order of their first mistake
    unsigned int line;
    std::string text;
  };
  static std::string compose(const Place& place, const std::string& what);
  std::size_t sourceOf(const std::string& name);

  std::vector<std::string> m_sources;
  std::vector<Entry> m_entries;
  std::vector<std::string> m_notes;
};

}  // namespace kvx
