#include "base/garbage.h"

#include <string_view>

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
  const std::string_view wanted(text);
  const auto place = m_texts.lower_bound(wanted);
  if (place != m_texts.end() && *place == wanted)
    return place->c_str();
  return m_texts.emplace_hint(place, wanted)->c_str();
}

}  // namespace kivo_3_3
