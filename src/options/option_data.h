#pragma once

#include <kivo/value.h>

#include <vector>

#include "storage/owned_memory.h"

namespace kivo_3_3 {

class OptionDescription;

// A value as it was given. Its text is kept elsewhere. A `value` that is a text refers to it
// until somebody outside of the library gets to see the value: see makeOwning().
struct GivenValue {
  const char* text;
  [[no_unique_address]] variant_t value;  // which leaves room for the position
  int position;
};

// Gives the value of an option its own characters, which all copies share from then on: a tool
// may keep a copy for longer than the text that the value referred to. Raises std::bad_alloc.
inline void makeOwning(variant_t& value) {
  if (value.type() == stratum2::vtStringReference)
    value = variant_t(value.get<const char*>());
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
