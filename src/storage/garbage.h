#pragma once

#include "storage/interned_texts.h"
#include "storage/owned_memory.h"

namespace kivo_3_3 {

// Owns every text that a parser hands out as a `const char*`. A kept text stays where it
// is until the Garbage ends, and equal texts are kept once.
class Garbage final {
 public:
  // The kept copy of `text`. Null, and a text that cannot be kept because memory ran
  // out, answer with a static empty text.
  virtual const char* init(const char* text);

  // The same for those who must not go on with another text: raises std::bad_alloc when
  // memory runs out.
  const char* keep(const char* text);

  // For what else is to live as long.
  OwnedMemory& memory() { return m_memory; }

  // For tests: see InternedTexts::countSteps().
  std::size_t countSteps() const { return m_texts.countSteps(); }

 private:
  OwnedMemoryOf<2560> m_memory;
  InternedTexts m_texts{m_memory};
};

}  // namespace kivo_3_3
