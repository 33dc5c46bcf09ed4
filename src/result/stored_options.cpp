#include "result/stored_options.h"

#include <algorithm>
#include <utility>

#include "recognizers/argument_parser.h"

namespace kivo_3_3 {

void StoredOptions::store(const Names& names, const OptionData& occurrence, std::uint64_t option) {
  if (option == 0 || option != m_last.option || names.size() != m_last.names) {
    if (lookUp(names)) {
      m_last = {option, names.size(), storeFirst(m_numbers, occurrence)};
      return;
    }
    m_last = {option, names.size(), isAlone(m_numbers) ? m_names[m_numbers[0]].data : none};
  }
  if (m_last.data != none) {
    m_data[m_last.data].makeRoomFor(occurrence, m_memory);
    m_data[m_last.data].append(occurrence);
    return;
  }
  // An option that the result knows, if only by its default, adds to what stands under its
  // names; any other takes them over.
  m_last = {};
  if (isGiven(m_numbers[0]) || findDefault(names[0]))
    storeApart(m_numbers, occurrence);
  else
    storeFirst(m_numbers, occurrence);
}

// Finds the numbers of the names. Whether all are met for the first time, and differ.
bool StoredOptions::lookUp(const Names& names) {
  const std::size_t before = m_names.entries().size();
  m_numbers.clear();
  for (const HashedName& name : names)
    m_numbers.push_back(numberOf(name));
  return !names.empty() && m_names.entries().size() - before == names.size();
}

// Whether these names were stored under together, in this order, and share their data with
// no other.
bool StoredOptions::isAlone(const Numbers& names) const {
  const Number data = m_names[names.at(0)].data;
  if (data == none || !m_names[names[0]].isFirst)
    return false;
  Number expected = names[0];
  for (const Number name : names) {
    if (name != expected || m_names[name].data != data)
      return false;
    expected = m_names[name].next;
  }
  return expected == none;
}

// For an option that the result does not know, in the place of what another option may have
// stored under one of the names. Whatever may fail for want of memory comes first.
StoredOptions::Number StoredOptions::storeFirst(const Numbers& names,
                                                const OptionData& occurrence) {
  if (m_data.empty())
    m_data.reserve(expectedOptions);
  const auto data = static_cast<Number>(m_data.size());
  GivenOption& added = m_data.emplace_back();
  added.makeRoomFor(occurrence, m_memory);
  added.append(occurrence);
  Number next = none;
  for (auto number = names.rbegin(); number != names.rend(); ++number) {
    Name& name = m_names[*number];
    name.data = data;
    name.next = next;
    name.isFirst = number + 1 == names.rend();
    next = *number;
  }
  return data;
}

// Under names that do not share their data, or not with each other alone: each gets data of
// its own, which no reader can tell. Whatever may fail for want of memory comes first.
void StoredOptions::storeApart(const Numbers& names, const OptionData& occurrence) {
  std::vector<Number> own;
  for (const Number name : names) {
    const auto before = std::find(names.begin(), names.end(), name) - names.begin();
    const auto place = static_cast<std::size_t>(before);
    own.push_back(place < own.size() ? own[place] : ownData(name));
    m_data[own.back()].makeRoomFor(occurrence, m_memory, names.size());
  }
  for (std::size_t i = 0; i < names.size(); ++i) {
    Name& name = m_names[names[i]];
    name.data = own[i];
    name.next = none;
    name.isFirst = true;
    m_data[own[i]].append(occurrence);
  }
}

// Data that no other name leads to, with what was given under this one.
StoredOptions::Number StoredOptions::ownData(Number name) {
  const Number data = m_names[name].data;
  if (data != none && !isShared(data))
    return data;
  GivenOption& own = m_data.emplace_back();
  if (data != none) {
    own.makeRoomFor(m_data[data], m_memory);
    own.append(m_data[data]);
  }
  return static_cast<Number>(m_data.size() - 1);
}

bool StoredOptions::isShared(Number data) const {
  const auto& all = m_names.entries();
  return std::count_if(all.begin(), all.end(),
                       [&](const Name& name) { return name.data == data; }) > 1;
}

StoredOptions::Number StoredOptions::numberOf(const HashedName& name) {
  return m_names.findOrAdd(name, [&] {
    HashedName kept = name;
    kept.text = m_memory.copy(name.text);
    return Name{kept, none, none, false};
  });
}

std::optional<StoredOptions::Number> StoredOptions::find(const HashedName& name) const {
  const auto number = m_names.find(name);
  return number && isGiven(*number) ? number : std::nullopt;
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
    if (name.data != none)
      all.push_back(name.name.text);
  for (const Applied& applied : m_applied)
    for (const DeclaredDefaults::Default& one : applied.defaults->all())
      all.push_back(one.name.text);
  std::sort(all.begin(), all.end());
  all.erase(std::unique(all.begin(), all.end()), all.end());
  return all;
}

}  // namespace kivo_3_3
