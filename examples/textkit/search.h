#pragma once

#include <iosfwd>

#include "input.h"
#include "settings.h"

namespace textkit {

/// Writes the lines that hold one of the patterns, and the lines around them that were
/// asked for. In plain format the output is that of `grep -aF` in the C locale.
void search(const Settings& settings, InputReader& reader, std::ostream& out);

}  // namespace textkit
