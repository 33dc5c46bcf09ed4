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
  const Text& kept = m_texts.findOrAdd(wanted, [&] {
    HashedName copy = wanted;
    copy.text = m_memory.copy(wanted.text);
    return Text{copy};
  });
  return kept.name.text.data();
}

}  // namespace kivo_3_3
