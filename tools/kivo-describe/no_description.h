#pragma once

#include <stdexcept>

namespace kivo_describe {

// Says why a text is no description, in one sentence for the user.
class NoDescription : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

}  // namespace kivo_describe
