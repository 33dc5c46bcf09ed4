#pragma once

#include <string>
#include <vector>

#include "support/temporary_folder.h"

namespace kivo_3_3::testing {

// Something that a tool does with a parser of its own, from its declarations on.
struct Episode {
  const char* name;
  std::string (*play)(const TemporaryFolder& folder);
  const char* outcome;  // what play() returns, on whatever thread
};

// One for each part of the interface. The folder belongs to the thread, and writeOptionFiles() must
// have prepared it.
const std::vector<Episode>& episodes();

void writeOptionFiles(const TemporaryFolder& folder);

}  // namespace kivo_3_3::testing
