#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "options/option_description.h"

namespace kivo_3_3::testing {

// Owns the texts of options in tests that have no Garbage of their own.
inline Garbage& commonGarbage() {
  static Garbage garbage;
  return garbage;
}

// An option without a registry.
inline OptionDescription makeOption(const std::vector<std::string>& names, variant_type_t type,
                                    Garbage* garbage = &commonGarbage()) {
  OptionDescription option;
  option.m_type = type;
  option.m_garbage = garbage;
  for (const std::string& name : names)
    option.m_names.emplace_back(garbage->memory().copy(name));
  return option;
}

// Renders texts as "[a][b]".
template <class Texts>
std::string listed(const Texts& texts) {
  std::string all;
  for (const std::string_view text : texts)
    all.append("[").append(text).append("]");
  return all;
}

}  // namespace kivo_3_3::testing
