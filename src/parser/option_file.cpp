// Each entered file refers to the file that named it; a cycle is found by following these
// references back. If a file that is only read twice were taken for a cycle, tools would refuse it.

#include "parser/option_file.h"

#include <string_view>

namespace kivo_3_3 {

ArgumentWindow parseStreamToArgs(const char* text, const WhiteSpace& isSpace) {
  std::string_view lines(text != nullptr ? text : "");
  if (lines == "-1")
    lines = "?";  // unreadable files used to have this text; tools depend on it
  return ArgumentWindow(ArgumentLines(lines, isSpace));
}

void OptionFileTrail::named(std::size_t total) {
  std::optional<std::size_t> by;
  if (!m_entered.empty())
    by = m_entered.size() - 1;
  for (; m_named < total; ++m_named)
    m_waiting.push_back(by);
}

bool OptionFileTrail::enter(const std::string& identity) {
  std::optional<std::size_t> namedBy;
  if (!m_waiting.empty()) {
    namedBy = m_waiting.front();
    m_waiting.pop_front();
  }
  const auto [kept, isNew] = m_identities.insert(identity);
  if (!isNew && hasLedTo(&*kept, namedBy))
    return false;
  m_entered.push_back({&*kept, namedBy});
  return true;
}

bool OptionFileTrail::hasLedTo(const std::string* identity, std::optional<std::size_t> file) const {
  while (file && m_entered[*file].identity != identity)
    file = m_entered[*file].namedBy;
  return file.has_value();
}

}  // namespace kivo_3_3
