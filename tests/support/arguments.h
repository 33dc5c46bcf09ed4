#pragma once

// Arguments as the stages of a parse take them.

#include <string>
#include <utility>
#include <vector>

#include "recognizers/argument_window.h"

namespace kivo_3_3::testing {

// Owns the texts of arguments, and an array of pointers to them as in argv.
class ListedArguments {
 protected:
  explicit ListedArguments(std::vector<std::string> texts) : m_texts(std::move(texts)) {
    for (const std::string& text : m_texts)
      m_argv.push_back(text.c_str());
  }

  std::vector<std::string> m_texts;
  std::vector<const char*> m_argv;
};

// An ArgumentWindow that owns its arguments.
class WindowOn final : private ListedArguments, public ArgumentWindow {
 public:
  explicit WindowOn(std::vector<std::string> texts)
      : ListedArguments(std::move(texts)), ArgumentWindow(m_argv.data(), m_argv.size()) {}
  WindowOn(const WindowOn&) = delete;
  WindowOn& operator=(const WindowOn&) = delete;
};

// The arguments that are left in the window.
inline std::vector<std::string> leftOf(ArgumentWindow window) {
  std::vector<std::string> args;
  for (; !window.empty(); window.drop())
    args.emplace_back(window.front());
  return args;
}

}  // namespace kivo_3_3::testing
