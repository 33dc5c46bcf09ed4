#pragma once

// The comma-separated lists of the interface: names of an option, and tags. If they were split
// differently, tools would declare other names than they wrote.

#include <kivo/option_lookup.h>

#include <string_view>
#include <vector>

#include "storage/hashed_name.h"
#include "storage/owned_memory.h"

namespace kivo_3_3 {

// Lists of views: other objects own the characters.
using Texts = std::vector<std::string_view, OwnedAllocator<std::string_view>>;
using Names = std::vector<HashedName, OwnedAllocator<HashedName>>;

// Splits `text` at every ',' and appends the pieces unchanged to `words`. Always returns `found`.
//   "a,,b" -> "a", "", "b"
//   "a,"   -> "a"              (no empty piece after the last comma)
//   ""     -> none
result_t split(std::string_view text, Texts& words);
result_t split(std::string_view text, Names& names);

// 1 for a list of names that cannot be declared: more than three names, or three names of which the
// last is longer than two characters; otherwise 0.
int validateName(const Names& names);

// Whether two sets of tags, each sorted, have a tag in common.
bool isIntersected(const Texts& first, const Texts& second);

}  // namespace kivo_3_3
