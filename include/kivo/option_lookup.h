#pragma once

#include <kivo/export.h>

#include <string>
#include <vector>

namespace kivo_3_3 {

class OptionDescription;

/// Whether something was found.
enum result_t : int { found = 0, notFound = 1 };

/// Finds the first of `options` that has this name, exactly; a boolean option also
/// has each of its names with "no-" ahead. Sets `index` and returns 0, or returns 1
/// with `index` unchanged. For the library's own parts, which alone can make options.
KIVO_API result_t findOption(const std::string& name, unsigned int& index,
                             const std::vector<OptionDescription>& options);

/// The same for the first of `names` that an option has.
KIVO_API result_t findOption(const std::vector<std::string>& names, unsigned int& index,
                             const std::vector<OptionDescription>& options);

}  // namespace kivo_3_3
