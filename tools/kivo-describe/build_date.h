#pragma once

#include <string>

namespace kivo_describe {

// The day (UTC, YYYY-MM-DD) of a number of seconds since 1970, as the environment variable
// SOURCE_DATE_EPOCH gives it. Empty for a null pointer and for the empty text. Throws
// std::invalid_argument for anything else that is no such number, and for years after 9999.
std::string buildDate(const char* secondsSince1970);

}  // namespace kivo_describe
