// Each amendment counts in m_changes, even if it had no effect: defaults that were converted before
// it are converted again.

#include "options/option_description.h"

#include <algorithm>
#include <exception>
#include <stdexcept>

#include "options/value_conversion.h"

namespace kivo_3_3 {

namespace {

std::string_view sortingName(const OptionDescription& option) {
  return option.m_names.empty() ? std::string_view() : option.m_names.front().text;
}

// Runs a change that is all or nothing: if memory runs out, nothing has changed.
template <class Change>
void amend(Change change) {
  try {
    change();
  } catch (const std::exception&) {
    // The interface cannot report this. IOption documents that the call then has no effect.
  }
}

}  // namespace

IOption::~IOption() = default;

OptionDescription::OptionDescription(const OptionDescription&) = default;

IOption* OptionDescription::synonym(const char* name) {
  if (name != nullptr)
    amend([&] { addName(name); });
  ++m_changes;
  return this;
}

// All steps that may raise std::bad_alloc come before the index is changed.
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

// Tags are sorted when they are read or fill their memory, so that a tool may add many one by one.
// Everything up to insert() may raise std::bad_alloc, and then no tag has been added.
void OptionDescription::addTags(const char* tags) {
  if (tags == nullptr)
    return;
  Texts added;
  split(tags, added);
  const auto isKnown = [&](std::string_view tag) {
    const std::string_view* const sorted = m_tags.data();
    return std::binary_search(sorted, sorted + m_sortedTags, tag);
  };
  added.erase(std::remove_if(added.begin(), added.end(), isKnown), added.end());
  for (std::string_view& text : added)
    text = m_garbage->memory().copy(text);
  if (m_tags.capacity() - m_tags.size() < added.size())
    sortTags();
  m_tags.insert(m_tags.end(), added.begin(), added.end());
}

const Texts& OptionDescription::tags() const {
  if (m_sortedTags != m_tags.size())
    sortTags();
  return m_tags;
}

void OptionDescription::throwNameless() { throw std::out_of_range("OptionDescription::firstName"); }

void OptionDescription::sortTags() const {
  std::sort(m_tags.begin(), m_tags.end());
  m_tags.erase(std::unique(m_tags.begin(), m_tags.end()), m_tags.end());
  m_sortedTags = static_cast<std::uint32_t>(m_tags.size());
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
