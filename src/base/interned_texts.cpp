#include "base/interned_texts.h"

#include <cstring>

namespace kivo_3_3 {

namespace {

// One of 64 bits, by the first two characters.
std::uint64_t markOf(const char* text) {
  const int second = *text != '\0' ? text[1] : 0;
  return std::uint64_t{1} << ((*text + second * 7) & 63);
}

// Most texts differ in their first character.
bool areEqual(const char* left, const char* right) {
  return left == right || (*left == *right && std::strcmp(left, right) == 0);
}

}  // namespace

InternedTexts::~InternedTexts() {
  if (m_slots != m_usualSlots)
    m_memory.deallocate(m_slots, m_slotCount * sizeof(Slot));
}

const char* InternedTexts::internAs(const char* text, bool isCopied) {
  if (m_size >= fewTexts)
    return internAmongMany(text, isCopied);
  const std::uint64_t mark = markOf(text);
  for (std::size_t number = 0; (m_marks & mark) != 0 && number < m_size; ++number)
    if (areEqual(m_usualTexts[number], text))
      return m_usualTexts[number];
  text = kept(text, isCopied);
  m_marks |= mark;
  m_usualTexts[m_size++] = text;
  if (m_size == fewTexts)
    enterFew();
  return text;
}

// Whatever may raise comes before the first change that a caller could tell.
const char* InternedTexts::internAmongMany(const char* text, bool isCopied) {
  const std::uint32_t hash = hashOf(text);
  std::size_t place = firstSlot(hash);
  for (; !m_slots[place].isFree(); place = slotAfter(place)) {
    if (m_slots[place].hash != hash)
      continue;
    const char* const known = textOf(m_slots[place].next - 1);
    if (areEqual(known, text))
      return known;
  }
  if (m_size >= usualTexts && m_size % usualTexts == 0)
    addChunk();
  if (m_size * 2 == m_slotCount) {
    widen();
    place = freeSlot(hash);
  }
  text = kept(text, isCopied);
  textOf(m_size++) = text;
  m_slots[place] = {hash, static_cast<std::uint32_t>(m_size)};
  return text;
}

void InternedTexts::enterFew() {
  std::memset(m_slots, 0, m_slotCount * sizeof(Slot));
  for (std::uint32_t number = 0; number < m_size; ++number) {
    const std::uint32_t hash = hashOf(m_usualTexts[number]);
    m_slots[freeSlot(hash)] = {hash, number + 1};
  }
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

std::size_t InternedTexts::countSteps() const {
  if (m_size < fewTexts)
    return m_size * (m_size + 1) / 2;
  std::size_t steps = 0;
  for (std::size_t place = 0; place < m_slotCount; ++place)
    if (!m_slots[place].isFree())
      steps += ((place - firstSlot(m_slots[place].hash)) & (m_slotCount - 1)) + 1;
  return steps;
}

}  // namespace kivo_3_3
