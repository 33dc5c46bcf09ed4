#pragma once

// Every declaration of one parser, in its order, and the groups that become help sections.

#include <optional>
#include <string>
#include <vector>

#include "reference/option.h"

namespace kivo_3_3::reference {

// Cuts a text at its commas, without trimming. A piece before a comma counts even when it is
// empty, the piece after the last comma only when it is not: "a,,b" gives "a", "", "b".
std::vector<std::string> split(const std::string& text);

// Finds the first option that has exactly this name. A boolean option also has each of its
// names with "no-" in front.
std::optional<std::size_t> findOption(const std::string& name, const Options& options);
// The same for the first of `names` that an option has.
std::optional<std::size_t> findOption(const std::vector<std::string>& names,
                                      const Options& options);

struct Group {
  std::string key;
  std::string title;
};

class Registry {
 public:
  // `tokenizer` is given to every option declared.
  explicit Registry(char tokenizer) : m_tokenizer(tokenizer) {}

  // Declares an option, or rejects the declaration: too many names, a third name of more than
  // two characters, or a name that is taken. What is returned for a rejected declaration
  // accepts the calls of a builder, without effect.
  IOption* option(const char* names, const char* tags, const char* description, bool isAction,
                  variant_type_t type, const char* group);

  const Options& options() const { return m_options; }
  // In the order of first use.
  const std::vector<Group>& groups() const { return m_groups; }

 private:
  Group registerGroup(const std::string& text);

  char m_tokenizer;
  Options m_options;
  std::vector<Group> m_groups;
  Option m_fallback;
};

}  // namespace kivo_3_3::reference
