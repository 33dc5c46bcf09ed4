#pragma once

#include <kivo/parse_result.h>

#include <string>
#include <utility>
#include <vector>

#include "base/garbage.h"
#include "options/option_data.h"
#include "options/option_description.h"
#include "result/result_cursor.h"

namespace kivo_3_3 {

// What parses have stored, and the cursors the tool reads it with. Reading changes
// nothing but the cursors and the texts handed out.
class ParseResult final : public IParseResult, public IResultCollector {
 public:
  // What stood behind "--", and where.
  using Argument = std::pair<std::string, int>;

  void destroy() override;
  bool present(const char* name, int from, int to) override;
  Value get(const char* name, int from, int to) override;
  Value next(const char* name) override;
  int nextPosition() override;
  int getFirstArgument(const char** text) override;
  int getNextArgument(const char** text) override;

  ParseResult() = default;
  ParseResult(const ParseResult&) = delete;
  ParseResult& operator=(const ParseResult&) = delete;
  ~ParseResult() override = default;

  // Adds an occurrence under every name of the option. Occurrences add up.
  void store(const OptionDescription& option, const OptionData& data) override;

  // Gives an option the default it declares, if any, under each of its names and with a
  // position for each.
  void applyDefault(const OptionDescription& option);

  int getFirstArgument(std::string& text);
  int getNextArgument(std::string& text);

  // Adds an argument that stood behind "--".
  void addArgument(const std::string& text, int position);

  const OptionMap& options() const { return m_options; }
  const std::vector<Argument>& arguments() const { return m_arguments; }
  ResultCursor& cursor() { return m_cursor; }

 private:
  void storeFirst(const std::vector<std::string>& names, const OptionData& data);
  void storeAgain(const std::vector<std::string>& names, const OptionData& data);

  OptionMap m_options;
  ResultCursor m_cursor{m_options, m_garbage};
  Garbage m_garbage;
  std::vector<Argument> m_arguments;
  std::size_t m_argumentCursor = 0;  // the next one to deliver
};

}  // namespace kivo_3_3
