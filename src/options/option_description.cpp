#include "options/option_description.h"

#include <algorithm>
#include <exception>

#include "options/value_conversion.h"

namespace kivo_3_3 {

namespace {

std::string_view sortingName(const OptionDescription& option) {
  return option.m_names.empty() ? std::string_view() : option.m_names.front().text;
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
    amend([&] { addName(name); });
  ++m_changes;
  return this;
}

// Whatever may raise std::bad_alloc comes before the index is changed.
void OptionDescription::addName(std::string_view name) {
  if (m_index != nullptr)
    m_index->makeRoomFor(1);
  const HashedName& added = m_names.emplace_back(m_garbage->memory().copy(name));
  if (m_index != nullptr)
    m_index->add(added, m_number, m_type == stratum2::vtBool);
}

IOption* OptionDescription::allowValue(const variant_t& value) {
  amend([&] {
    m_allowedValues.push_back(value);
    if (m_tokenizer == '\0')
      m_tokenizer = ',';
  });
  ++m_changes;
  return this;
}

IOption* OptionDescription::allowDeprecatedValue(const variant_t& oldValue,
                                                 const variant_t& newValue) {
  amend([&] { m_deprecatedValues.emplace(oldValue, newValue); });
  ++m_changes;
  return this;
}

IOption* OptionDescription::defaultValue(const variant_t& value) {
  m_defaultValue = value;
  m_hasDefault = true;
  ++m_changes;
  return this;
}

IOption* OptionDescription::tokenize(char separator) {
  m_tokenizer = separator;
  ++m_changes;
  return this;
}

IOption* OptionDescription::positional() {
  m_positional = true;
  ++m_changes;
  return this;
}

IOption* OptionDescription::tag(const char* tags) {
  amend([&] { addTags(tags); });
  ++m_changes;
  return this;
}

// Texts are kept for tags that are new. Whatever may fail for want of memory comes first.
void OptionDescription::addTags(const char* tags) {
  if (tags == nullptr)
    return;
  Texts added;
  split(tags, added);
  const auto isKnown = [&](std::string_view tag) {
    return std::binary_search(m_tags.begin(), m_tags.end(), tag);
  };
  added.erase(std::remove_if(added.begin(), added.end(), isKnown), added.end());
  for (std::string_view& text : added)
    text = m_garbage->memory().copy(text);
  m_tags.insert(m_tags.end(), added.begin(), added.end());
  std::sort(m_tags.begin(), m_tags.end());
  m_tags.erase(std::unique(m_tags.begin(), m_tags.end()), m_tags.end());
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
