// Implements the rule for abbreviations. A mistake here makes an ambiguous argument list the wrong
// names.

#include "stratum2/find_best_match.h"

#include <vector>

namespace stratum2 {

unsigned int find_best_match(generic_iterator_t<std::string> candidates, const std::string& typed,
                             generic_iterator_t<std::string>& best) {
  std::vector<std::string> matches;
  for (; candidates; ++candidates) {
    if (*candidates == typed) {
      matches.assign(1, *candidates);
      break;
    }
    if (candidates->compare(0, typed.size(), typed) == 0)
      matches.push_back(*candidates);
  }
  const auto count = static_cast<unsigned int>(matches.size());
  best = count != 0 ? generic_iterator_t<std::string>(std::move(matches))
                    : generic_iterator_t<std::string>();
  return count;
}

}  // namespace stratum2
