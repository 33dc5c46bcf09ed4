#pragma once

// The texts of one parser. If one of them moved or was freed before the parser, the tool would
// read a dangling `const char*`.

#include "storage/interned_texts.h"
#include "storage/owned_memory.h"

namespace kivo_3_3 {

// Owns every text that a parser hands out as a `const char*`. A kept text has one address until
// the Garbage is destroyed; equal texts are interned. Named like this since 3.0.
class Garbage final {
 public:
  // Returns the kept copy of `text`; a static empty text if `text` is null or memory runs out.
  virtual const char* init(const char* text);

  // The same, but raises std::bad_alloc when memory runs out.
  const char* keep(const char* text);

  // The arena of the texts, for other objects that must live as long as the Garbage.
  OwnedMemory& memory() { return m_memory; }

  // For tests: see InternedTexts::countSteps().
  std::size_t countSteps() const { return m_texts.countSteps(); }

 private:
  // 2560 bytes: five options of some 500 bytes each.
  OwnedMemoryOf<2560> m_memory;
  InternedTexts m_texts{m_memory};
};

}  // namespace kivo_3_3
