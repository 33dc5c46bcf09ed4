#pragma once

#include <kivo/option_lookup.h>

#include <string_view>
#include <vector>

#include "storage/hashed_name.h"
#include "storage/owned_memory.h"

namespace kivo_3_3 {

// They are kept elsewhere.
using Texts = std::vector<std::string_view, OwnedAllocator<std::string_view>>;
using Names = std::vector<HashedName, OwnedAllocator<HashedName>>;

// Cuts `text` at every ',' and appends the pieces to `words` as they stand:
//   "a,,b" -> "a", "", "b"
//   "a,"   -> "a"              (nothing behind the last comma is no piece)
//   ""     -> none
result_t split(std::string_view text, Texts& words);
result_t split(std::string_view text, Names& names);

// 1 for a list of names that cannot be declared: more than three, or three of which
// the last is longer than two characters; else 0.
int validateName(const Names& names);

// Whether two sets of tags, each in order, have one in common.
bool isIntersected(const Texts& first, const Texts& second);

}  // namespace kivo_3_3
