#pragma once

// The declared name that a misspelt one probably means.

#include <optional>
#include <string>

#include "reference/option.h"

namespace kivo_3_3::reference {

// The name into which `typed` turns with the fewest steps; of equally near names the one declared
// first. A step inserts, deletes or replaces a character, or swaps two neighbours. (n + 1) / 4
// steps are allowed for a text of n characters, and only the first 100 characters count. Names of
// one or two characters, and those of hidden and of positional options, are left out.
std::optional<std::string> nearestName(const Options& options, const std::string& typed);

}  // namespace kivo_3_3::reference
