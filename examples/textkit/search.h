#pragma once

#include <iosfwd>

#include "input.h"
#include "settings.h"

namespace textkit {

/// Writes the lines that contain one of the patterns, and as many lines around them as the settings
/// say. In plain format the output is that of `grep -aF` in the C locale.
void search(const Settings& settings, InputReader& reader, std::ostream& out);

}  // namespace textkit
