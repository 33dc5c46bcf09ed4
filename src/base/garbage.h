#pragma once

#include <functional>
#include <set>
#include <string>

namespace kivo_3_3 {

// Owns every text that the library hands out as a `const char*`. Equal texts are kept
// once; a kept text stays where it is until the Garbage ends.
class Garbage final {
 public:
  // The kept copy of `text`. Null, and a text that cannot be kept because memory ran
  // out, answer with a static empty text.
  virtual const char* init(const char* text);

  // The same for those who must not go on with another text: raises std::bad_alloc when
  // memory runs out.
  const char* keep(const char* text);

 private:
  std::set<std::string, std::less<>> m_texts;
};

}  // namespace kivo_3_3
