#pragma once

// splitmix64. The distributions of the standard library give other numbers with each
// implementation, and a seed must give the same scenario everywhere.

#include <cstddef>
#include <cstdint>
#include <iterator>

namespace kivo_3_3::scenarios {

class Random {
 public:
  explicit Random(std::uint64_t seed) : m_state(seed) {}

  // A number from 0 up to, not including, `bound`.
  int below(int bound) { return static_cast<int>(next() % static_cast<std::uint64_t>(bound)); }
  bool chance(int percent) { return below(100) < percent; }

  template <class List>
  const auto& oneOf(const List& list) {
    return list[static_cast<std::size_t>(below(static_cast<int>(std::size(list))))];
  }

 private:
  std::uint64_t next() {
    m_state += 0x9E3779B97F4A7C15U;
    std::uint64_t mixed = m_state;
    mixed = (mixed ^ (mixed >> 30U)) * 0xBF58476D1CE4E5B9U;
    mixed = (mixed ^ (mixed >> 27U)) * 0x94D049BB133111EBU;
    return mixed ^ (mixed >> 31U);
  }

  std::uint64_t m_state;
};

}  // namespace kivo_3_3::scenarios
