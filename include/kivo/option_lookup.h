#pragma once

#include <kivo/export.h>

#include <string>
#include <vector>

namespace kivo_3_3 {

class OptionDescription;

/// Whether findOption() found an option.
enum result_t : int { found = 0, notFound = 1 };

/// Finds the first of `options` with exactly this name; a boolean option also has each of its
/// names with "no-" before it. Sets `index` and returns 0, or returns 1 with `index` unchanged.
/// Only the library itself can call this, because only the library can make options.
KIVO_API result_t findOption(const std::string& name, unsigned int& index,
                             const std::vector<OptionDescription>& options);

/// The same, for the first of `names` that is the name of an option.
KIVO_API result_t findOption(const std::vector<std::string>& names, unsigned int& index,
                             const std::vector<OptionDescription>& options);

}  // namespace kivo_3_3
