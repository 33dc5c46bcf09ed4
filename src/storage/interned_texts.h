#pragma once

// A set of texts. If it held a text twice or moved one, equal texts of a result would have two
// addresses, and the tool would see it.

#include <cstddef>
#include <cstdint>
#include <vector>

#include "storage/owned_memory.h"
#include "storage/text_hash.h"

namespace kivo_3_3 {

// Interns zero-terminated texts: equal texts have one address.
class InternedTexts {
 public:
  // `memory` owns the set and must outlive it.
  // cppcheck-suppress uninitMemberVar ; arrays are set when they are first used
  explicit InternedTexts(OwnedMemory& memory) : m_memory(memory), m_chunks(&memory) {}
  InternedTexts(const InternedTexts&) = delete;
  InternedTexts& operator=(const InternedTexts&) = delete;
  ~InternedTexts();

  // Returns the text of the set that equals `text`. If there is none, adds `text` itself, which
  // must then outlive the set. Raises std::bad_alloc, and then nothing has changed. `following` is
  // the number of texts that are likely to be interned next: a table that is full is widened for
  // some of them too.
  const char* intern(const char* text, std::size_t following = 0) {
    return internAs(text, false, following);
  }

  // The same, but adds a copy: `text` may be freed after the call.
  const char* internCopy(const char* text) { return internAs(text, true, 0); }

  // The number of texts between the prefetch of a slot and its use. The work on eight texts takes
  // about as long as a read from memory.
  static constexpr std::size_t prefetchDistance = 8;

  // Loads the slot that intern() will read for `text` into the cache. Always inlined: a compiler
  // may drop calls of a function that only prefetches, since such a function has no effect.
  [[gnu::always_inline]] void prefetch(const char* text) const {
    if (m_slotCount >= fewestSlotsToPrefetch)
      __builtin_prefetch(&m_slots[firstSlot(hashOf(text))]);
  }

  // For tests: the number of probes that it takes to find every text once; without collisions,
  // the number of texts.
  std::size_t countSteps() const;

 private:
  // Open addressing with linear probing: the upper bits of the hash select the first slot to probe,
  // and probing continues from the last slot to the first. A free slot is 0. A used slot has the
  // number of the text plus one in its lower bits, and the other bits of the hash above these.
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
    if (number < inlineTexts)
      return m_inlineTexts[number];
    // cppcheck-suppress zerodivcond ; a constant that is not 0
    return m_chunks[number / inlineTexts - 1][number % inlineTexts];
  }
  void append(const char* text) {
    const char** const chunk = m_size < inlineTexts ? m_inlineTexts : m_chunks.back();
    chunk[m_size++ % inlineTexts] = text;
  }
  const char* internAs(const char* text, bool isCopied, std::size_t following);
  const char* internAmongMany(const char* text, bool isCopied, std::size_t following);
  const char* kept(const char* text, bool isCopied) {
    return isCopied ? m_memory.copy(text).data() : text;
  }
  [[gnu::cold]] void widen(std::size_t following);
  [[gnu::cold]] void addChunk();

  // From this number of texts on, texts are hashed. Fewer are compared one by one, and only if one
  // of them has the same mark, which is cheaper. 16: the number of texts that a tool reads of a
  // typical command line.
  static constexpr std::size_t fewestHashedTexts = 16;
  // The number of texts stored inside the set object, and in each chunk.
  static constexpr std::size_t inlineTexts = fewestHashedTexts * 4;
  // Slots inside the set object: twice the texts, since at most half of the slots are in use.
  static constexpr std::size_t inlineSlots = inlineTexts * 2;
  // The table is widened by at most this factor at once, since the texts that are expected may all
  // be equal, or never be interned. 16: a million texts are entered in 5 tables instead of 15.
  static constexpr std::size_t largestWidening = 16;
  // 32,768 slots are 128 kB: more than a first-level cache holds, so that slots have to be fetched.
  static constexpr std::size_t fewestSlotsToPrefetch = std::size_t{1} << 15;

  OwnedMemory& m_memory;
  std::size_t m_size = 0;     // the number of texts
  std::uint64_t m_marks = 0;  // of all texts, while they are compared one by one
  // The number of slots is a power of two; at most half of them are in use.
  Slot* m_slots = m_inlineSlots;
  std::size_t m_slotCount = inlineSlots;
  // The texts by number: first those inside the set object, then those in chunks. A vector that
  // doubles would need three times its memory while it moves.
  Chunks m_chunks;
  const char* m_inlineTexts[inlineTexts];
  Slot m_inlineSlots[inlineSlots];  // unused while texts are compared one by one
};

}  // namespace kivo_3_3
