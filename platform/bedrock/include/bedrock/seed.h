#pragma once

// The random key of the hash tables. With a key that can be guessed, an attacker could make up
// texts that collide, and a parse would take quadratic time.

#include <array>
#include <cstdint>

namespace BEDROCK {

/// Returns 128 random bits that the system drew when this process started; zeros if the system
/// gives none. The bits are the same at every call and in forked children, and are unknown outside
/// the process. The C library protects stacks and pointers with the same bits, so no output may
/// reveal them.
std::array<std::uint64_t, 2> process_seed() noexcept;

}  // namespace BEDROCK
