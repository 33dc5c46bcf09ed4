#pragma once

#include <iosfwd>

#include "input.h"
#include "settings.h"

namespace textkit {

/// Counts and hashes: writes one row for each file, with the columns of the actions in the order in
/// which they were given. In plain format, a last row has the sums of the counts if several files
/// were named.
void summarize(const Settings& settings, InputReader& reader, std::ostream& out);

}  // namespace textkit
