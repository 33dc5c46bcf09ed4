#include "parser/option_file.h"

#include <algorithm>
#include <string_view>

#include "base/white_space.h"

namespace kivo_3_3 {

namespace {

using std::string_view;

string_view withoutLineEnd(string_view line) {
  const std::size_t last = line.find_last_not_of("\r\n");
  return line.substr(0, last == string_view::npos ? 0 : last + 1);
}

string_view withoutIndent(string_view line, const WhiteSpace& isSpace) {
  const auto first = std::find_if_not(line.begin(), line.end(), isSpace);
  return line.substr(static_cast<std::size_t>(first - line.begin()));
}

bool isComment(string_view line) {
  return !line.empty() && (line.front() == ';' || line.front() == '#');
}

}  // namespace

void parseStreamToArgs(const char* text, std::vector<std::string>& args) {
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
      args.emplace_back(argument);
  }
}

void OptionFileTrail::named(std::size_t total) {
  std::optional<std::size_t> by;
  if (!m_namedBy.empty())
    by = m_namedBy.size() - 1;
  for (; m_named < total; ++m_named)
    m_waiting.push_back(by);
}

bool OptionFileTrail::enter(const std::string& identity) {
  std::optional<std::size_t> namedBy;
  if (!m_waiting.empty()) {
    namedBy = m_waiting.front();
    m_waiting.pop_front();
  }
  const auto earlier = m_byIdentity.equal_range(identity);
  const auto ledHere = [&](const auto& entered) { return ledTo(entered.second, namedBy); };
  if (std::any_of(earlier.first, earlier.second, ledHere))
    return false;
  m_byIdentity.emplace(identity, m_namedBy.size());
  m_namedBy.push_back(namedBy);
  return true;
}

// A file is always entered after the one that named it.
bool OptionFileTrail::ledTo(std::size_t ancestor, std::optional<std::size_t> file) const {
  while (file && *file > ancestor)
    file = m_namedBy[*file];
  return file == ancestor;
}

}  // namespace kivo_3_3
