#pragma once

// A parser with a result, for tests that read: declare, parse, compare one string.

#include <kivo/kivo.h>

#include <string>
#include <vector>

#include "result/parse_result.h"

namespace kivo_3_3::testing {

class Command {
 public:
  explicit Command(int flags = 0);

  IParser& parser() { return *m_parser; }
  // The result of the last parse; empty before the first one.
  ParseResult& result() { return static_cast<ParseResult&>(*m_result); }
  // The message of the last failure.
  const char* error() { return m_parser->getErrorDesc(); }

  IOption* option(const char* names, variant_type_t type, const char* group = nullptr);
  IOption* action(const char* names, variant_type_t type = vtNull);
  IOption* modifier(const char* names, const char* actions, variant_type_t type);
  void optionFiles();

  // Parses into a fresh result; "tool" is put before `args`.
  int parse(const std::vector<std::string>& args);
  int parseStream(const char* text);
  // Like parse(), but calls BasicParser::parseVector(), which applies no defaults. Afterwards
  // `args` has the unused arguments.
  int parseVector(std::vector<std::string>& args);
  // Parses into the result of the previous parse.
  int parseMore(const std::vector<std::string>& args);

  // Parses into a fresh result and renders it; on failure "2: message".
  std::string parsed(const std::vector<std::string>& args);

  // The result as one line: the defaults and the occurrences with their values in the order of
  // their positions, then the leftover arguments. Positions are relative to the last one before the
  // parse.
  //   "level(2)@+1 level=3,4@+2 flag@+5 | rest@+6"
  std::string render();

  // The number of positions drawn since the last parse into a fresh result began.
  int positionsDrawn() const;

 private:
  IOption* remember(const char* names, IOption* declared);
  void startFresh();

  ParserHandle m_parser;
  ResultHandle m_result;
  std::vector<std::string> m_names;  // the first name of each option
  int m_lastPosition = 0;            // the last one before the first parse into m_result
};

}  // namespace kivo_3_3::testing
