#pragma once

// Runs one scenario in both worlds and compares the transcripts.

#include <functional>
#include <optional>
#include <string>

#include "reference/scenarios/world.h"

namespace kivo_3_3::scenarios {

// The transcript of the scenario. The state of the process is reset first, so that transcripts do
// not depend on what ran before.
std::string transcriptOf(const std::string& scenario, const World& world);

// An excerpt of both transcripts around the first different line; nothing if they are equal.
std::optional<std::string> difference(const std::string& expected, const std::string& actual);

// The difference between the reference (expected) and the library (actual) in this scenario.
std::optional<std::string> differenceIn(const std::string& scenario);

// Drops lines and fields of the scenario as long as `isWanted` accepts the rest.
std::string minimized(const std::string& scenario,
                      const std::function<bool(const std::string&)>& isWanted);

}  // namespace kivo_3_3::scenarios
