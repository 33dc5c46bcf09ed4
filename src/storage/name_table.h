#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

#include "storage/hashed_name.h"
#include "storage/owned_memory.h"

namespace kivo_3_3 {

// Entries that are found by name. Each has a number, from 0 on in the order in which they
// are added, and a member `name`, a HashedName whose text must stay where it is. Where an
// entry stands is good until another is to be added.
template <class Entry>
class NameTable {
 public:
  using Entries = std::vector<Entry, OwnedAllocator<Entry>>;

  // So many entries are expected, a power of two, once there is one.
  explicit NameTable(OwnedMemory* memory, std::size_t expected = 16)
      : m_entries(memory), m_slots(memory), m_expected(expected) {}
  NameTable(const NameTable&) = delete;
  NameTable& operator=(const NameTable&) = delete;

  const Entries& entries() const { return m_entries; }
  Entry& operator[](std::uint32_t number) { return m_entries[number]; }
  const Entry& operator[](std::uint32_t number) const { return m_entries[number]; }
  std::uint32_t numberOf(const Entry& entry) const {
    return static_cast<std::uint32_t>(&entry - m_entries.data());
  }

  // Of the entries with this name, the one added first, and first of those that
  // `isMeant` accepts; null where there is none.
  const Entry* find(const HashedName& name) const {
    return find(name, [](const Entry&) { return true; });
  }
  template <class IsMeant>
  const Entry* find(const HashedName& name, IsMeant isMeant) const;

  // When memory runs out, nothing has changed.
  Entry& add(Entry entry);

  // The entry with this name; where there is none, that which `make` returns, and which is
  // added. When memory runs out, nothing has changed.
  template <class Make>
  Entry& findOrAdd(const HashedName& name, Make make);

 private:
  // Open addressing: an entry stands in the first free place from that of its hash on, round
  // the end.
  struct Slot {
    bool isFree() const { return bits == 0; }
    std::uint32_t hash() const { return static_cast<std::uint32_t>(bits); }
    std::uint32_t number() const { return static_cast<std::uint32_t>(bits >> 32) - 1; }

    std::uint64_t bits;
  };
  using Slots = std::vector<Slot, OwnedAllocator<Slot>>;

  static std::uint32_t hashOf(const HashedName& name) {
    return static_cast<std::uint32_t>(name.hash >> 32);
  }
  // Maps a hash to its first slot by the hash's high bits.
  static std::size_t firstSlot(std::uint32_t hash, const Slots& slots) {
    return static_cast<std::size_t>((std::uint64_t{hash} * slots.size()) >> 32);
  }
  // Probes the slots from the hash's first one on. Returns the place of the first slot that has
  // this hash and that `isWanted` accepts, or of the free slot that ends the search.
  template <class IsWanted>
  static std::size_t probe(std::uint32_t hash, const Slots& slots, IsWanted isWanted);
  static Slot slotFor(std::uint32_t hash, std::size_t number) {
    return {std::uint64_t{number + 1} << 32 | hash};
  }
  static std::size_t freePlace(std::uint32_t hash, const Slots& slots) {
    return probe(hash, slots, [](const Slot&) { return false; });
  }
  Entry& put(Entry entry, std::size_t place);
  void makeRoom();

  Entries m_entries;
  Slots m_slots;           // none without entries, else a power of two and at most half full
  std::size_t m_room = 0;  // for so many more entries
  std::size_t m_expected;
};

template <class Entry>
template <class IsWanted>
std::size_t NameTable<Entry>::probe(std::uint32_t hash, const Slots& slots, IsWanted isWanted) {
  const std::size_t last = slots.size() - 1;
  std::size_t place = firstSlot(hash, slots);
  while (!slots[place].isFree() && !(slots[place].hash() == hash && isWanted(slots[place])))
    place = (place + 1) & last;
  return place;
}

template <class Entry>
template <class IsMeant>
const Entry* NameTable<Entry>::find(const HashedName& name, IsMeant isMeant) const {
  if (m_slots.empty())
    return nullptr;
  const Entry* found = nullptr;
  probe(hashOf(name), m_slots, [&](const Slot& slot) {
    const Entry& entry = m_entries[slot.number()];
    if (entry.name == name && isMeant(entry))
      found = &entry;
    return found != nullptr;
  });
  return found;
}

template <class Entry>
Entry& NameTable<Entry>::add(Entry entry) {
  if (m_room == 0)
    makeRoom();
  const std::size_t place = freePlace(hashOf(entry.name), m_slots);
  return put(std::move(entry), place);
}

template <class Entry>
template <class Make>
Entry& NameTable<Entry>::findOrAdd(const HashedName& name, Make make) {
  if (m_room == 0) {
    if (const Entry* const found = find(name))
      return m_entries[numberOf(*found)];
    makeRoom();
  }
  const std::size_t place = probe(hashOf(name), m_slots, [&](const Slot& slot) {
    return m_entries[slot.number()].name == name;
  });
  return m_slots[place].isFree() ? put(make(), place) : m_entries[m_slots[place].number()];
}

template <class Entry>
Entry& NameTable<Entry>::put(Entry entry, std::size_t place) {
  m_entries.push_back(std::move(entry));
  Entry& added = m_entries.back();
  m_slots[place] = slotFor(hashOf(added.name), m_entries.size() - 1);
  --m_room;
  return added;
}

// Entries of one name come upon their places in their order, and so are met in it.
template <class Entry>
void NameTable<Entry>::makeRoom() {
  const std::size_t count = m_entries.size();
  const std::size_t room = std::max(m_expected, count * 2);
  m_entries.reserve(room);
  Slots wider(room * 2, m_slots.get_allocator());
  for (std::uint32_t number = 0; number < count; ++number) {
    const std::uint32_t hash = hashOf(m_entries[number].name);
    wider[freePlace(hash, wider)] = slotFor(hash, number);
  }
  m_slots.swap(wider);
  m_room = room - count;
}

}  // namespace kivo_3_3
