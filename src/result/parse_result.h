#pragma once

// The result that a tool reads. Texts and values that it has delivered must stay valid until the
// result is destroyed, whatever later parses store.

#include <kivo/parse_result.h>

#include <memory>
#include <string_view>
#include <utility>
#include <vector>

#include "options/option_data.h"
#include "options/option_description.h"
#include "result/result_cursor.h"
#include "result/stored_options.h"
#include "storage/garbage.h"
#include "storage/interned_texts.h"
#include "storage/owned_memory.h"

namespace kivo_3_3 {

// What parses have stored, and the cursors for reading it. Reading changes only the cursors and the
// delivered texts, which are interned: equal texts of one result have one address.
class ParseResult final : public IParseResult, public IResultCollector {
 public:
  // An argument after "--", and its position.
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

  // Adds an occurrence under every name of the option, as StoredOptions::store() does. The texts of
  // the names must live as long as the result.
  void store(const OptionDescription& option, const OptionData& data) override;

  // See StoredOptions::apply().
  void applyDefaults(std::shared_ptr<const DeclaredDefaults> defaults, int first) {
    m_options.apply(std::move(defaults), first);
  }

  // Adds an argument after "--".
  void addArgument(std::string_view text, int position);

  // The arena for the texts of stored values.
  OwnedMemory& memory() { return m_memory; }

  // For tests: see InternedTexts::countSteps().
  std::size_t countSteps() const { return m_delivered.countSteps(); }

  const StoredOptions& options() const { return m_options; }
  const std::vector<Argument>& arguments() const { return m_arguments; }
  ResultCursor& cursor() { return m_cursor; }

  // Shares the ownership of a parser's texts, since stored names refer to them. Raises
  // std::bad_alloc.
  void holdDeclarations(const std::shared_ptr<const Garbage>& declarations);
  // Whether more than one parser has parsed into this.
  bool isFilledByMany() const { return m_declarations.size() > 1; }

 private:
  const char* delivered(const char* text);

  OwnedMemoryOf<4096> m_memory;
  StoredOptions m_options{m_memory};
  InternedTexts m_delivered{m_memory};
  ResultCursor m_cursor{m_options, m_delivered};
  std::vector<Argument> m_arguments;
  std::size_t m_argumentCursor = 0;  // the index of the next argument to deliver
  std::vector<std::shared_ptr<const Garbage>, OwnedAllocator<std::shared_ptr<const Garbage>>>
      m_declarations{&m_memory};  // each once
};

}  // namespace kivo_3_3
