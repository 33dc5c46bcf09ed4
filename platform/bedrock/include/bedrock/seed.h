#pragma once

#include <array>
#include <cstdint>

namespace BEDROCK {

/// 128 random bits that the system drew for this process when it began. They are the same at
/// every call, and nobody outside of the process knows them.
std::array<std::uint64_t, 2> process_seed() noexcept;

}  // namespace BEDROCK
