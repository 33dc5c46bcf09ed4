#pragma once

#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "base/garbage.h"
#include "options/declaration_index.h"
#include "options/option_description.h"

namespace kivo_3_3 {

// Everything one parser has declared, in declaration order.
//
// Declarations never fail loudly. One that is rejected, or for which memory runs out,
// answers with a fallback description, so that the builder calls chained to it land
// somewhere harmless.
class RegisteredOptionStorage final {
 public:
  // A group as the help shows it: key, then title.
  using Group = std::pair<std::string, std::string>;

  explicit RegisteredOptionStorage(Garbage* garbage) : m_garbage(garbage) {}

  // Null texts count as empty, null `tags` as none.
  virtual IOption* option(const char* names, const char* tags, const char* description,
                          bool isAction, variant_type_t type, const char* group);
  virtual IOption* action(const char* names, const char* description, variant_type_t type,
                          const char* group);
  virtual IOption* modifier(const char* names, const char* actions, const char* description,
                            variant_type_t type, const char* group);

  // The character at which options declared from now on split their values.
  void setTokenizer(char tokenizer) { m_tokenizer = tokenizer; }

  std::vector<OptionDescription>& options() { return m_options; }
  const std::vector<OptionDescription>& options() const { return m_options; }
  // One for each distinct key, in order of first use.
  const std::vector<Group>& groups() const { return m_groups; }
  DeclarationIndex& index() { return m_index; }
  const OptionDescription& fallback() const { return m_fallback; }

 private:
  friend class PinnedDeclarations;

  IOption* declare(const char* names, const char* tags, const char* description, bool isAction,
                   variant_type_t type, const char* group);
  const Group& groupFor(const std::string& text);
  void forgetGroupsFrom(std::size_t first);
  bool isTaken(const std::vector<std::string>& names);
  IOption* reject();
  OptionDescription& append(OptionDescription description);

  char m_tokenizer = ',';
  std::vector<OptionDescription> m_options;
  std::vector<Group> m_groups;
  std::unordered_map<std::string, std::size_t> m_groupOf;  // by key, into m_groups
  Garbage* m_garbage;
  OptionDescription m_fallback;
  DeclarationIndex m_index;
  int m_pins = 0;
  std::vector<std::vector<OptionDescription>> m_retired;  // outgrown while pinned
};

// While one lives, no description moves or ends, though new ones may be declared: what
// a parse refers to survives a handler that declares.
class PinnedDeclarations {
 public:
  explicit PinnedDeclarations(RegisteredOptionStorage& storage);
  PinnedDeclarations(const PinnedDeclarations&) = delete;
  PinnedDeclarations& operator=(const PinnedDeclarations&) = delete;
  ~PinnedDeclarations();

 private:
  RegisteredOptionStorage& m_storage;
};

}  // namespace kivo_3_3
