#pragma once

#include <algorithm>
#include <cstddef>
#include <memory>
#include <new>
#include <type_traits>

#include "storage/owned_memory.h"

namespace kivo_3_3 {

// A list that grows without moving its elements: by segments of owned memory, each as long as
// all before it until that is long enough. The first element is inside, for most lists have
// no other.
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
  const T& operator[](std::size_t place) const { return place == 0 ? m_first : *behind(place); }
  T& operator[](std::size_t place) { return place == 0 ? m_first : *behind(place); }
  Iterator begin() const { return {*this, 0}; }
  Iterator end() const { return {*this, m_size}; }

  // Makes room for so many more elements. The memory must live as long, and be the same each
  // time. Raises std::bad_alloc.
  void makeRoom(std::size_t more, OwnedMemory& memory) {
    if (m_room - m_size < more)
      addSegments(m_size + more, memory);
  }
  // There must be room.
  void push_back(const T& element) noexcept {
    if (m_size == 0)
      m_first = element;
    else
      new (behind(m_size)) T(element);
    ++m_size;
  }

 private:
  static_assert(alignof(T) <= alignof(double), "Owned memory is not aligned for more.");
  static constexpr std::size_t segmentsThatDouble = 6;
  static constexpr std::size_t longest = std::size_t{1} << segmentsThatDouble;
  static constexpr std::size_t shortestTable = 4;

  // The place of the first element in this segment.
  static std::size_t beginOf(std::size_t segment) {
    return segment < segmentsThatDouble ? std::size_t{1} << segment
                                        : (segment - segmentsThatDouble + 1) * longest;
  }
  static std::size_t segmentOf(std::size_t place) {
    if (place >= longest)
      return place / longest + segmentsThatDouble - 1;
    return static_cast<std::size_t>(31 - __builtin_clz(static_cast<unsigned int>(place)));
  }
  T* behind(std::size_t place) const {
    const std::size_t segment = segmentOf(place);
    return m_segments[segment] + (place - beginOf(segment));
  }
  void addSegments(std::size_t room, OwnedMemory& memory);
  void endSegments();

  T m_first{};
  std::size_t m_size = 0;
  std::size_t m_room = 1;
  T** m_segments = nullptr;  // of what is behind the first; a table of 4, 8, 16... places
};

template <class T>
void SegmentedList<T>::addSegments(std::size_t room, OwnedMemory& memory) {
  while (m_room < room) {
    const std::size_t segment = segmentOf(m_room);
    const bool isPowerOfTwo = (segment & (segment - 1)) == 0;
    if (segment == 0 || (segment >= shortestTable && isPowerOfTwo)) {
      const std::size_t places = std::max(shortestTable, segment * 2);
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
