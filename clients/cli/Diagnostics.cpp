#include "clients/cli/Diagnostics.h"

#include <algorithm>
#include <tuple>

#include "clients/cli/TextTable.h"

namespace kvx {

std::size_t Diagnostics::sourceOf(const std::string& name) {
  const auto found = std::find(m_sources.begin(), m_sources.end(), name);
  if (found != m_sources.end()) return static_cast<std::size_t>(found - m_sources.begin());
  m_sources.push_back(name);
  return m_sources.size() - 1;
}

std::string Diagnostics::compose(const Place& place, const std::string& what) {
  std::string text = place.source + ":";
  if (place.line > 0) text += std::to_string(place.line) + ":";
  text += " " + what;
  constexpr std::size_t Longest = 1000;  // keys are the user's, of any length
  if (text.size() > Longest) text = text.substr(0, Longest) + "...";
  return printable(text);
}

void Diagnostics::add(const Place& place, const std::string& what, const std::string& remedy) {
  const std::string text = compose(place, remedy.empty() ? what : what + "; " + remedy);
  m_entries.push_back({sourceOf(place.source), place.line, text});
}

void Diagnostics::note(const Place& place, const std::string& what) {
  m_notes.push_back(compose(place, "note: " + what));
}

void Diagnostics::addLine(const std::string& line) {
  m_entries.push_back({sourceOf(""), 0, line});
}

void Diagnostics::print(std::ostream& out) const {
  for (const std::string& note : m_notes) out << note << '\n';
  std::vector<const Entry*> entries;
  for (const Entry& entry : m_entries) entries.push_back(&entry);
  std::stable_sort(entries.begin(), entries.end(), [](const Entry* a, const Entry* b) {
    return std::tie(a->source, a->line) < std::tie(b->source, b->line);
  });
  for (std::size_t i = 0; i < entries.size() && i < MostPrinted; ++i) out << entries[i]->text << '\n';
  if (entries.size() > MostPrinted) out << "... and " << entries.size() - MostPrinted << " more\n";
}

}  // namespace kvx
