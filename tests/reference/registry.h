#pragma once

// All declarations of one parser in order, and the groups, which become the sections of the help.

#include <optional>
#include <string>
#include <vector>

#include "reference/option.h"

namespace kivo_3_3::reference {

// Splits a text at its commas, without trimming. An empty piece before a comma counts, an empty
// piece after the last comma does not: "a,,b," gives "a", "", "b".
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
  // Every declared option gets this tokenizer.
  explicit Registry(char tokenizer) : m_tokenizer(tokenizer) {}

  // Declares an option. Rejected are declarations with more than three names, with a third name of
  // more than two bytes, or with a name that is taken. The builder of a rejected declaration
  // accepts all calls, without effect.
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
