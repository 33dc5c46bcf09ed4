#pragma once

#include <string>

#include "description.h"
#include "no_description.h"

namespace kivo_describe {

// Reads a description in the form of description.schema.json, whatever the order of its keys.
// Fields that the schema does not name are passed over. Throws NoDescription.
Description readDescription(const std::string& json);

}  // namespace kivo_describe
