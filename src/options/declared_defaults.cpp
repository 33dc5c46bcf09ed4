// A default is converted to text once and stored under every name of its option.

#include "options/declared_defaults.h"

#include <algorithm>
#include <string>

#include "options/value_conversion.h"

namespace kivo_3_3 {

bool DeclaredDefaults::isTimeless(const OptionDescription& option) {
  return !option.m_names.empty() && option.m_defaultValue.type() != stratum2::vtStringReference &&
         canBecomeText(option.m_type, option.m_defaultValue);
}

void DeclaredDefaults::add(const OptionDescription& option) {
  std::string text;
  appendClassicValue(option.m_type, option.m_defaultValue, text);
  const char* const kept = m_memory.copy(text).data();
  for (const HashedName& name : option.m_names)
    put({name, kept, option.m_defaultValue, m_count++});
}

void DeclaredDefaults::set(const Default& one) {
  put({one.name, m_memory.copy(one.text).data(), one.value, one.place});
}

void DeclaredDefaults::put(const Default& one) {
  m_defaults.findOrAdd(one.name, [&] { return one; }) = one;
}

bool DeclaredDefaults::hasAllOf(const DeclaredDefaults& others) const {
  return std::all_of(others.all().begin(), others.all().end(),
                     [&](const Default& other) { return m_defaults.find(other.name) != nullptr; });
}

const DeclaredDefaults::Default* DeclaredDefaults::find(const HashedName& name) const {
  return m_defaults.find(name);
}

}  // namespace kivo_3_3
