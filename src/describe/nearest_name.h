#pragma once

// The declared name that is most like a misspelt one. A wrong answer misleads the user, which is
// worse than none.

#include <string_view>

#include "options/option_description.h"

namespace kivo_3_3 {

// The nearest visible name, as nearestName() in kivo/describe.h documents it; null if none is near.
// Raises std::bad_alloc.
[[gnu::cold]] const char* findNearestName(const OptionList& options, std::string_view typed);

}  // namespace kivo_3_3
