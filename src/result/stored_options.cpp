#include "result/stored_options.h"

#include <algorithm>
#include <utility>

#include "recognizers/argument_parser.h"

namespace kivo_3_3 {

void StoredOptions::store(const Names& names, const OptionData& occurrence, std::uint64_t option) {
  const std::size_t count = names.size();
  const bool isRepeated = option != 0 && option == m_last.option && count == m_last.names;
  Group* const group = isRepeated ? m_last.group : groupFor(names);
  m_last = {};
  if (group == nullptr) {
    storeApart(names, occurrence);
    return;
  }
  // Behind this, nothing fails for want of memory.
  group->given.makeRoomFor(occurrence, m_memory);
  group->given.append(occurrence);
  for (Number i = 0; i < count; ++i)
    m_names[group->firstName + i].group = group;
  m_last = {option, count, group};
}

// What these names lead to and no other does, or are to lead to, where each of them is met for
// the first time; null where there is no such.
StoredOptions::Group* StoredOptions::groupFor(const Names& names) {
  const auto count = static_cast<Number>(names.size());
  const auto first = static_cast<Number>(m_names.entries().size());
  for (const HashedName& name : names)
    m_names.findOrAdd(name, [&] { return Name{name, nullptr}; });
  if (count == 0 || m_names.entries().size() != first + count)
    return knownGroup(names);
  Group& added = m_groups.emplace_front();
  added.firstName = first;
  added.names = count;
  return &added;
}

StoredOptions::Group* StoredOptions::knownGroup(const Names& names) {
  const Name* const first = m_names.find(names.at(0));
  Group* const group = first->group;
  if (group == nullptr || group->firstName != m_names.numberOf(*first) ||
      group->names != names.size())
    return nullptr;
  for (std::size_t i = 1; i < names.size(); ++i)
    if (first[i].group != group || !(first[i].name == names[i]))
      return nullptr;
  return group;
}

// For names that do not share their data, or not with each other alone: each gets data of
// its own, which no reader can tell. An option that the result knows, if only by its default,
// adds to what stands under its names; any other takes them over.
// Whatever may fail for want of memory comes first.
void StoredOptions::storeApart(const Names& names, const OptionData& occurrence) {
  const bool isKnown = find(names[0]) || findDefault(names[0]);
  std::vector<std::pair<Number, Group*>> own;
  for (const HashedName& name : names) {
    const Name& place = *m_names.find(name);
    const Number number = m_names.numberOf(place);
    const auto same = std::find_if(own.begin(), own.end(),
                                   [&](const auto& before) { return before.first == number; });
    Group* const group = same != own.end() ? same->second
                         : isKnown         ? &ownCopy(place)
                                           : &m_groups.emplace_front();
    group->given.makeRoomFor(occurrence, m_memory, names.size());
    own.emplace_back(number, group);
  }
  for (const auto& [number, group] : own) {
    if (isKnown || m_names[number].group != group)
      group->given.append(occurrence);
    m_names[number].group = group;
    group->firstName = number;
    group->names = 1;
  }
}

// A group that no other name leads to, with what was given under this one.
StoredOptions::Group& StoredOptions::ownCopy(const Name& name) {
  if (name.group != nullptr && !isShared(name.group))
    return *name.group;
  Group& own = m_groups.emplace_front();
  if (name.group != nullptr) {
    own.given.makeRoomFor(name.group->given, m_memory);
    own.given.append(name.group->given);
  }
  return own;
}

bool StoredOptions::isShared(const Group* group) const {
  const auto& all = m_names.entries();
  return std::count_if(all.begin(), all.end(),
                       [&](const Name& name) { return name.group == group; }) > 1;
}

void StoredOptions::apply(std::shared_ptr<const DeclaredDefaults> defaults) {
  if (m_applied.empty() || m_applied.back().defaults != defaults)
    makeLatest(std::move(defaults));
  Applied& latest = m_applied.back();
  latest.firstPosition = IArgumentParser::m_idx;
  for (std::uint32_t drawn = 0; drawn < latest.defaults->count(); ++drawn)
    IArgumentParser::getNewPositionIndex();
}

// Where others have to go, there is room for these; where none has, nothing has changed yet
// when memory runs out.
void StoredOptions::makeLatest(std::shared_ptr<const DeclaredDefaults> defaults) {
  m_outdated.reserve(m_outdated.size() + m_applied.size());
  const auto isOutdated = [&](const Applied& applied) {
    const bool isSame = applied.defaults == defaults;
    if (!isSame && !defaults->hasAllOf(*applied.defaults))
      return false;
    if (!isSame)
      m_outdated.push_back(applied.defaults);
    return true;
  };
  m_applied.erase(std::remove_if(m_applied.begin(), m_applied.end(), isOutdated), m_applied.end());
  m_applied.push_back({std::move(defaults), 0});
}

std::optional<StoredOptions::Default> StoredOptions::findDefault(const HashedName& name) const {
  for (auto applied = m_applied.rbegin(); applied != m_applied.rend(); ++applied) {
    const DeclaredDefaults::Default* const found = applied->defaults->find(name);
    if (found == nullptr)
      continue;
    const unsigned int position = static_cast<unsigned int>(applied->firstPosition) + found->place;
    return Default{found->name, found->text, &found->value, static_cast<int>(position)};
  }
  return std::nullopt;
}

Texts StoredOptions::names() const {
  Texts all;
  for (const Name& name : m_names.entries())
    if (name.group != nullptr)
      all.push_back(name.name.text);
  for (const Applied& applied : m_applied)
    for (const DeclaredDefaults::Default& one : applied.defaults->all())
      all.push_back(one.name.text);
  std::sort(all.begin(), all.end());
  all.erase(std::unique(all.begin(), all.end()), all.end());
  return all;
}

}  // namespace kivo_3_3
