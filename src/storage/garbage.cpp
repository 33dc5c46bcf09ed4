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
