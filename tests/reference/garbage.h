#pragma once

// Owns every text that a parser or a result hands out as a pointer.
//
// Equal texts share one copy, and so one address, until the owner is destroyed.

#include <set>
#include <string>

namespace kivo_3_3::reference {

class Garbage {
 public:
  // The kept copy; a null text gives a static empty text.
  const char* init(const char* text) {
    return text != nullptr ? m_texts.insert(text).first->c_str() : "";
  }
  const char* init(const std::string& text) { return init(text.c_str()); }

 private:
  std::set<std::string> m_texts;
};

}  // namespace kivo_3_3::reference
