#pragma once

// The functions that depend on the standard library in use: access to its console streams without
// <iostream>, and a check that lets the library skip the locale while there is none.

#include <iosfwd>

namespace BEDROCK {

/// The console streams of the standard library, initialised.
std::ostream& standardOutput() noexcept;
std::ostream& standardError() noexcept;

/// Whether it is certain that the process has not made a locale yet, so that the classic locale is
/// the global one. False if the standard library does not provide this information.
bool hasNoLocaleYet() noexcept;

}  // namespace BEDROCK
