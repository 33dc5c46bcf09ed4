// Copies texts into the set. A tool must never see the exception of a copy that fails, so init()
// gives it the empty text instead.

#include "storage/garbage.h"

namespace kivo_3_3 {

const char* Garbage::init(const char* text) {
  try {
    return keep(text);
  } catch (...) {
    return "";
  }
}

const char* Garbage::keep(const char* text) {
  return text != nullptr ? m_texts.internCopy(text) : "";
}

}  // namespace kivo_3_3
