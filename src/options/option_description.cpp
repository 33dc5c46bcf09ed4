#include "options/option_description.h"

#include <exception>

#include "options/name_list.h"
#include "options/value_conversion.h"

namespace kivo_3_3 {

namespace {

const std::string& sortingName(const OptionDescription& option) {
  static const std::string none;
  return option.m_names.empty() ? none : option.m_names.front();
}

// Runs a change that is made as a whole or, when memory runs out, not at all.
template <class Change>
void amend(Change change) {
  try {
    change();
  } catch (const std::exception&) {
    // The interface has no way to tell; its comment says what becomes of it.
  }
}

}  // namespace

IOption::~IOption() = default;

IOption* OptionDescription::synonym(const char* name) {
  if (name != nullptr)
    amend([&] { m_names.emplace_back(name); });
  return this;
}

IOption* OptionDescription::allowValue(const variant_t& value) {
  amend([&] {
    m_allowedValues.push_back(value);
    if (m_tokenizer == '\0')
      m_tokenizer = ',';
  });
  return this;
}

IOption* OptionDescription::allowDeprecatedValue(const variant_t& oldValue,
                                                 const variant_t& newValue) {
  amend([&] { m_deprecatedValues.emplace(oldValue, newValue); });
  return this;
}

IOption* OptionDescription::defaultValue(const variant_t& value) {
  m_defaultValue = value;
  m_hasDefault = true;
  return this;
}

IOption* OptionDescription::tokenize(char separator) {
  m_tokenizer = separator;
  return this;
}

IOption* OptionDescription::positional() {
  m_positional = true;
  return this;
}

IOption* OptionDescription::tag(const char* tags) {
  amend([&] { addTags(tags); });
  return this;
}

void OptionDescription::addTags(const char* tags) {
  if (tags == nullptr)
    return;
  std::vector<std::string> words;
  split(tags, words);
  std::set<std::string> added(words.begin(), words.end());
  m_tags.merge(added);
}

std::string OptionDescription::getDefaultValueAsText() const {
  const char* text = toString(m_garbage, m_defaultValue);
  return text != nullptr ? text : "";
}

const char* OptionDescription::toString(Garbage* garbage, const variant_t& value) const {
  return valueToText(m_type, value, *garbage);
}

variant_t OptionDescription::fromString(const char* text, Garbage*) const {
  return textToValue(m_type, text);
}

std::string OptionDescription::getTypeName() const { return typeName(m_type); }

bool OptionDescription::operator<(const OptionDescription& other) const {
  return sortingName(*this) < sortingName(other);
}

}  // namespace kivo_3_3
