#pragma once

// The look-up of names. If it lost or reordered entries, a parse would miss a declared option or
// take one for another that was declared later.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

#include "storage/hashed_name.h"
#include "storage/owned_memory.h"

namespace kivo_3_3 {

// A hash table of entries, found by name and numbered from 0 in the order in which they are added.
// An entry has a member `name`, a HashedName whose text must not move. Adding an entry invalidates
// references to all others. Several entries may have one name. Compared with std::unordered_map:
// see owned_memory.h.
template <class Entry>
class NameTable {
 public:
  using Entries = std::vector<Entry, OwnedAllocator<Entry>>;

  // `expectedEntries`, a power of two, is the number of entries that the table makes room for when
  // the first one is added. 16: the defaults or groups of a typical tool.
  explicit NameTable(OwnedMemory* memory, std::size_t expectedEntries = 16)
      : m_entries(memory), m_slots(memory), m_expectedEntries(expectedEntries) {}
  NameTable(const NameTable&) = delete;
  NameTable& operator=(const NameTable&) = delete;

  const Entries& entries() const { return m_entries; }
  Entry& operator[](std::uint32_t number) { return m_entries[number]; }
  const Entry& operator[](std::uint32_t number) const { return m_entries[number]; }
  std::uint32_t numberOf(const Entry& entry) const {
    return static_cast<std::uint32_t>(&entry - m_entries.data());
  }

  // Returns the first added entry with this name, of those that `isMeant` accepts; null if there
  // is none.
  const Entry* find(const HashedName& name) const {
    return find(name, [](const Entry&) { return true; });
  }
  template <class IsMeant>
  const Entry* find(const HashedName& name, IsMeant isMeant) const;

  // After this, adding `count` entries does not raise. Raises std::bad_alloc, and then nothing has
  // changed.
  void makeRoomFor(std::size_t count) {
    if (m_room < count)
      widen(count);
  }

  // Returns the first added entry with this name, of those that `isMeant` accepts; if there is
  // none, adds the one that `make` returns. Raises std::bad_alloc, and then nothing has changed.
  template <class Make>
  Entry& findOrAdd(const HashedName& name, Make make) {
    return findOrAdd(
        name, [](const Entry&) { return true; }, make);
  }
  template <class IsMeant, class Make>
  Entry& findOrAdd(const HashedName& name, IsMeant isMeant, Make make);

 private:
  // Open addressing with linear probing, which continues from the last slot to the first. A slot is
  // one integer, so that a vector of slots is cleared by memset(). A free slot is 0; a used slot
  // has the hash in the lower half and the number of the entry plus one in the upper half.
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
  // Probes from the hash's first slot on. Returns the place of the first slot that has this hash
  // and that `isWanted` accepts, or else of the free slot that ends the search.
  template <class IsWanted>
  static std::size_t probe(std::uint32_t hash, const Slots& slots, IsWanted isWanted);
  static Slot slotFor(std::uint32_t hash, std::size_t number) {
    return {std::uint64_t{number + 1} << 32 | hash};
  }
  static std::size_t freePlace(std::uint32_t hash, const Slots& slots) {
    return probe(hash, slots, [](const Slot&) { return false; });
  }
  Entry& put(Entry entry, std::size_t place);
  void widen(std::size_t count);

  Entries m_entries;
  Slots m_slots;           // none without entries, else a power of two, at most half in use
  std::size_t m_room = 0;  // the number of entries that can be added without allocation
  std::size_t m_expectedEntries;
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
template <class IsMeant, class Make>
Entry& NameTable<Entry>::findOrAdd(const HashedName& name, IsMeant isMeant, Make make) {
  if (m_room == 0) {
    if (const Entry* const found = find(name, isMeant))
      return m_entries[numberOf(*found)];
    widen(1);
  }
  const std::size_t place = probe(hashOf(name), m_slots, [&](const Slot& slot) {
    const Entry& entry = m_entries[slot.number()];
    return entry.name == name && isMeant(entry);
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

// Entries are reinserted in order, so among equal names the first added is still found first.
template <class Entry>
void NameTable<Entry>::widen(std::size_t count) {
  const std::size_t used = m_entries.size();
  std::size_t room = std::max(m_expectedEntries, m_slots.size());
  while (room - used < count)
    room *= 2;
  m_entries.reserve(room);
  Slots wider(room * 2, m_slots.get_allocator());
  for (std::uint32_t number = 0; number < used; ++number) {
    const std::uint32_t hash = hashOf(m_entries[number].name);
    wider[freePlace(hash, wider)] = slotFor(hash, number);
  }
  m_slots.swap(wider);
  m_room = room - used;
}

}  // namespace kivo_3_3
