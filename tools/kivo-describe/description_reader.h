#pragma once

#include <stdexcept>
#include <string>

#include "description.h"

namespace kivo_describe {

// Says why a text is no description, in one sentence for the user.
class NoDescription : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// Reads a description in the form of description.schema.json, whatever the order of its keys.
// Fields that the schema does not name are passed over. Throws NoDescription.
Description readDescription(const std::string& json);

}  // namespace kivo_describe
