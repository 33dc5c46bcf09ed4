#pragma once

#include <cstdint>
#include <string_view>

#include "options/declaration_summary.h"
#include "options/name_index.h"
#include "options/option_description.h"
#include "storage/garbage.h"
#include "storage/name_table.h"

namespace kivo_3_3 {

// Everything one parser has declared, in declaration order.
//
// Declarations never fail loudly. One that is rejected, or for which memory runs out,
// answers with a fallback description, so that the builder calls chained to it land
// somewhere harmless.
class RegisteredOptionStorage final {
 public:
  // A group as the help shows it: its key is its name.
  struct Group {
    HashedName name;
    std::string_view title;
  };
  using Groups = NameTable<Group>::Entries;

  explicit RegisteredOptionStorage(Garbage* garbage);

  // Null texts count as empty, null `tags` as none.
  virtual IOption* option(const char* names, const char* tags, const char* description,
                          bool isAction, variant_type_t type, const char* group);
  virtual IOption* action(const char* names, const char* description, variant_type_t type,
                          const char* group);
  virtual IOption* modifier(const char* names, const char* actions, const char* description,
                            variant_type_t type, const char* group);

  // The character at which options declared from now on split their values.
  void setTokenizer(char tokenizer) { m_tokenizer = tokenizer; }

  OptionList& options() { return m_options; }
  // One for each distinct key, in order of first use.
  const Groups& groups() const { return m_groups.entries(); }
  NameIndex& names() { return m_names; }
  DeclarationSummary& summary() { return m_summary; }
  const OptionDescription& fallback() const { return m_fallback; }

 private:
  IOption* declare(const char* names, const char* tags, const char* description, bool isAction,
                   variant_type_t type, const char* group);
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
