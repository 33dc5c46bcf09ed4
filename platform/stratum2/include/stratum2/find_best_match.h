#pragma once

// The plain form of the rule for abbreviations. The library answers from an index that is faster
// than this walk, and property tests compare the index with it.

#include <string>

#include "stratum2/generic_iterator.h"

namespace stratum2 {

/// Finds the candidates that `typed` can mean.
///
/// A candidate equal to `typed` is the only best match, even if other candidates begin with
/// `typed`. If no candidate is equal, all candidates that begin with `typed` are best matches. No
/// other candidate is a match, however similar.
///
/// Returns the number of best matches. Sets `best` to an iterator over copies of them in the order
/// of the candidates, or to an empty iterator if there is none.
unsigned int find_best_match(generic_iterator_t<std::string> candidates, const std::string& typed,
                             generic_iterator_t<std::string>& best);

}  // namespace stratum2
