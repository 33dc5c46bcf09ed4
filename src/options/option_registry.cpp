// The order of the steps in a declaration makes it all or nothing: the names become visible to
// parses only after everything that may raise std::bad_alloc.

#include "options/option_registry.h"

#include <algorithm>
#include <atomic>
#include <exception>
#include <utility>

#include "base/trace.h"
#include "options/name_list.h"

namespace kivo_3_3 {

namespace {

// The registries of the process. A counter of 64 bits would need a library of its own on some
// processors.
std::atomic<std::uint32_t> registryCount = 0;

// The numbers up to the identity of the next registry are the identities of this one's options.
std::uint64_t nextIdentity() { return std::uint64_t{++registryCount} << 32; }

const char* orEmpty(const char* text) { return text != nullptr ? text : ""; }

}  // namespace

RegisteredOptionStorage::RegisteredOptionStorage(Garbage* garbage)
    : m_garbage(garbage),
      m_options(&garbage->memory()),
      m_groups(&garbage->memory()),
      m_names(&garbage->memory()),
      m_summary(m_options, &garbage->memory()),
      m_identity(nextIdentity()) {
  m_fallback.m_garbage = garbage;
}

IOption* RegisteredOptionStorage::option(const char* names, const char* tags,
                                         const char* description, bool isAction,
                                         variant_type_t type, const char* group) {
  try {
    return declare(names, tags, description, isAction, type, group);
  } catch (const std::exception&) {
    return reject();
  }
}

// A rejected declaration creates its help section; a declaration for which memory runs out does
// not, so groupFor() comes after the steps that may fail.
IOption* RegisteredOptionStorage::declare(const char* names, const char* tags,
                                          const char* description, bool isAction,
                                          variant_type_t type, const char* group) {
  m_fallback.m_status = OptionDescription::underDeclaration;
  Names wanted(&m_garbage->memory());
  split(orEmpty(names), wanted);
  const bool isValid = validateName(wanted) == 0;
  if (!isValid || isTaken(wanted)) {
    // Spelled like this since 3.0; tools depend on it.
    if (isValid)
      internal::traceLine("Tried to register an option with a name, which is alread registered: ",
                          orEmpty(names));
    groupFor(orEmpty(group));
    return reject();
  }
  OptionDescription& declared = append(std::move(wanted));
  try {
    declared.m_notAnAction = isAction ? 0 : 1;
    declared.m_type = type;
    fill(declared, isAction ? names : nullptr, tags, description, group);
  } catch (...) {
    m_options.pop_back();
    throw;
  }
  for (const HashedName& name : declared.m_names)
    m_names.add(name, declared.m_number, type == stratum2::vtBool);
  return &declared;
}

// Makes room for the names in the index, then adds a description that has them.
OptionDescription& RegisteredOptionStorage::append(Names names) {
  m_names.makeRoomFor(names.size());
  OptionDescription& added = m_options.emplace_back(&m_garbage->memory());
  added.m_names = std::move(names);
  added.m_tokenizer = m_tokenizer;
  added.m_garbage = m_garbage;
  added.m_identity = m_identity + m_options.size();
  added.m_index = &m_names;
  added.m_number = static_cast<std::uint32_t>(m_options.size() - 1);
  return added;
}

// Copies the caller's texts to the arena and lets the description refer to the copies.
void RegisteredOptionStorage::fill(OptionDescription& declared, const char* actionNames,
                                   const char* tags, const char* description, const char* group) {
  OwnedMemory& memory = m_garbage->memory();
  for (HashedName& name : declared.m_names)
    name.text = memory.copy(name.text);
  declared.m_description = memory.copy(orEmpty(description));
  declared.addTags(tags);
  declared.addTags(actionNames);
  const Group& section = groupFor(orEmpty(group));
  declared.m_groupKey = section.name.text;
  declared.m_groupTitle = section.title;
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

// The help section of "key:title", which is split at the first colon. A section keeps the title of
// its first declaration.
const RegisteredOptionStorage::Group& RegisteredOptionStorage::groupFor(std::string_view text) {
  const std::size_t colon = std::min(text.find(':'), text.size());
  const HashedName key = text.substr(0, colon);
  return m_groups.findOrAdd(key, [&] {
    OwnedMemory& memory = m_garbage->memory();
    const std::string_view title = text.substr(std::min(colon + 1, text.size()));
    return Group{memory.copy(key.text), memory.copy(title)};
  });
}

bool RegisteredOptionStorage::isTaken(const Names& names) {
  return std::any_of(names.begin(), names.end(),
                     [&](const HashedName& name) { return m_names.find(name).has_value(); });
}

IOption* RegisteredOptionStorage::reject() {
  m_fallback.m_status = OptionDescription::rejected;
  return &m_fallback;
}

}  // namespace kivo_3_3
