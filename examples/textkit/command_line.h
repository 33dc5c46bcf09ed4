#pragma once

#include <string>

#include "settings.h"

namespace textkit {

/// Fills `settings` from the command line and the option files it names.
///
/// Returns 0, or the status of the parse that failed with its reason in `error`; a
/// command line that parses but asks for nothing sensible is `kivo::status::usageError`.
int readCommandLine(int argc, const char* const* argv, Settings& settings, std::string& error);

}  // namespace textkit
