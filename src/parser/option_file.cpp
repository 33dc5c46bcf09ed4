#include "parser/option_file.h"

#include <algorithm>
#include <string_view>

#include "base/white_space.h"

namespace kivo_3_3 {

namespace {

using std::string_view;

string_view withoutLineEnd(string_view line) {
  while (!line.empty() && (line.back() == '\r' || line.back() == '\n'))
    line.remove_suffix(1);
  return line;
}

string_view withoutIndent(string_view line, const WhiteSpace& isSpace) {
  const auto first = std::find_if_not(line.begin(), line.end(), isSpace);
  return line.substr(static_cast<std::size_t>(first - line.begin()));
}

bool isComment(string_view line) {
  return !line.empty() && (line.front() == ';' || line.front() == '#');
}

}  // namespace

void parseStreamToArgs(const char* text, Texts& args) {
  string_view rest(text != nullptr ? text : "");
  if (rest == "-1")
    rest = "?";  // what a file that failed to load used to look like
  const WhiteSpace isSpace;
  while (!rest.empty()) {
    const std::size_t lineEnd = std::min(rest.find('\n'), rest.size());
    const string_view line = withoutIndent(rest.substr(0, lineEnd), isSpace);
    rest.remove_prefix(std::min(lineEnd + 1, rest.size()));
    if (isComment(line))
      continue;
    const string_view argument = withoutLineEnd(line);
    if (!argument.empty())
      args.push_back(argument);
  }
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
