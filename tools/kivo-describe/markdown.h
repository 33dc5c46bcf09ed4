#pragma once

#include <string>

#include "page.h"

namespace kivo_describe {

// Writes a page in CommonMark; its texts are safe in dialects with tables, too.
std::string markdown(const Page& page);

}  // namespace kivo_describe
