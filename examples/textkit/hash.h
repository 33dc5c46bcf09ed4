#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace textkit {

/// The 64-bit FNV-1a hash of `text`, started from `basis`.
std::uint64_t fnv1a(std::string_view text, std::uint64_t basis);

/// A hash as it is shown: sixteen hexadecimal digits in small letters.
std::string hashText(std::uint64_t hash);

}  // namespace textkit
