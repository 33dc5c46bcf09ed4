#include "parser/argument_window.h"

#include <algorithm>
#include <utility>

namespace kivo_3_3 {

ArgumentWindow::ArgumentWindow(std::vector<std::string>& args) : m_args(args) {
  m_view.reserve(mostShown);
  advance();
}

ArgumentWindow::~ArgumentWindow() {
  while (!m_view.empty()) {
    m_args[--m_next] = std::move(m_view.back());
    m_view.pop_back();
  }
  m_args.erase(m_args.begin(), m_args.begin() + static_cast<std::ptrdiff_t>(m_next));
}

bool ArgumentWindow::advance() {
  while (m_view.size() < mostShown && m_next < m_args.size())
    m_view.push_back(std::move(m_args[m_next++]));
  return !m_view.empty();
}

}  // namespace kivo_3_3
