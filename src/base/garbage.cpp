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
  const HashedName wanted(text);
  const std::uint32_t number = m_texts.findOrAdd(wanted, [&] {
    HashedName kept = wanted;
    kept.text = m_memory.copy(wanted.text);
    return Text{kept};
  });
  return m_texts[number].name.text.data();
}

}  // namespace kivo_3_3
