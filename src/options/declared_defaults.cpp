#include "options/declared_defaults.h"

#include <algorithm>
#include <string>

#include "options/value_conversion.h"

namespace kivo_3_3 {

void DeclaredDefaults::add(const OptionDescription& option) {
  if (m_isOutOfRange || !option.m_hasDefault || option.m_defaultValue.type() == vtNull)
    return;
  m_isOutOfRange = option.m_names.empty();
  std::string text;
  appendValue(option.m_type, option.m_defaultValue, text);
  const char* const kept = m_memory.copy(text).data();
  for (const HashedName& name : option.m_names)
    add({name, kept, option.m_defaultValue, m_count++});
}

void DeclaredDefaults::add(const Default& added) {
  m_defaults.findOrAdd(added.name, [&] { return added; }) = added;
}

bool DeclaredDefaults::hasAllOf(const DeclaredDefaults& others) const {
  return std::all_of(others.all().begin(), others.all().end(),
                     [&](const Default& other) { return m_defaults.find(other.name) != nullptr; });
}

const DeclaredDefaults::Default* DeclaredDefaults::find(const HashedName& name) const {
  return m_defaults.find(name);
}

}  // namespace kivo_3_3
