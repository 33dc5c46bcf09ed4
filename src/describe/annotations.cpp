// Implements the annotations.

#include "describe/annotations.h"

#include "describe/json_writer.h"

namespace kivo_3_3 {

namespace {

// Without memory for the text, no key without texts may stay.
void add(Annotations::Texts& texts, std::string_view key, std::string_view text) {
  std::vector<std::string> added = {std::string(text)};
  const auto [known, isNew] = texts.try_emplace(asUtf8(key));
  if (isNew)
    known->second.swap(added);
  else
    known->second.push_back(std::move(added.front()));
}

}  // namespace

void Annotations::addToTool(std::string_view key, std::string_view text) { add(m_tool, key, text); }

void Annotations::addToOption(unsigned int option, std::string_view key, std::string_view text) {
  add(m_options[option], key, text);
}

const Annotations::Texts& Annotations::ofOption(unsigned int option) const {
  static const Texts none;
  const auto found = m_options.find(option);
  return found != m_options.end() ? found->second : none;
}

}  // namespace kivo_3_3
