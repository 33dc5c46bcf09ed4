#pragma once

#include <string>
#include <vector>

#include "description.h"

namespace kivo_describe {

// Something that can be made of a description.
struct Format {
  const char* name;  // the action that asks for it
  const char* help;
  std::string (*write)(const Description& description);
};

const std::vector<Format>& formats();

}  // namespace kivo_describe
