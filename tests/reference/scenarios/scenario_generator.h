#pragma once

// Makes random scenarios. A seed gives the same scenario with every compiler and platform.

#include <cstdint>
#include <string>

namespace kivo_3_3::scenarios {

std::string generatedScenario(std::uint64_t seed);

}  // namespace kivo_3_3::scenarios
