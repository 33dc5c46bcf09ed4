#include "options/option_registry.h"

#include <algorithm>
#include <exception>

#include "base/trace.h"
#include "options/name_list.h"

namespace kivo_3_3 {

namespace {

const char* orEmpty(const char* text) { return text != nullptr ? text : ""; }

}  // namespace

IOption* RegisteredOptionStorage::option(const char* names, const char* tags,
                                         const char* description, bool isAction,
                                         variant_type_t type, const char* group) {
  const std::size_t groupsBefore = m_groups.size();
  try {
    return declare(names, tags, description, isAction, type, group);
  } catch (const std::exception&) {
    forgetGroupsFrom(groupsBefore);
    return reject();
  }
}

IOption* RegisteredOptionStorage::declare(const char* names, const char* tags,
                                          const char* description, bool isAction,
                                          variant_type_t type, const char* group) {
  const Group& section = groupFor(orEmpty(group));
  m_fallback.m_status = OptionDescription::underDeclaration;

  OptionDescription declared;
  split(orEmpty(names), declared.m_names);
  if (validateName(declared.m_names) != 0)
    return reject();
  if (isTaken(declared.m_names)) {
    internal::traceLine([&](std::ostream& out) {
      out << "Tried to register an option with a name, which is alread registered: "
          << orEmpty(names);
    });
    return reject();
  }

  declared.m_type = type;
  declared.m_description = orEmpty(description);
  declared.m_groupKey = section.first;
  declared.m_groupTitle = section.second;
  declared.m_notAnAction = isAction ? 0 : 1;
  declared.m_garbage = m_garbage;
  declared.addTags(tags);
  if (isAction)
    declared.addTags(names);
  declared.tokenize(m_tokenizer);

  OptionDescription& kept = append(std::move(declared));
  kept.m_status = OptionDescription::stored;
  return &kept;
}

IOption* RegisteredOptionStorage::action(const char* names, const char* description,
                                         variant_type_t type, const char* group) {
  return option(names, nullptr, description, true, type, group);
}

IOption* RegisteredOptionStorage::modifier(const char* names, const char* actions,
                                           const char* description, variant_type_t type,
                                           const char* group) {
  return option(names, actions, description, false, type, group);
}

// "key:title", split at the first colon. The first title given for a key stays.
const RegisteredOptionStorage::Group& RegisteredOptionStorage::groupFor(const std::string& text) {
  const std::size_t colon = text.find(':');
  const std::string key = text.substr(0, colon);
  const auto known = m_groupOf.find(key);
  if (known != m_groupOf.end())
    return m_groups[known->second];
  m_groups.emplace_back(key, colon != std::string::npos ? text.substr(colon + 1) : "");
  m_groupOf.emplace(key, m_groups.size() - 1);
  return m_groups.back();
}

void RegisteredOptionStorage::forgetGroupsFrom(std::size_t first) {
  for (; m_groups.size() > first; m_groups.pop_back())
    m_groupOf.erase(m_groups.back().first);
}

bool RegisteredOptionStorage::isTaken(const std::vector<std::string>& names) {
  return std::any_of(names.begin(), names.end(), [&](const std::string& name) {
    return m_index.find(name, m_options).has_value();
  });
}

IOption* RegisteredOptionStorage::reject() {
  m_fallback.m_status = OptionDescription::rejected;
  return &m_fallback;
}

OptionDescription& RegisteredOptionStorage::append(OptionDescription description) {
  if (m_pins != 0 && m_options.size() == m_options.capacity()) {
    std::vector<OptionDescription> wider;
    wider.reserve(m_options.size() * 2 + 1);
    wider.insert(wider.end(), m_options.begin(), m_options.end());
    m_retired.reserve(m_retired.size() + 1);
    m_options.swap(wider);
    m_retired.push_back(std::move(wider));
  }
  m_options.push_back(std::move(description));
  return m_options.back();
}

PinnedDeclarations::PinnedDeclarations(RegisteredOptionStorage& storage) : m_storage(storage) {
  ++m_storage.m_pins;
}

PinnedDeclarations::~PinnedDeclarations() {
  if (--m_storage.m_pins == 0)
    m_storage.m_retired.clear();
}

}  // namespace kivo_3_3
