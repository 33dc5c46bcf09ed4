#pragma once

#include <array>
#include <cstdint>

namespace BEDROCK {

/// 128 random bits that the system drew for this process when it began. They are the same at
/// every call and in forked children, and nobody outside of the process knows them. The C library
/// protects stacks and pointers by the same bits, so do not let them be guessed.
std::array<std::uint64_t, 2> process_seed() noexcept;

}  // namespace BEDROCK
