#include "tool/arguments.h"

#include <kivo/argument_syntax.h>

#include <algorithm>
#include <charconv>

namespace kivo_3_3::tool_glue {
namespace {

constexpr std::string_view loneDash = "-";
constexpr std::string_view traceSwitch = "kivooption=kivologenable=1";
constexpr char markBegin = '\1';

// The numbers that stand after a character of marks in the word.
void collectNumbers(std::string_view word, std::vector<unsigned int>& numbers) {
  for (std::size_t at = word.find(markBegin); at != std::string_view::npos;
       at = word.find(markBegin, at + 1)) {
    unsigned int number = 0;
    const char* const first = word.data() + at + 1;
    if (std::from_chars(first, word.data() + word.size(), number).ptr != first)
      numbers.push_back(number);
  }
}

// One dash is ASCII, the others are three bytes.
bool beginsWithDash(std::string_view text) {
  return !text.empty() && (text[0] == '-' || getDashLength(std::string(text.substr(0, 3)), 0) != 0);
}

// Whether the parser would split a mark that it gets as a value.
bool splitsMarks(const Declaration& declaration) {
  return declaration.separator == markBegin ||
         (declaration.separator >= '0' && declaration.separator <= '9');
}

// Whether a name in full or cut short is the "no-" form of a boolean.
bool turnsOff(const Declaration& declaration, const std::string& typed) {
  if (parserType(declaration) != vtBool)
    return false;
  bool begins = false;
  for (const std::string_view name : declaration.names) {
    if (typed == "no-" + std::string(name))
      return true;
    begins |= name.compare(0, typed.size(), typed) == 0;
  }
  return !begins;
}

}  // namespace

Word wordOf(std::string_view text) {
  if (text == "--")
    return {Word::end, "", "", false};
  if (text == loneDash || !beginsWithDash(text))
    return {Word::operand, "", "", false};
  Word word = {Word::option, "", "", false};
  // The value is not copied: with its '=', the name ends at the latest.
  const std::size_t equal = std::min(text.find('='), text.size());
  std::string value;
  word.hasValue = splitOptionValue(std::string(text.substr(0, equal + 1)), &word.name, &value);
  const std::size_t after = text.size() - std::min(equal + 1, text.size());
  word.value = text.substr(text.size() - value.size() - after);
  return word;
}

bool isValue(std::string_view text) { return text.empty() || text[0] != '-' || text == loneDash; }

bool isSwitch(const std::vector<const char*>& words, std::size_t index) {
  return index == 1 && words[1] == traceSwitch;
}

Arguments::Arguments(const Scope& scope, const EarlyOptions& early, bool mayHaveSwitch,
                     const std::vector<const char*>& words)
    : m_scope(scope), m_early(early), m_words(words) {
  m_result.reserve(words.size());
  m_result.push_back(words.front());
  for (; m_index < words.size(); ++m_index) {
    const Word word = m_isEnded ? Word{Word::operand, "", "", false} : wordOf(words[m_index]);
    if (mayHaveSwitch && isSwitch(words, m_index)) {
      m_result.push_back(words[m_index]);
    } else if (word.sort == Word::operand) {
      takeOperand(words[m_index]);
    } else if (word.sort == Word::option) {
      takeOption(word);
    } else {
      m_isEnded = true;
      m_result.push_back(words[m_index]);
    }
  }
}

void Arguments::takeOperand(const char* text) {
  const auto& operands = m_scope.operands();
  const bool isRest = !operands.empty() && operands.back()->use == Use::rest;
  if (m_operands++ >= operands.size() && !isRest && m_stray == nullptr && m_unknown.empty())
    m_stray = text;
  const bool isTaken =
      *text != '\0' && (m_isEnded || text != loneDash) && !isSwitch(m_words, m_index);
  m_result.push_back(isTaken ? text : marked(text));
}

void Arguments::takeOption(const Word& word) {
  const auto early = m_early.find(m_index);
  const Declaration* const declaration =
      early != m_early.end() ? early->second : m_scope.resolve(word.name);
  if (declaration == nullptr) {
    m_unknown.push_back(word.name);
    m_result.push_back(m_words[m_index]);
    return;
  }
  if (declaration->isBuiltIn && m_asked == nullptr)
    m_asked = declaration;
  if (declaration->takesValue() && word.value.empty())
    takeNext(*declaration, word, early != m_early.end());
  else if (early != m_early.end())
    takeEarly(*declaration, word);
  else
    m_result.push_back(m_words[m_index]);
}

// An option before the words of a command, whose options may have made its name ambiguous.
void Arguments::takeEarly(const Declaration& declaration, const Word& word) {
  std::string made = turnsOff(declaration, word.name) ? "--no-" : "--";
  made += m_scope.nameOf(declaration);
  if (word.hasValue)
    made.append(1, '=').append(word.value);
  m_result.push_back(m_made.emplace_back(std::move(made)).c_str());
}

// An option without a value in its own word.
void Arguments::takeNext(const Declaration& declaration, const Word& word, bool isEarly) {
  const std::string start = "--" + m_scope.nameOf(declaration) + '=';
  const char* const next = m_index + 1 < m_words.size() ? m_words[m_index + 1] : nullptr;
  if (declaration.takesAnyText() && !splitsMarks(declaration) &&
      (word.hasValue || (next != nullptr && *next == '\0'))) {
    m_index += word.hasValue ? 0 : 1;
    m_result.push_back(m_made.emplace_back(start + marked("")).c_str());
    return;
  }
  if (next != nullptr && next == loneDash) {
    ++m_index;
    m_result.push_back(m_made.emplace_back(start + next).c_str());
    return;
  }
  if (isEarly)
    m_result.push_back(m_made.emplace_back(start.substr(0, start.size() - 1)).c_str());
  else
    m_result.push_back(m_words[m_index]);
  if (next != nullptr && *next != '-') {
    m_result.push_back(next);
    ++m_index;
  }
}

const char* Arguments::marked(const std::string& original) {
  if (m_mark.empty())
    chooseMark();
  m_marked.push_back(original);
  return m_mark.c_str();
}

// The mark is in no word of the command line.
void Arguments::chooseMark() {
  std::vector<unsigned int> numbers;
  for (const char* const word : m_words)
    collectNumbers(word, numbers);
  std::sort(numbers.begin(), numbers.end());
  unsigned int number = 0;
  for (const unsigned int taken : numbers)
    number += taken == number ? 1 : 0;
  m_mark = markBegin + std::to_string(number);
}

}  // namespace kivo_3_3::tool_glue
