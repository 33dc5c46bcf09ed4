#pragma once

#include <kivo/option_lookup.h>

#include <set>
#include <string>
#include <vector>

namespace kivo_3_3 {

// Cuts `text` at every ',' and appends the pieces to `words` as they stand:
//   "a,,b" -> "a", "", "b"
//   "a,"   -> "a"              (nothing behind the last comma is no piece)
//   ""     -> none
result_t split(const std::string& text, std::vector<std::string>& words);

// 1 for a list of names that cannot be declared: more than three, or three of which
// the last is longer than two characters; else 0.
int validateName(const std::vector<std::string>& names);

// Whether two sets of tags have one in common.
bool isIntersected(const std::set<std::string>& first, const std::set<std::string>& second);

}  // namespace kivo_3_3
