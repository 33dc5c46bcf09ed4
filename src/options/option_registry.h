#pragma once

// Receives all declarations of one parser. If a rejected declaration left a trace in the list of
// options, a parse would find an option that the tool was refused.

#include <cstdint>
#include <string_view>

#include "options/declaration_summary.h"
#include "options/name_index.h"
#include "options/option_description.h"
#include "storage/garbage.h"
#include "storage/name_table.h"

namespace kivo_3_3 {

// The options of one parser and the sections of its help.
//
// A declaration never raises an exception. A declaration that is rejected, or for which memory runs
// out, returns a fallback description, so that the chained builder calls change no option.
class RegisteredOptionStorage final {
 public:
  // A section of the help; `name` is its key. Only tests read `title`.
  struct Group {
    HashedName name;
    std::string_view title;
  };
  using Groups = NameTable<Group>::Entries;

  explicit RegisteredOptionStorage(Garbage* garbage);

  // A null text counts as empty, null `tags` as no tags.
  virtual IOption* option(const char* names, const char* tags, const char* description,
                          bool isAction, variant_type_t type, const char* group);
  virtual IOption* action(const char* names, const char* description, variant_type_t type,
                          const char* group);
  virtual IOption* modifier(const char* names, const char* actions, const char* description,
                            variant_type_t type, const char* group);

  // Sets the character at which options declared from now on split their values.
  void setTokenizer(char tokenizer) { m_tokenizer = tokenizer; }

  OptionList& options() { return m_options; }
  // The help sections: one for each distinct key, in order of first use.
  const Groups& groups() const { return m_groups.entries(); }
  NameIndex& names() { return m_names; }
  DeclarationSummary& summary() { return m_summary; }
  // For tests.
  const OptionDescription& fallback() const { return m_fallback; }

 private:
  IOption* declare(const char* names, const char* tags, const char* description, bool isAction,
                   variant_type_t type, const char* group);
  OptionDescription& append(Names names);
  void fill(OptionDescription& declared, const char* actionNames, const char* tags,
            const char* description, const char* group);
  const Group& groupFor(std::string_view text);
  bool isTaken(const Names& names);
  IOption* reject();

  char m_tokenizer = ',';
  Garbage* m_garbage;
  OptionList m_options;
  NameTable<Group> m_groups;
  OptionDescription m_fallback;
  NameIndex m_names;
  DeclarationSummary m_summary;
  const std::uint64_t m_identity;
};

}  // namespace kivo_3_3
