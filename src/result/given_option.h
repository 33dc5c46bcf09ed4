#pragma once

#include <cstddef>
#include <limits>

#include "options/option_data.h"
#include "storage/segmented_list.h"

namespace kivo_3_3 {

// What was given for one option, in the order in which it was stored.
struct GivenOption {
  // Room for what so many calls of append() will add, so that they cannot fail. The memory
  // must live as long, and be the same each time. Raises std::bad_alloc.
  template <class Occurrences>
  void makeRoomFor(const Occurrences& more, OwnedMemory& memory, std::size_t times = 1) {
    positions.makeRoom(more.positions.size() * times, memory);
    values.makeRoom(more.values.size() * times, memory);
  }
  // Puts that behind what is here.
  template <class Occurrences>
  void append(const Occurrences& more) noexcept;

  SegmentedList<int> positions;  // one for each occurrence
  SegmentedList<GivenValue> values;
  // Whether positions and values both ascend. They do unless one parse stored into the
  // result in the midst of another, or the counter has wrapped between two occurrences.
  bool isAscending = true;

 private:
  // Those added last; the counter may have wrapped.
  int m_position = std::numeric_limits<int>::min();
  int m_valuePosition = std::numeric_limits<int>::min();
};

template <class Occurrences>
[[gnu::always_inline]] inline void GivenOption::append(const Occurrences& more) noexcept {
  for (const int position : more.positions) {
    isAscending = isAscending && m_position <= position;
    m_position = position;
    positions.push_back(position);
  }
  for (const GivenValue& value : more.values) {
    isAscending = isAscending && m_valuePosition <= value.position;
    m_valuePosition = value.position;
    values.push_back(value);
  }
}

}  // namespace kivo_3_3
