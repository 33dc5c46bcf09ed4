#pragma once

#include <cstddef>
#include <optional>
#include <stdexcept>
#include <string_view>

#include "recognizers/argument_lines.h"

namespace kivo_3_3 {

// The arguments of a parse that have not been used yet. Recognizers look at the first two
// of them, and drop from the front what they have used. The texts are the caller's, and each
// is looked at when its turn has come.
class ArgumentWindow {
 public:
  // So many as the process got them.
  ArgumentWindow(const char* const* argv, std::size_t count) : m_next(argv), m_end(argv + count) {
    drop();
  }
  explicit ArgumentWindow(const ArgumentLines& lines) : m_lines(lines) { drop(); }

  bool empty() const { return m_front.data() == nullptr; }

  // Out of range where there is none.
  std::string_view front() const {
    if (empty())
      throwMissing();
    return m_front;
  }

  // The one behind the front, if any.
  std::optional<std::string_view> second() const {
    if (m_next != m_end)
      return *m_next;
    ArgumentLines rest = m_lines;
    const std::string_view line = rest.next();
    return line.data() != nullptr ? std::make_optional(line) : std::nullopt;
  }

  // Takes the front away, if there is one.
  void drop() { m_front = m_next != m_end ? nextOfProcess() : m_lines.next(); }

 private:
  [[noreturn, gnu::cold, gnu::noinline]] static void throwMissing() {
    throw std::out_of_range("There is no such argument.");
  }

  // Long command lines are not in the cache: prefetch a later argument while this one is parsed.
  // Without it a million arguments take 3 to 6 % longer.
  std::string_view nextOfProcess() {
    if (m_end - m_next > prefetchDistance)
      __builtin_prefetch(m_next[prefetchDistance]);
    return *m_next++;
  }

  // In arguments: the work on six of them takes about as long as memory takes to answer.
  static constexpr std::ptrdiff_t prefetchDistance = 6;

  const char* const* m_next = nullptr;
  const char* const* m_end = nullptr;
  ArgumentLines m_lines;     // without the former
  std::string_view m_front;  // null where there is none
};

}  // namespace kivo_3_3
