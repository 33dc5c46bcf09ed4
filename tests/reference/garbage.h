#pragma once

// Interns every text that a parser or a result hands out as a pointer.
//
// Equal texts share one copy, and so one address, until the owner is destroyed.

#include <functional>
#include <set>
#include <string>
#include <string_view>

namespace kivo_3_3::reference {

class Garbage {
 public:
  // Returns the interned copy; for null, a static empty text. Finding a text that is interned
  // already allocates nothing.
  const char* init(const char* text) {
    if (text == nullptr)
      return "";
    const auto known = m_texts.find(std::string_view(text));
    return known != m_texts.end() ? known->c_str() : m_texts.insert(text).first->c_str();
  }
  const char* init(const std::string& text) { return init(text.c_str()); }

 private:
  std::set<std::string, std::less<>> m_texts;
};

}  // namespace kivo_3_3::reference
