#pragma once

#include <list>
#include <string>
#include <string_view>
#include <vector>

#include "tool/scope.h"

// Walks a command line as the parser does, before the parser does, and rewrites what the parser
// would not take: a lone dash and an empty text as values.

namespace kivo_3_3::tool_glue {

/// How a word is taken. The same for the tool's own walk and for the search for a command.
struct Word {
  enum Sort { operand, option, end };
  Sort sort;
  std::string name;        // of an option, as typed, without dashes
  std::string_view value;  // in the same word
  bool hasValue;
};
Word wordOf(std::string_view text);

/// Whether an option takes the word after it as its value.
bool isValue(std::string_view text);

/// Whether the word is the first argument and turns on the trace of the library.
bool isSwitch(const std::vector<const char*>& words, std::size_t index);

class Arguments {
 public:
  /// `tool` is that of the words, which may be a command.
  /// `early` are options whose meaning is known; it must outlive the object. The first word may be
  /// one for the library only if the words may have a switch.
  Arguments(const Scope& scope, const EarlyOptions& early, bool mayHaveSwitch,
            const std::vector<const char*>& words);

  /// The arguments for the parser, with the name of the tool.
  const std::vector<const char*>& words() const { return m_result; }
  const std::string& mark() const { return m_mark; }
  const std::list<std::string>& marked() const { return m_marked; }
  /// Help or the version, if one of them was asked for.
  const Declaration* asked() const { return m_asked; }
  /// The first operand for which there is no declaration, or null. After a misspelt option it may
  /// be the value of that option, and is none.
  const char* stray() const { return m_stray; }
  /// Typed names of options that there are not.
  const std::vector<std::string>& unknownNames() const { return m_unknown; }

 private:
  void takeOperand(const char* text);
  void takeOption(const Word& word);
  void takeEarly(const Declaration& declaration, const Word& word);
  void takeNext(const Declaration& declaration, const Word& word, bool isEarly);
  const char* marked(const std::string& original);
  void chooseMark();

  const Scope& m_scope;
  const EarlyOptions& m_early;
  const std::vector<const char*>& m_words;
  std::size_t m_index = 1;
  bool m_isEnded = false;
  std::size_t m_operands = 0;
  std::vector<const char*> m_result;
  std::list<std::string> m_made;  // words that were rewritten
  std::string m_mark;
  std::list<std::string> m_marked;
  const Declaration* m_asked = nullptr;
  const char* m_stray = nullptr;
  std::vector<std::string> m_unknown;
};

}  // namespace kivo_3_3::tool_glue
