#pragma once

#include <string>
#include <vector>

#include "options/option_description.h"

namespace kivo_3_3::testing {

// An option without a registry.
inline OptionDescription makeOption(std::vector<std::string> names, variant_type_t type,
                                    Garbage* garbage = nullptr) {
  OptionDescription option;
  option.m_names = std::move(names);
  option.m_type = type;
  option.m_garbage = garbage;
  return option;
}

// "[a][b]"
template <class Texts>
std::string listed(const Texts& texts) {
  std::string all;
  for (const std::string& text : texts)
    all += "[" + text + "]";
  return all;
}

}  // namespace kivo_3_3::testing
