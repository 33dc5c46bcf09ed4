#pragma once

// What recognizers pass to a result: one occurrence of an option with its values.

#include <kivo/value.h>

#include <vector>

#include "storage/owned_memory.h"

namespace kivo_3_3 {

class OptionDescription;

// A value as it was given. Another object owns the characters of `text`. A `value` that is a text
// refers to the same characters until code outside of the library can see it: see makeOwning().
struct GivenValue {
  const char* text;
  [[no_unique_address]] variant_t value;  // its tail padding has room for `position`
  int position;
};

// Replaces the reference in `value` by characters of its own, which all later copies of `value`
// share: a tool may keep a copy longer than the referenced text lives. Raises std::bad_alloc.
inline void makeOwning(variant_t& value) {
  if (value.type() == stratum2::vtStringReference)
    value = variant_t(value.get<const char*>());
}

// One occurrence of an option, as recognizers pass it on.
struct OptionData {
  explicit OptionData(OwnedMemory* memory = nullptr) : positions(memory), values(memory) {}

  std::vector<int, OwnedAllocator<int>> positions;  // only the position of the occurrence
  std::vector<GivenValue, OwnedAllocator<GivenValue>> values;
};

// Receives the occurrences that recognizers have bound to options.
class IResultCollector {
 public:
  // Records one occurrence of `option`. The caller owns the texts of the values, which must live
  // as long as the record of them.
  virtual void store(const OptionDescription& option, const OptionData& data) = 0;

 protected:
  ~IResultCollector() = default;
};

}  // namespace kivo_3_3
