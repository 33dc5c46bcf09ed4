#pragma once

#include <cstddef>
#include <stdexcept>
#include <string_view>
#include <utility>

#include "options/name_list.h"

namespace kivo_3_3 {

// The arguments of a parse that have not been used yet. Recognizers look at the first two
// of them, and drop from the front what they have used. The texts are the caller's.
class ArgumentWindow {
 public:
  explicit ArgumentWindow(Texts args) : m_texts(std::move(args)), m_left(m_texts.size()) {
    lookAtFront();
  }
  // So many as the process got them, each of which is looked at when its turn has come.
  ArgumentWindow(const char* const* argv, std::size_t count) : m_argv(argv), m_left(count) {
    lookAtFront();
  }

  std::size_t size() const { return m_left; }
  bool empty() const { return m_left == 0; }

  // Out of range where there is none.
  std::string_view operator[](std::size_t place) const {
    if (place >= m_left)
      throwMissing();
    return place == 0 ? m_front : text(place);
  }
  std::string_view front() const { return (*this)[0]; }

  // So many must be there.
  void drop(std::size_t count) {
    m_used += count;
    m_left -= count;
    lookAtFront();
  }

 private:
  [[noreturn, gnu::cold, gnu::noinline]] static void throwMissing() {
    throw std::out_of_range("There is no such argument.");
  }
  std::string_view text(std::size_t place) const {
    return m_argv != nullptr ? std::string_view(m_argv[m_used + place]) : m_texts[m_used + place];
  }
  void lookAtFront() {
    if (!empty())
      m_front = text(0);
    if (m_argv != nullptr && m_left > farAhead)
      __builtin_prefetch(m_argv[m_used + farAhead]);
  }

  // A long command line is in no cache: its texts come while others are parsed.
  static constexpr std::size_t farAhead = 6;

  const char* const* m_argv = nullptr;
  Texts m_texts;  // without the former
  std::size_t m_used = 0;
  std::size_t m_left;
  std::string_view m_front;
};

}  // namespace kivo_3_3
