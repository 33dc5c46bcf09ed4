#pragma once

#include <kivo/value.h>

#include <vector>

#include "base/owned_memory.h"

namespace kivo_3_3 {

class OptionDescription;

// A value as it was given. Its text is kept elsewhere; a `value` that is a text refers to it.
struct GivenValue {
  const char* text;
  [[no_unique_address]] variant_t value;  // which leaves room for the position
  int position;
};

// The same value for others, who may keep it for longer than the text that it refers to.
// Raises std::bad_alloc.
inline variant_t ownValue(const variant_t& value) {
  return value.type() == stratum2::vtStringReference ? variant_t(value.get<const char*>()) : value;
}

// One occurrence of an option, as recognizers hand it over.
struct OptionData {
  explicit OptionData(OwnedMemory* memory = nullptr) : positions(memory), values(memory) {}

  std::vector<int, OwnedAllocator<int>> positions;  // that of the occurrence
  std::vector<GivenValue, OwnedAllocator<GivenValue>> values;
};

// Where recognizers hand over what they have bound.
class IResultCollector {
 public:
  // Records one occurrence of `option`. The texts of its values stay the caller's, and must
  // live as long as what they are recorded in.
  virtual void store(const OptionDescription& option, const OptionData& data) = 0;

 protected:
  ~IResultCollector() = default;
};

}  // namespace kivo_3_3
