#pragma once

// Arguments as the stages of a parse take them.

#include <string>
#include <vector>

#include "recognizers/argument_window.h"

namespace kivo_3_3::testing {

// It refers to the texts in `args`.
inline ArgumentWindow windowOn(const std::vector<std::string>& args) {
  return ArgumentWindow({args.begin(), args.end()});
}

// What has not been used yet.
inline std::vector<std::string> leftOf(const ArgumentWindow& window) {
  std::vector<std::string> args;
  for (std::size_t place = 0; place < window.size(); ++place)
    args.emplace_back(window[place]);
  return args;
}

}  // namespace kivo_3_3::testing
