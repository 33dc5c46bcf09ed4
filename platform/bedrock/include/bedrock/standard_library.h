#pragma once

#include <iosfwd>

namespace BEDROCK {

/// The console streams of the standard library, ready for use.
std::ostream& standardOutput() noexcept;
std::ostream& standardError() noexcept;

/// Whether it is certain that the process has not made a locale yet, so that the classic locale is
/// the global one. False where the standard library does not tell.
bool hasNoLocaleYet() noexcept;

}  // namespace BEDROCK
