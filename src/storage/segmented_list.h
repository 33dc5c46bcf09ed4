#pragma once

// The lists of stored values and positions. If an element moved, a value that a tool refers to
// would dangle as soon as the option is given again.

#include <algorithm>
#include <cstddef>
#include <memory>
#include <new>
#include <type_traits>

#include "storage/owned_memory.h"

namespace kivo_3_3 {

// A list that grows by segments of an arena and never moves an element. The first element is
// inside: most lists have no other. Each further segment is as long as all before it together, up
// to `longestSegment`. Compared with std::deque: see owned_memory.h.
template <class T>
class SegmentedList {
 public:
  class Iterator {
   public:
    Iterator(const SegmentedList& list, std::size_t place) : m_list(list), m_place(place) {}
    const T& operator*() const { return m_list[m_place]; }
    Iterator& operator++() {
      ++m_place;
      return *this;
    }
    bool operator!=(const Iterator& other) const { return m_place != other.m_place; }

   private:
    const SegmentedList& m_list;
    std::size_t m_place;
  };

  SegmentedList() = default;
  SegmentedList(const SegmentedList&) = delete;
  SegmentedList& operator=(const SegmentedList&) = delete;
  ~SegmentedList() {
    if (!std::is_trivially_destructible<T>::value && m_size > 1)
      endSegments();
  }

  std::size_t size() const { return m_size; }
  bool empty() const { return m_size == 0; }
  const T& operator[](std::size_t place) const { return place == 0 ? m_first : *elementAt(place); }
  T& operator[](std::size_t place) { return place == 0 ? m_first : *elementAt(place); }
  Iterator begin() const { return {*this, 0}; }
  Iterator end() const { return {*this, m_size}; }

  // Makes room for at least `more` elements. The memory must outlive the list, and be the same at
  // each call. Raises std::bad_alloc.
  void makeRoom(std::size_t more, OwnedMemory& memory) {
    if (m_room - m_size < more)
      addSegments(m_size + more, memory);
  }
  // Requires room: see makeRoom().
  void push_back(const T& element) noexcept {
    if (m_size == 0)
      m_first = element;
    else
      new (elementAt(m_size)) T(element);
    ++m_size;
  }

 private:
  static_assert(alignof(T) <= alignof(double), "Owned memory is not aligned for more.");
  // The number of segments that double the list, of 1 to 32 elements. From then on a segment has
  // 64 elements, so that at most 63 places are unused.
  static constexpr std::size_t doublingSegments = 6;
  // Elements of the longest segments.
  static constexpr std::size_t longestSegment = std::size_t{1} << doublingSegments;
  // Places of the shortest table of segments: 4 segments are enough for 16 elements.
  static constexpr std::size_t fewestTablePlaces = 4;

  // The place in the list of the first element of this segment.
  static std::size_t beginOf(std::size_t segment) {
    return segment < doublingSegments ? std::size_t{1} << segment
                                      : (segment - doublingSegments + 1) * longestSegment;
  }
  static std::size_t segmentOf(std::size_t place) {
    if (place >= longestSegment)
      return place / longestSegment + doublingSegments - 1;
    return static_cast<std::size_t>(31 - __builtin_clz(static_cast<unsigned int>(place)));
  }
  // Any element but the first.
  T* elementAt(std::size_t place) const {
    const std::size_t segment = segmentOf(place);
    return m_segments[segment] + (place - beginOf(segment));
  }
  void addSegments(std::size_t room, OwnedMemory& memory);
  void endSegments();

  T m_first{};
  std::size_t m_size = 0;
  std::size_t m_room = 1;
  T** m_segments = nullptr;  // a table with places for 4, 8, 16... segments
};

template <class T>
void SegmentedList<T>::addSegments(std::size_t room, OwnedMemory& memory) {
  while (m_room < room) {
    const std::size_t segment = segmentOf(m_room);
    const bool isPowerOfTwo = (segment & (segment - 1)) == 0;
    if (segment == 0 || (segment >= fewestTablePlaces && isPowerOfTwo)) {
      const std::size_t places = std::max(fewestTablePlaces, segment * 2);
      T** const table = static_cast<T**>(memory.allocateForGood(places * sizeof(T*)));
      std::copy_n(m_segments, segment, table);
      m_segments = table;
    }
    const std::size_t widened = beginOf(segment + 1);
    m_segments[segment] = static_cast<T*>(memory.allocateForGood((widened - m_room) * sizeof(T)));
    m_room = widened;
  }
}

template <class T>
void SegmentedList<T>::endSegments() {
  for (std::size_t segment = 0; beginOf(segment) < m_size; ++segment)
    std::destroy_n(m_segments[segment], std::min(m_size, beginOf(segment + 1)) - beginOf(segment));
}

}  // namespace kivo_3_3
