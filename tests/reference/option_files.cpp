#include "reference/option_files.h"

#include <locale>
#include <sstream>

#include "bedrock/file.h"

namespace kivo_3_3::reference {

namespace {

// The line without the white space before its argument and the line end after it.
std::string trimmed(const std::string& line, const std::locale& locale) {
  std::size_t start = 0;
  while (start < line.size() && std::isspace(line[start], locale))
    ++start;
  std::size_t end = line.size();
  while (end > start && (line[end - 1] == '\r' || line[end - 1] == '\n'))
    --end;
  return line.substr(start, end - start);
}

}  // namespace

std::vector<std::string> argumentsOfText(const std::string& text) {
  std::vector<std::string> args;
  const std::locale locale;
  // The text "-1" has counted as a single question mark since 3.0; tools depend on it.
  std::istringstream stream(text == "-1" ? "?" : text);
  std::string line;
  while (std::getline(stream, line)) {
    const std::string argument = trimmed(line, locale);
    if (!argument.empty() && argument[0] != ';' && argument[0] != '#')
      args.push_back(argument);
  }
  return args;
}

void OptionFileQueue::named(std::size_t total) {
  for (; m_named < total; ++m_named)
    m_waiting.push_back(m_current);
}

bool OptionFileQueue::enter(const std::string& name) {
  m_current.clear();
  if (!m_waiting.empty()) {
    m_current = m_waiting.front();
    m_waiting.pop_front();
  }
  return m_current.insert(BEDROCK::file_identity(name.c_str())).second;
}

}  // namespace kivo_3_3::reference
