#include "options/declaration_index.h"

#include <algorithm>
#include <functional>

namespace kivo_3_3 {

namespace {

constexpr std::string_view negation = "no-";
constexpr std::size_t fewestSlots = 16;

bool beginsWith(std::string_view text, std::string_view prefix) {
  return text.substr(0, prefix.size()) == prefix;
}

std::size_t hashOf(std::string_view name) { return std::hash<std::string_view>()(name); }

}  // namespace

std::optional<unsigned int> DeclarationIndex::find(std::string_view name, const Options& options) {
  catchUp(options);
  const auto named = firstWith(name, options, [](Entry) { return true; });
  if (!beginsWith(name, negation))
    return named;
  const auto negated = firstWith(name.substr(negation.size()), options,
                                 [&](Entry entry) { return isBoolean(entry, options); });
  if (named && negated)
    return std::min(*named, *negated);
  return named ? named : negated;
}

DeclarationIndex::Match DeclarationIndex::findBest(const std::string& typed,
                                                   const Options& options) {
  if (const auto exact = find(typed, options))
    return {Match::unique, *exact, typed};

  std::vector<std::string> matches;
  const auto collect = [&](Names& names, std::string_view ahead, std::string_view prefix) {
    auto [entry, last] = names.beginningWith(prefix, options);
    for (; entry != last && matches.size() < 2; ++entry)
      matches.push_back(std::string(ahead) + nameOf(*entry, options));
  };
  collect(m_names, "", typed);
  if (beginsWith(typed, negation))
    collect(m_booleans, negation, std::string_view(typed).substr(negation.size()));
  else if (beginsWith(negation, typed))
    collect(m_booleans, negation, "");

  if (matches.empty())
    return {};
  if (matches.size() > 1)
    return {Match::ambiguous, 0, {}};
  return {Match::unique, *find(matches.front(), options), matches.front()};
}

std::optional<unsigned int> DeclarationIndex::findPositional(const Options& options) {
  catchUp(options);
  if (!m_positional && !options.empty() && options.back().m_positional)
    return static_cast<unsigned int>(options.size() - 1);
  return m_positional;
}

void DeclarationIndex::catchUp(const Options& options) {
  while (m_next.option < options.size()) {
    const std::size_t names = options[m_next.option].m_names.size();
    for (; m_next.name < names; ++m_next.name)
      add(m_next, options);
    if (m_next.option + 1 == options.size())
      return;  // its builder may still change it
    settle(m_next.option, options);
    m_next = {m_next.option + 1, 0};
  }
}

void DeclarationIndex::settle(std::uint32_t option, const Options& options) {
  if (options[option].m_hasDefault)
    m_withDefault.push_back(option);
  if (!m_positional && options[option].m_positional)
    m_positional = option;
}

// Whatever may fail for want of memory comes first.
void DeclarationIndex::add(Entry entry, const Options& options) {
  if ((m_names.entries.size() + 1) * 2 > m_slots.size())
    grow();
  m_names.makeRoom();
  m_booleans.makeRoom();
  m_names.add(entry);
  if (isBoolean(entry, options))
    m_booleans.add(entry);
  const std::size_t hash = hashOf(nameOf(entry, options));
  freeSlot(m_slots, hash) = {hash, entry};
}

void DeclarationIndex::grow() {
  std::vector<Slot> wider(std::max(fewestSlots, m_slots.size() * 2));
  for (const Slot& slot : m_slots)
    if (slot.entry)
      freeSlot(wider, slot.hash) = slot;
  m_slots = std::move(wider);
}

DeclarationIndex::Slot& DeclarationIndex::freeSlot(std::vector<Slot>& slots,
                                                   std::size_t hash) const {
  std::size_t place = hash & (slots.size() - 1);
  while (slots[place].entry)
    place = (place + 1) & (slots.size() - 1);
  return slots[place];
}

const std::string& DeclarationIndex::nameOf(Entry entry, const Options& options) {
  return options[entry.option].m_names[entry.name];
}

bool DeclarationIndex::isBoolean(Entry entry, const Options& options) {
  return options[entry.option].m_type == vtBool;
}

// Two options may have one name, when a builder added it to the second: all that have
// it are looked at, and the first declared one counts.
template <class Accept>
std::optional<unsigned int> DeclarationIndex::firstWith(std::string_view name,
                                                        const Options& options,
                                                        Accept accept) const {
  std::optional<unsigned int> first;
  if (m_slots.empty())
    return first;
  const std::size_t hash = hashOf(name);
  for (std::size_t place = hash & (m_slots.size() - 1); m_slots[place].entry;
       place = (place + 1) & (m_slots.size() - 1)) {
    const Slot& slot = m_slots[place];
    const bool earlier = !first || slot.entry->option < *first;
    if (slot.hash == hash && earlier && accept(*slot.entry) && nameOf(*slot.entry, options) == name)
      first = slot.entry->option;
  }
  return first;
}

void DeclarationIndex::Names::makeRoom() {
  if (entries.size() == entries.capacity())
    entries.reserve(entries.size() * 2 + 1);
}

void DeclarationIndex::Names::add(Entry entry) {
  entries.push_back(entry);
  sorted = false;
}

std::pair<DeclarationIndex::Entries, DeclarationIndex::Entries>
DeclarationIndex::Names::beginningWith(std::string_view prefix, const Options& options) {
  if (!sorted) {
    std::sort(entries.begin(), entries.end(), [&](Entry left, Entry right) {
      return nameOf(left, options) < nameOf(right, options);
    });
    sorted = true;
  }
  const auto cut = [&](Entry entry) {
    return std::string_view(nameOf(entry, options)).substr(0, prefix.size());
  };
  const auto first =
      std::lower_bound(entries.cbegin(), entries.cend(), prefix,
                       [&](Entry entry, std::string_view wanted) { return cut(entry) < wanted; });
  const auto last =
      std::upper_bound(first, entries.cend(), prefix,
                       [&](std::string_view wanted, Entry entry) { return wanted < cut(entry); });
  return {first, last};
}

}  // namespace kivo_3_3
