#pragma once

#include <kivo/value.h>

#include <vector>

#include "base/owned_memory.h"

namespace kivo_3_3 {

class OptionDescription;

// A value as it was given. Its text is that of `value` itself where that is a text, and
// else kept elsewhere.
struct GivenValue {
  const char* text;
  variant_t value;
  int position;
};

// What was parsed for one option, in the order it was met.
struct OptionData {
  explicit OptionData(OwnedMemory* memory = nullptr) : positions(memory), values(memory) {}

  // A copy that is kept in `memory`.
  OptionData(const OptionData& other, OwnedMemory* memory)
      : positions(other.positions, memory),
        values(other.values, memory),
        isAscending(other.isAscending) {}

  // Room for what so many calls of append() will add, so that they cannot fail.
  void makeRoomFor(const OptionData& occurrence, std::size_t times = 1);
  // Moves the values of `occurrence` behind those here.
  void append(OptionData& occurrence) noexcept;
  // Leaves nothing but the room.
  void clear() noexcept;

  std::vector<int, OwnedAllocator<int>> positions;  // one for each occurrence
  std::vector<GivenValue, OwnedAllocator<GivenValue>> values;
  // Whether positions and values both ascend. They do unless one parse stored into the
  // result in the midst of another, or the counter has wrapped.
  bool isAscending = true;
};

// Where recognizers hand over what they have bound.
class IResultCollector {
 public:
  // Records one occurrence of `option`, and takes its values over.
  virtual void store(const OptionDescription& option, OptionData& data) = 0;

 protected:
  ~IResultCollector() = default;
};

}  // namespace kivo_3_3
