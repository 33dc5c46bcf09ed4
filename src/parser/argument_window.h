#pragma once

#include <string>
#include <vector>

namespace kivo_3_3 {

// Walks the caller's arguments from the front and shows the next two of them as a
// vector of its own, which is what recognizers look at and take from. However many
// arguments there are, taking one costs the same.
//
// The caller's vector is shortened once, when the window ends, on whatever way: it then
// holds what was not taken.
class ArgumentWindow {
 public:
  explicit ArgumentWindow(std::vector<std::string>& args);
  ArgumentWindow(const ArgumentWindow&) = delete;
  ArgumentWindow& operator=(const ArgumentWindow&) = delete;
  ~ArgumentWindow();

  // Moves on to what is left now; false when nothing is.
  bool advance();

  // The arguments to look at; those taken from its front count as used.
  std::vector<std::string>& view() { return m_view; }
  const std::string& front() const { return m_view.front(); }
  void dropFront() { m_view.erase(m_view.begin()); }

 private:
  static constexpr std::size_t mostShown = 2;

  std::vector<std::string>& m_args;
  std::vector<std::string> m_view;
  std::size_t m_next = 0;  // the first argument that has not been shown yet
};

}  // namespace kivo_3_3
