#pragma once

// An input as a list of steps, one a line: a verb, a blank, and fields between bars.
//   option level,l|How hard to try|s32|Main
//
// A backslash makes the next character an ordinary one, and "\n" is a newline, so that every text
// without a NUL can be a field. Every input is a valid script: a target skips the steps that it
// does not know.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

namespace kivo_3_3::fuzzing {

// The bytes as a text without NUL, which would end the text early.
inline std::string textOf(const std::uint8_t* data, std::size_t size) {
  std::string text;
  for (std::size_t i = 0; i < size; ++i)
    if (data[i] != 0)
      text += static_cast<char>(data[i]);
  return text;
}

inline std::vector<std::string> linesOf(const std::string& text) {
  std::vector<std::string> lines;
  for (std::size_t begin = 0; begin < text.size();) {
    const std::size_t end = std::min(text.find('\n', begin), text.size());
    lines.push_back(text.substr(begin, end - begin));
    begin = end + 1;
  }
  return lines;
}

class Step {
 public:
  explicit Step(const std::string& line) {
    const std::size_t blank = line.find(' ');
    m_verb = line.substr(0, blank);
    if (blank != std::string::npos)
      readFields(std::string_view(line).substr(blank + 1));
  }

  bool is(const char* verb) const { return m_verb == verb; }

  // A missing field reads as empty, null or `fallback`.
  std::string text(std::size_t field) const {
    return field < m_fields.size() ? m_fields[field] : std::string();
  }
  const char* textOrNull(std::size_t field) const {
    return field < m_fields.size() ? m_fields[field].c_str() : nullptr;
  }
  int number(std::size_t field, int fallback = 0) const {
    return field < m_fields.size() ? std::atoi(m_fields[field].c_str()) : fallback;
  }

 private:
  void readFields(std::string_view rest) {
    m_fields.emplace_back();
    for (std::size_t i = 0; i < rest.size(); ++i) {
      if (rest[i] == '|')
        m_fields.emplace_back();
      else if (rest[i] != '\\')
        m_fields.back() += rest[i];
      else if (++i < rest.size())
        m_fields.back() += rest[i] == 'n' ? '\n' : rest[i];
    }
  }

  std::string m_verb;
  std::vector<std::string> m_fields;
};

using Script = std::vector<Step>;

inline Script scriptOf(const std::uint8_t* data, std::size_t size) {
  Script script;
  for (const std::string& line : linesOf(textOf(data, size)))
    script.emplace_back(line);
  return script;
}

// The number in the last step with this verb; `fallback` if there is none.
inline int numberIn(const Script& script, const char* verb, int fallback) {
  for (const Step& step : script)
    if (step.is(verb))
      fallback = step.number(0, fallback);
  return fallback;
}

// Splits a list at its commas as declarations do: an empty last word does not count.
inline std::vector<std::string> wordsOf(const std::string& list) {
  std::vector<std::string> words(1);
  for (const char character : list) {
    if (character == ',')
      words.emplace_back();
    else
      words.back() += character;
  }
  if (words.back().empty())
    words.pop_back();
  return words;
}

}  // namespace kivo_3_3::fuzzing
