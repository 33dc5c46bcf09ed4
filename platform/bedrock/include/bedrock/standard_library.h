#pragma once

// The functions that depend on the standard library in use: access to its console streams without
// <iostream>, a check that lets the library skip the locale while there is none, and the reading of
// numbers, which some cannot do without a stream.

#include <iosfwd>

namespace BEDROCK {

/// The console streams of the standard library, initialised.
std::ostream& standardOutput() noexcept;
std::ostream& standardError() noexcept;

/// Whether it is certain that the process has not made a locale yet, so that the classic locale is
/// the global one. False if the standard library does not provide this information.
bool hasNoLocaleYet() noexcept;

/// The number that digits stand for, with at most one decimal point after the first digit and an
/// optional minus. It must be one that a double can hold. May raise std::bad_alloc.
double readDouble(const char* first, const char* last);

}  // namespace BEDROCK
