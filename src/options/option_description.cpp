#include "options/option_description.h"

#include "options/name_list.h"
#include "options/value_conversion.h"

namespace kivo_3_3 {

namespace {

const std::string& sortingName(const OptionDescription& option) {
  static const std::string none;
  return option.m_names.empty() ? none : option.m_names.front();
}

}  // namespace

IOption::~IOption() = default;

IOption* OptionDescription::synonym(const char* name) {
  if (name != nullptr)
    m_names.emplace_back(name);
  return this;
}

IOption* OptionDescription::allowValue(const variant_t& value) {
  if (m_tokenizer == '\0')
    m_tokenizer = ',';
  m_allowedValues.push_back(value);
  return this;
}

IOption* OptionDescription::allowDeprecatedValue(const variant_t& oldValue,
                                                 const variant_t& newValue) {
  m_deprecatedValues.emplace(oldValue, newValue);
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
  if (tags == nullptr)
    return this;
  std::vector<std::string> words;
  split(tags, words);
  m_tags.insert(words.begin(), words.end());
  return this;
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
