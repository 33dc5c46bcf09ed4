#pragma once

#include <cstddef>
#include <string_view>
#include <utility>

#include "options/name_list.h"

namespace kivo_3_3 {

// The arguments of a parse that have not been used yet. Recognizers look at the first two
// of them, and drop from the front what they have used. The texts are the caller's.
class ArgumentWindow {
 public:
  explicit ArgumentWindow(Texts args) : m_args(std::move(args)) {}

  std::size_t size() const { return m_args.size() - m_used; }
  bool empty() const { return size() == 0; }

  // Out of range where there is none.
  std::string_view operator[](std::size_t place) const { return m_args.at(m_used + place); }
  std::string_view front() const { return (*this)[0]; }

  // So many must be there.
  void drop(std::size_t count) { m_used += count; }

 private:
  Texts m_args;
  std::size_t m_used = 0;
};

}  // namespace kivo_3_3
