#include "base/garbage.h"

namespace kivo_3_3 {

const char* Garbage::init(const char* text) {
  try {
    return keep(text);
  } catch (...) {
    return "";
  }
}

const char* Garbage::keep(const char* text) {
  if (text == nullptr)
    return "";
  HashedName wanted(text);
  if (const auto known = m_texts.find(wanted))
    return m_texts[*known].name.text.data();
  wanted.text = m_memory.copy(wanted.text);
  m_texts.add({wanted});
  return wanted.text.data();
}

}  // namespace kivo_3_3
