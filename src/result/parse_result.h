#pragma once

#include <kivo/parse_result.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/owned_memory.h"
#include "options/option_data.h"
#include "options/option_description.h"
#include "result/result_cursor.h"
#include "result/stored_options.h"

namespace kivo_3_3 {

// What parses have stored, and the cursors the tool reads it with. Reading changes
// nothing but the cursors, and cannot fail: all texts are kept when they are stored.
class ParseResult final : public IParseResult, public IResultCollector {
 public:
  // What stood behind "--", and where.
  struct Argument {
    const char* text;
    int position;
  };

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

  // Gives the options that declare a default that, under each of their names and with a
  // position for each. Raises std::out_of_range behind those that have a name.
  void applyDefaults(std::shared_ptr<const DeclaredDefaults> defaults);

  // Adds an argument that stood behind "--".
  void addArgument(std::string_view text, int position);

  // For the texts of what is stored.
  OwnedMemory& memory() { return m_memory; }

  const StoredOptions& options() const { return m_options; }
  const std::vector<Argument>& arguments() const { return m_arguments; }
  ResultCursor& cursor() { return m_cursor; }

  // Notes that something is stored by these declarations, and whether others have.
  void noteDeclarations(std::uint64_t identity);
  bool isFilledByOthers() const { return m_isFilledByOthers; }

 private:
  OwnedMemoryOf<4096> m_memory;
  StoredOptions m_options{m_memory};
  ResultCursor m_cursor{m_options};
  std::vector<Argument> m_arguments;
  std::size_t m_argumentCursor = 0;  // the next one to deliver
  std::optional<std::uint64_t> m_declarations;
  bool m_isFilledByOthers = false;  // beside those
};

}  // namespace kivo_3_3
