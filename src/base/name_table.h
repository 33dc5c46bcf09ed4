#pragma once

#include <algorithm>
#include <cstdint>
#include <optional>
#include <utility>
#include <vector>

#include "base/hashed_name.h"
#include "base/owned_memory.h"

namespace kivo_3_3 {

// Entries that are found by name. Each has a number, from 0 on in the order in which they
// are added, and a member `name`, a HashedName whose text must stay where it is.
template <class Entry>
class NameTable {
 public:
  using Entries = std::vector<Entry, OwnedAllocator<Entry>>;

  // So many entries are expected, a power of two, once there is one.
  explicit NameTable(OwnedMemory* memory, std::size_t expected = 16)
      : m_entries(memory), m_slots(memory), m_expected(expected) {}

  const Entries& entries() const { return m_entries; }
  Entry& operator[](std::uint32_t number) { return m_entries[number]; }
  const Entry& operator[](std::uint32_t number) const { return m_entries[number]; }

  // Of the entries with this name, the one added first, and first of those that
  // `isMeant` accepts.
  std::optional<std::uint32_t> find(const HashedName& name) const {
    return find(name, [](const Entry&) { return true; });
  }
  template <class IsMeant>
  std::optional<std::uint32_t> find(const HashedName& name, IsMeant isMeant) const;

  // Returns the number of the entry. When memory runs out, nothing has changed.
  std::uint32_t add(Entry entry);

  // The number of the entry with this name; where there is none, of that which `make` returns,
  // and which is added. When memory runs out, nothing has changed.
  template <class Make>
  std::uint32_t findOrAdd(const HashedName& name, Make make);

 private:
  // Open addressing: an entry stands in the first free place from that of its hash on.
  struct Slot {
    std::uint32_t hash = 0;
    std::uint32_t number = noEntry;
  };
  using Slots = std::vector<Slot, OwnedAllocator<Slot>>;

  static constexpr std::uint32_t noEntry = 0xFFFFFFFF;

  // The place of the name, or the free one that it would take.
  std::size_t placeOf(const HashedName& name) const;
  static void put(Slot slot, Slots& slots);
  bool hasRoom() const { return m_entries.size() * 2 < m_slots.size(); }
  void makeRoom();

  Entries m_entries;
  Slots m_slots;  // none without entries, else a power of two and at most half full
  std::size_t m_expected;
};

template <class Entry>
template <class IsMeant>
std::optional<std::uint32_t> NameTable<Entry>::find(const HashedName& name, IsMeant isMeant) const {
  if (m_slots.empty())
    return std::nullopt;
  const std::size_t last = m_slots.size() - 1;
  for (std::size_t place = name.hash & last; m_slots[place].number != noEntry;
       place = (place + 1) & last) {
    if (m_slots[place].hash != name.hash)
      continue;
    const Entry& entry = m_entries[m_slots[place].number];
    if (entry.name.text == name.text && isMeant(entry))
      return m_slots[place].number;
  }
  return std::nullopt;
}

template <class Entry>
std::uint32_t NameTable<Entry>::add(Entry entry) {
  if (!hasRoom())
    makeRoom();
  const auto number = static_cast<std::uint32_t>(m_entries.size());
  m_entries.push_back(std::move(entry));
  put({m_entries.back().name.hash, number}, m_slots);
  return number;
}

template <class Entry>
template <class Make>
std::uint32_t NameTable<Entry>::findOrAdd(const HashedName& name, Make make) {
  std::size_t place = 0;
  for (;; makeRoom()) {
    if (m_slots.empty())
      continue;
    place = placeOf(name);
    if (m_slots[place].number != noEntry)
      return m_slots[place].number;
    if (hasRoom())
      break;
  }
  const auto number = static_cast<std::uint32_t>(m_entries.size());
  m_entries.push_back(make());
  m_slots[place] = {name.hash, number};
  return number;
}

template <class Entry>
std::size_t NameTable<Entry>::placeOf(const HashedName& name) const {
  const std::size_t last = m_slots.size() - 1;
  std::size_t place = name.hash & last;
  while (m_slots[place].number != noEntry &&
         !(m_slots[place].hash == name.hash && m_entries[m_slots[place].number].name == name))
    place = (place + 1) & last;
  return place;
}

template <class Entry>
void NameTable<Entry>::put(Slot slot, Slots& slots) {
  std::size_t place = slot.hash & (slots.size() - 1);
  while (slots[place].number != noEntry)
    place = (place + 1) & (slots.size() - 1);
  slots[place] = slot;
}

// Entries of one name come upon their places in their order, and so are met in it.
template <class Entry>
void NameTable<Entry>::makeRoom() {
  const std::size_t count = m_entries.size();
  const std::size_t room = std::max(m_expected, count * 2);
  m_entries.reserve(room);
  Slots wider(room * 2, m_slots.get_allocator());
  for (std::uint32_t number = 0; number < count; ++number)
    put({m_entries[number].name.hash, number}, wider);
  m_slots.swap(wider);
}

}  // namespace kivo_3_3
