#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "storage/owned_memory.h"
#include "storage/text_hash.h"

namespace kivo_3_3 {

// A set of texts, each with a zero at its end, in which equal texts have one address.
class InternedTexts {
 public:
  // `memory` owns the set and must outlive it.
  // cppcheck-suppress uninitMemberVar ; arrays are set when they are first used
  explicit InternedTexts(OwnedMemory& memory) : m_memory(memory), m_chunks(&memory) {}
  InternedTexts(const InternedTexts&) = delete;
  InternedTexts& operator=(const InternedTexts&) = delete;
  ~InternedTexts();

  // The text of the set that equals `text`. If there is none yet, that is `text` itself, which
  // must live as long as the set. Raises std::bad_alloc, and then nothing has changed.
  const char* intern(const char* text) { return internAs(text, false); }

  // The same, for a `text` that may end earlier: the set takes a copy.
  const char* internCopy(const char* text) { return internAs(text, true); }

  // Texts are prefetched this far ahead: about as long as memory takes to answer.
  static constexpr std::size_t farAhead = 8;

  // Loads what intern() will need for `text` into the cache, for callers that know some texts
  // before their turn. Inlined by force: a compiler may take a function that only prefetches for
  // one without effect, and drop its calls.
  [[gnu::always_inline]] void prefetch(const char* text) const {
    if (m_slotCount >= fewestToPrefetch)
      __builtin_prefetch(&m_slots[firstSlot(hashOf(text))]);
  }

  // For tests: how many slots have to be looked at to find every text once. As many as there are
  // texts if no two of them collide.
  std::size_t countSteps() const;

 private:
  // Open addressing with linear probing: a text is in the first free slot from the one that the
  // upper bits of its hash name, past the last slot from the first one on. A slot holds one more
  // than the number of the text, and above that the other bits of its hash; 0 while it is free.
  using Slot = std::uint32_t;
  using Chunks = std::vector<const char**, OwnedAllocator<const char**>>;

  static std::uint32_t hashOf(const char* text) {
    return static_cast<std::uint32_t>(TextHash::of(text) >> 32);
  }
  std::size_t firstSlot(std::uint32_t hash) const {
    return static_cast<std::size_t>((std::uint64_t{hash} * m_slotCount) >> 32);
  }
  std::size_t slotAfter(std::size_t place) const { return (place + 1) & (m_slotCount - 1); }
  Slot slotFor(std::uint32_t hash, std::size_t number) const {
    return hash * static_cast<Slot>(m_slotCount) + static_cast<Slot>(number + 1);
  }
  std::size_t freeSlot(std::uint32_t hash) const;
  void enterAll();
  const char* textOf(std::size_t number) const {
    const std::size_t chunk = number / usualTexts;  // 0 for the usual texts
    return (chunk == 0 ? m_usualTexts : m_chunks[chunk - 1])[number % usualTexts];
  }
  void append(const char* text) {
    const char** const chunk = m_size < usualTexts ? m_usualTexts : m_chunks.back();
    chunk[m_size++ % usualTexts] = text;
  }
  const char* internAs(const char* text, bool isCopied);
  const char* internAmongMany(const char* text, bool isCopied);
  const char* kept(const char* text, bool isCopied) {
    return isCopied ? m_memory.copy(text).data() : text;
  }
  [[gnu::cold]] void widen();
  [[gnu::cold]] void addChunk();

  // 16: what a tool reads of a usual command line. So few texts are compared one by one, and only
  // if one of them has the same mark, which takes less than to hash them.
  static constexpr std::size_t fewTexts = 16;
  static constexpr std::size_t usualTexts = fewTexts * 4;
  static constexpr std::size_t usualSlots = usualTexts * 2;
  // From 128 kB on, slots are likely to be missing from the cache next to the processor.
  static constexpr std::size_t fewestToPrefetch = std::size_t{1} << 15;

  OwnedMemory& m_memory;
  std::size_t m_size = 0;     // the number of texts
  std::uint64_t m_marks = 0;  // those of all texts, while there are few
  // At most half of the slots, a power of two, are in use.
  Slot* m_slots = m_usualSlots;
  std::size_t m_slotCount = usualSlots;
  // The texts by their numbers: chunks follow on the usual ones. Chunks, so that no text is ever
  // moved: a list that doubles would need three times its memory for a moment.
  Chunks m_chunks;
  const char* m_usualTexts[usualTexts];
  Slot m_usualSlots[usualSlots];  // in use when there are no longer few texts
};

}  // namespace kivo_3_3
