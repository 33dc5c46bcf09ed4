// A plain list while there are few texts, a hash table from then on. If the change from one to the
// other missed a text, that text would be added once more, at another address.

#include "storage/interned_texts.h"

#include <cstring>

namespace kivo_3_3 {

namespace {

// One bit of 64, chosen by the first two characters.
std::uint64_t markOf(const char* text) {
  const int second = *text != '\0' ? text[1] : 0;
  return std::uint64_t{1} << ((*text + second * 7) & 63);
}

// Compares the first characters before the call: most texts differ there.
bool areEqual(const char* left, const char* right) {
  return left == right || (*left == *right && std::strcmp(left, right) == 0);
}

}  // namespace

InternedTexts::~InternedTexts() {
  if (m_slots != m_inlineSlots)
    m_memory.deallocate(m_slots, m_slotCount * sizeof(Slot));
}

const char* InternedTexts::internAs(const char* text, bool isCopied, std::size_t following) {
  if (m_size >= fewestHashedTexts)
    return internAmongMany(text, isCopied, following);
  const std::uint64_t mark = markOf(text);
  for (std::size_t number = 0; (m_marks & mark) != 0 && number < m_size; ++number)
    if (areEqual(m_inlineTexts[number], text))
      return m_inlineTexts[number];
  text = kept(text, isCopied);
  m_marks |= mark;
  append(text);
  if (m_size == fewestHashedTexts)
    enterAll();
  return text;
}

// Everything that may raise comes before the first change that a caller could observe.
const char* InternedTexts::internAmongMany(const char* text, bool isCopied, std::size_t following) {
  const std::uint32_t hash = hashOf(text);
  const Slot numbers = static_cast<Slot>(m_slotCount - 1);
  const Slot wanted = slotFor(hash, 0) & ~numbers;
  std::size_t place = firstSlot(hash);
  for (; m_slots[place] != 0; place = slotAfter(place)) {
    if ((m_slots[place] & ~numbers) != wanted)
      continue;
    const char* const known = textOf((m_slots[place] & numbers) - 1);
    if (areEqual(known, text))
      return known;
  }
  if (m_size >= inlineTexts && m_size % inlineTexts == 0)
    addChunk();
  if (m_size * 2 == m_slotCount) {
    widen(following);
    place = freeSlot(hash);
  }
  text = kept(text, isCopied);
  m_slots[place] = slotFor(hash, m_size);
  append(text);
  return text;
}

std::size_t InternedTexts::freeSlot(std::uint32_t hash) const {
  std::size_t place = firstSlot(hash);
  while (m_slots[place] != 0)
    place = slotAfter(place);
  return place;
}

void InternedTexts::addChunk() {
  if (m_chunks.size() * inlineTexts + inlineTexts == m_size)
    m_chunks.push_back(
        static_cast<const char**>(m_memory.allocate(inlineTexts * sizeof(const char*))));
}

void InternedTexts::widen(std::size_t following) {
  std::size_t count = m_slotCount * 2;
  while (count < m_slotCount * largestWidening && count / 2 <= m_size + following)
    count *= 2;
  Slot* const wider = static_cast<Slot*>(m_memory.allocate(count * sizeof(Slot)));
  if (m_slots != m_inlineSlots)
    m_memory.deallocate(m_slots, m_slotCount * sizeof(Slot));
  m_slots = wider;
  m_slotCount = count;
  enterAll();
}

void InternedTexts::enterAll() {
  std::memset(m_slots, 0, m_slotCount * sizeof(Slot));
  for (std::size_t number = 0; number < m_size; ++number) {
    if (m_size - number > prefetchDistance)
      prefetch(textOf(number + prefetchDistance));
    const std::uint32_t hash = hashOf(textOf(number));
    m_slots[freeSlot(hash)] = slotFor(hash, number);
  }
}

std::size_t InternedTexts::countSteps() const {
  if (m_size < fewestHashedTexts)
    return m_size * (m_size + 1) / 2;
  const std::size_t numbers = m_slotCount - 1;
  std::size_t steps = 0;
  for (std::size_t number = 0; number < m_size; ++number) {
    std::size_t place = firstSlot(hashOf(textOf(number)));
    for (++steps; (m_slots[place] & numbers) != number + 1; ++steps)
      place = slotAfter(place);
  }
  return steps;
}

}  // namespace kivo_3_3
