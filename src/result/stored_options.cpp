// The common case comes first: all names of an option share a record, and one append serves them
// all.

#include "result/stored_options.h"

#include <algorithm>
#include <utility>

namespace kivo_3_3 {

namespace {

// To be called before values are stored in several lists, so that the copies share the characters
// of a value that is a text.
template <class Occurrences>
void makeAllOwning(Occurrences& stored) {
  for (std::size_t place = 0; place < stored.values.size(); ++place)
    makeOwning(stored.values[place].value);
}

}  // namespace

void StoredOptions::store(const Names& names, const OptionData& occurrence, std::uint64_t option) {
  const bool isRepeated = option != 0 && option == m_last.option && names.size() == m_last.names;
  Record* const record = isRepeated ? m_last.record : recordFor(names);
  m_last = {};
  if (record == nullptr) {
    storeApart(names, occurrence);
    return;
  }
  // The last step that may raise std::bad_alloc.
  record->given.makeRoomFor(occurrence, m_memory);
  record->given.append(occurrence);
  if (record->names == 0)
    share(*record, names.size());
  m_last = {option, names.size(), record};
}

// The record that exactly these names share, if each of them occurs once; a new record if all names
// are new, which share() then assigns to them; null otherwise. Adds new names to the table.
StoredOptions::Record* StoredOptions::recordFor(const Names& names) {
  const std::size_t before = m_names.entries().size();
  for (const HashedName& name : names)
    m_names.findOrAdd(name, [&] { return Name{name}; });
  const std::size_t added = m_names.entries().size() - before;
  if (added != 0 && added == names.size())
    return &m_records.emplace_front();
  lookUp(names);
  Record* const common = m_names[m_storing.at(0)].record;
  const auto hasCommon = [&](Number number) { return m_names[number].record == common; };
  const bool areAlone = common != nullptr && common->names == names.size() &&
                        std::all_of(m_storing.begin(), m_storing.end(), hasCommon) &&
                        std::adjacent_find(m_storing.begin(), m_storing.end()) == m_storing.end();
  return areAlone ? common : nullptr;
}

// Assigns this record to the last `count` names in the table.
void StoredOptions::share(Record& record, std::size_t count) {
  const std::size_t end = m_names.entries().size();
  for (std::size_t number = end - count; number < end; ++number)
    m_names[static_cast<Number>(number)].record = &record;
  record.names = static_cast<Number>(count);
}

// Sets `m_storing` to the sorted numbers of these names, which must be in the table.
void StoredOptions::lookUp(const Names& names) {
  m_storing.clear();
  for (const HashedName& name : names)
    m_storing.push_back(m_names.numberOf(*m_names.find(name)));
  std::make_heap(m_storing.begin(), m_storing.end());
  std::sort_heap(m_storing.begin(), m_storing.end());
}

// Assigns this record to the name.
void StoredOptions::lead(Name& name, Record& record) {
  if (name.record == &record)
    return;
  if (name.record != nullptr)
    --name.record->names;
  name.record = &record;
  ++record.names;
}

// For names that do not share a record, or share it with other names. If the result knows the first
// name, even if only by a default, the occurrence is added to the records of all names; otherwise
// it replaces them. A name that is listed n times gets the occurrence n times.
void StoredOptions::storeApart(const Names& names, const OptionData& occurrence) {
  OptionData shared = occurrence;
  makeAllOwning(shared);
  if (!knows(names[0])) {
    replace(shared);
    return;
  }
  for (auto same = m_storing.begin(); same != m_storing.end();) {
    const auto end = std::upper_bound(same, m_storing.end(), *same);
    Name& name = m_names[*same];
    separate(name);
    name.record->given.makeRoomFor(shared, m_memory, static_cast<std::size_t>(end - same));
    same = end;
  }
  for (const Number number : m_storing)
    m_names[number].record->given.append(shared);
}

// Assigns a new record with only this occurrence to the names in `m_storing`.
void StoredOptions::replace(const OptionData& occurrence) {
  Record& record = m_records.emplace_front();
  record.given.makeRoomFor(occurrence, m_memory);
  record.given.append(occurrence);
  for (const Number number : m_storing)
    lead(m_names[number], record);
}

// Gives the name a record of its own, with a copy of what was given under it.
void StoredOptions::separate(Name& name) {
  if (name.record != nullptr && name.record->names == 1)
    return;
  Record& own = m_records.emplace_front();
  if (name.record != nullptr) {
    makeAllOwning(name.record->given);
    own.given.makeRoomFor(name.record->given, m_memory);
    own.given.append(name.record->given);
  }
  lead(name, own);
}

void StoredOptions::apply(std::shared_ptr<const DeclaredDefaults> defaults, int first) {
  if (!m_applied.empty() && m_applied.back().defaults == defaults) {
    m_applied.back().first = first;
    return;
  }
  if (!m_applied.empty())
    dropOutdated(defaults.get());
  m_applied.push_back({std::move(defaults), first});
}

// Drops `replaced`, which apply() adds again, and all defaults whose names all have a default among
// those applied last. The defaults applied last may have been incomplete when apply() received
// them, so the comparison is made only now. If anything is dropped, apply() needs no memory to add
// the new defaults; so if memory runs out there, nothing has changed.
void StoredOptions::dropOutdated(const DeclaredDefaults* replaced) {
  const std::shared_ptr<const DeclaredDefaults> latest = m_applied.back().defaults;
  const auto isOutdated = [&](const Applied& applied) {
    return applied.defaults.get() == replaced ||
           (applied.defaults != latest && latest->hasAllOf(*applied.defaults));
  };
  m_applied.erase(std::remove_if(m_applied.begin(), m_applied.end(), isOutdated), m_applied.end());
}

std::optional<StoredOptions::Default> StoredOptions::findDefault(const HashedName& name) const {
  for (auto applied = m_applied.rbegin(); applied != m_applied.rend(); ++applied) {
    const DeclaredDefaults::Default* const found = applied->defaults->find(name);
    if (found == nullptr)
      continue;
    const unsigned int position = static_cast<unsigned int>(applied->first) + found->place;
    return Default{found->name, found->text, &found->value, static_cast<int>(position)};
  }
  return std::nullopt;
}

Texts StoredOptions::names() const {
  Texts all;
  for (const Name& name : m_names.entries())
    if (name.record != nullptr && !name.record->isEmpty())
      all.push_back(name.name.text);
  for (const Applied& applied : m_applied)
    for (const DeclaredDefaults::Default& one : applied.defaults->all())
      all.push_back(one.name.text);
  std::sort(all.begin(), all.end());
  all.erase(std::unique(all.begin(), all.end()), all.end());
  return all;
}

}  // namespace kivo_3_3
