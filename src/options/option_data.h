#pragma once

#include <kivo/value.h>

#include <algorithm>
#include <cstddef>
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

// What was parsed for one option, in the order it was met.
struct OptionData {
  explicit OptionData(OwnedMemory* memory = nullptr) : positions(memory), values(memory) {}

  // A copy that is kept in `memory`.
  OptionData(const OptionData& other, OwnedMemory* memory)
      : positions(other.positions, memory),
        values(other.values, memory),
        isAscending(other.isAscending) {}

  // Room for what so many calls of append() will add, so that they cannot fail.
  void makeRoomFor(const OptionData& occurrence, std::size_t times = 1) {
    makeRoom(positions, occurrence.positions.size() * times);
    makeRoom(values, occurrence.values.size() * times);
  }
  // Puts the values of `occurrence` behind those here.
  void append(const OptionData& occurrence) noexcept;
  // Leaves nothing but the room.
  void clear() noexcept;

  std::vector<int, OwnedAllocator<int>> positions;  // one for each occurrence
  std::vector<GivenValue, OwnedAllocator<GivenValue>> values;
  // Whether positions and values both ascend. They do unless one parse stored into the
  // result in the midst of another, or the counter has wrapped between two occurrences.
  bool isAscending = true;

 private:
  template <class List>
  static void makeRoom(List& list, std::size_t more) {
    if (list.capacity() - list.size() < more)
      list.reserve(std::max(list.size() * 2, list.size() + more));
  }
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
