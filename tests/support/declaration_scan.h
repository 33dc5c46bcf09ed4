#pragma once

// Looks names up by a linear scan of all declarations. Shows the answers like those of a NameIndex,
// so that a test can compare both.

#include <kivo/option_lookup.h>

#include <optional>
#include <string>
#include <vector>

#include "options/name_index.h"
#include "options/option_description.h"
#include "recognizers/abbreviation_parser.h"
#include "stratum2/find_best_match.h"

namespace kivo_3_3::testing {

inline std::string shown(std::optional<unsigned int> index) {
  return index ? std::to_string(*index) : "none";
}

inline std::string shown(const NameIndex::Match& match) {
  if (match.kind == NameIndex::Match::unique)
    return std::string(match.ahead).append(match.name) + "@" + std::to_string(match.option);
  return match.kind == NameIndex::Match::none ? "none" : "ambiguous";
}

// Scans a copy of the declarations, made once.
class DeclarationScan {
 public:
  explicit DeclarationScan(const OptionList& options) : m_options(options.begin(), options.end()) {
    AbbreviationParser::makeOptionNamesList(options, m_names);
  }

  // All names; each name of a boolean option is followed by its "no-" form.
  const std::vector<std::string>& names() const { return m_names; }

  std::string find(const std::string& name) const {
    unsigned int index = 0;
    return findOption(name, index, m_options) == found ? std::to_string(index) : "none";
  }

  bool isTaken(const std::vector<std::string>& names) const {
    unsigned int index = 0;
    return findOption(names, index, m_options) == found;
  }

  std::string findBest(const std::string& typed) const {
    stratum2::generic_iterator_t<std::string> best;
    const unsigned int count =
        stratum2::find_best_match({m_names.begin(), m_names.end()}, typed, best);
    if (count != 1)
      return count == 0 ? "none" : "ambiguous";
    return *best + "@" + find(*best);
  }

 private:
  std::vector<OptionDescription> m_options;
  std::vector<std::string> m_names;
};

}  // namespace kivo_3_3::testing
