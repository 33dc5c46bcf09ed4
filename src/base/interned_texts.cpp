#include "base/interned_texts.h"

#include <cstring>

namespace kivo_3_3 {

namespace {

// From 256 kB on, slots are likely to be missing from the cache next to the processor.
constexpr std::size_t fewestToPrefetch = std::size_t{1} << 15;

}  // namespace

InternedTexts::~InternedTexts() {
  if (m_slots != m_usualSlots)
    m_memory.deallocate(m_slots, m_slotCount * sizeof(Slot));
}

const char* InternedTexts::intern(const char* text) {
  return internAs(text, [](const HashedName& wanted) { return wanted.text.data(); });
}

const char* InternedTexts::internCopy(const char* text) {
  return internAs(text,
                  [&](const HashedName& wanted) { return m_memory.copy(wanted.text).data(); });
}

template <class Keep>
const char* InternedTexts::internAs(const char* text, Keep keep) {
  const HashedName wanted = text == m_ahead.text.data() ? m_ahead : HashedName(text);
  const std::uint32_t hash = hashOf(wanted);
  if (m_size == 0)
    std::memset(m_slots, 0, m_slotCount * sizeof(Slot));
  std::size_t place = firstSlot(hash);
  for (; !m_slots[place].isFree(); place = slotAfter(place)) {
    if (m_slots[place].hash != hash)
      continue;
    const char* const known = textOf(m_slots[place].next - 1);
    if (known == text || std::strcmp(known, text) == 0)
      return known;
  }
  // Whatever may raise comes before the first change that a caller could tell.
  if (m_size >= usualTexts && m_size % usualTexts == 0)
    addChunk();
  if (m_size * 2 == m_slotCount) {
    widen();
    place = freeSlot(hash);
  }
  return add(keep(wanted), hash, place);
}

const char* InternedTexts::add(const char* text, std::uint32_t hash, std::size_t place) {
  textOf(m_size++) = text;
  m_slots[place] = {hash, static_cast<std::uint32_t>(m_size)};
  return text;
}

std::size_t InternedTexts::freeSlot(std::uint32_t hash) const {
  std::size_t place = firstSlot(hash);
  while (!m_slots[place].isFree())
    place = slotAfter(place);
  return place;
}

void InternedTexts::addChunk() {
  if (m_chunks.size() * usualTexts + usualTexts == m_size)
    m_chunks.push_back(
        static_cast<const char**>(m_memory.allocate(usualTexts * sizeof(const char*))));
}

void InternedTexts::widen() {
  Slot* const former = m_slots;
  const std::size_t formerCount = m_slotCount;
  const std::size_t bytes = formerCount * 2 * sizeof(Slot);
  m_slots = static_cast<Slot*>(std::memset(m_memory.allocate(bytes), 0, bytes));
  m_slotCount = formerCount * 2;
  for (std::size_t place = 0; place < formerCount; ++place)
    if (!former[place].isFree())
      m_slots[freeSlot(former[place].hash)] = former[place];
  if (former != m_usualSlots)
    m_memory.deallocate(former, formerCount * sizeof(Slot));
}

void InternedTexts::prefetch(const char* text) {
  if (m_slotCount < fewestToPrefetch)
    return;
  m_ahead = HashedName(text);
  __builtin_prefetch(&m_slots[firstSlot(hashOf(m_ahead))]);
}

std::size_t InternedTexts::countSteps() const {
  std::size_t steps = 0;
  for (std::size_t place = 0; m_size != 0 && place < m_slotCount; ++place)
    if (!m_slots[place].isFree())
      steps += ((place - firstSlot(m_slots[place].hash)) & (m_slotCount - 1)) + 1;
  return steps;
}

}  // namespace kivo_3_3
