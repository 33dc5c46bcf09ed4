#pragma once

#include <string>

#include "stratum2/generic_iterator.h"

namespace stratum2 {

/// Finds what `typed` stands for among `candidates`.
///
/// A candidate equal to `typed` is the only best match, whatever else begins with it.
/// Without one, every candidate that begins with `typed` is a best match; nothing
/// else is, however similar.
///
/// Returns the number of best matches and sets `best` to a walk over copies of them in
/// candidate order, or to an empty handle when there is none.
///
/// The rule of abbreviations in its plain form. The library lists the names an ambiguous argument
/// may stand for with it, and property tests compare the name index with it.
unsigned int find_best_match(generic_iterator_t<std::string> candidates, const std::string& typed,
                             generic_iterator_t<std::string>& best);

}  // namespace stratum2
