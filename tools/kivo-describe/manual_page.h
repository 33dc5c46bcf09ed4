#pragma once

#include <string>

#include "page.h"

namespace kivo_describe {

// Writes a manual page of section 1 with the macros of man(7). `date` has the form YYYY-MM-DD, or
// is empty.
std::string manualPage(const Page& page, const std::string& date);

}  // namespace kivo_describe
