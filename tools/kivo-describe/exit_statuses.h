#pragma once

#include <string>
#include <vector>

#include "description.h"

namespace kivo_describe {

struct ExitStatus {
  std::string number;  // digits without leading zeros; empty if a tool has given none
  std::string meaning;
};

// The exit statuses of every tool of the library, and those that a tool has added, such as "10 A
// file cannot be read.", in the order of their numbers. A later meaning of a number replaces an
// earlier one. Lines that do not begin with a number come last, in their order.
std::vector<ExitStatus> exitStatuses(const Texts& added);

}  // namespace kivo_describe
