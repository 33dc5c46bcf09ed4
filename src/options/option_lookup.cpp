// Finds options by walking a list of descriptions. Only the installed interface and tests need it;
// the parser uses NameIndex, which must give the same answers.

#include <kivo/option_lookup.h>

#include <algorithm>

#include "options/negation.h"
#include "options/option_description.h"

namespace kivo_3_3 {

namespace {

bool answersTo(const OptionDescription& option, const std::string& text) {
  const bool isNegation = option.m_type == vtBool && isNegated(text);
  for (const HashedName& name : option.m_names)
    if (name.text == text || (isNegation && withoutNegation(text) == name.text))
      return true;
  return false;
}

}  // namespace

result_t findOption(const std::string& name, unsigned int& index,
                    const std::vector<OptionDescription>& options) {
  const auto option = std::find_if(options.begin(), options.end(), [&](const auto& candidate) {
    return answersTo(candidate, name);
  });
  if (option == options.end())
    return notFound;
  index = static_cast<unsigned int>(option - options.begin());
  return found;
}

result_t findOption(const std::vector<std::string>& names, unsigned int& index,
                    const std::vector<OptionDescription>& options) {
  for (const std::string& name : names)
    if (findOption(name, index, options) == found)
      return found;
  return notFound;
}

}  // namespace kivo_3_3
