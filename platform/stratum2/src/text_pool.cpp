// Implements text_pool_t. If a chunk were freed while a variant still uses it, the tool would read
// freed memory; if it were not freed after its last variant, every result would leak.

#include "stratum2/text_pool.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <new>

#include "bedrock/pages.h"
#include "counter.h"

namespace stratum2 {

// The header of a chunk: the number of texts in it that are still in use. While the pool still
// allocates from the chunk, the number starts from `allTexts`, so that destroying a text cannot
// free the chunk. closeChunk() then subtracts the texts that were never made.
struct text_pool_t::chunk_t {
  alignas(variant_t::data_t) std::atomic<int> m_texts;
};

namespace {

// Bytes. Chunks double from the shortest to the longest. 8 MB: long enough for large pages, which
// save a tenth of the time for a million texts.
constexpr std::size_t shortestChunk = 256;
constexpr std::size_t longestChunk = std::size_t{8} << 20;
// A longer text has its own allocation, so that it does not use up a chunk.
constexpr std::size_t longestText = std::size_t{1} << 10;
constexpr int allTexts = std::numeric_limits<int>::max();

}  // namespace

variant_t text_pool_t::make(const char* text) {
  const std::size_t bytes = std::strlen(text) + 1;
  if (bytes > longestText)
    return variant_t(text);
  constexpr std::size_t alignment = alignof(variant_t::data_t);
  const std::size_t size =
      (sizeof(variant_t::data_t) + bytes + alignment - 1) / alignment * alignment;
  if (size > m_room)
    openChunk(size);
  const std::ptrdiff_t offset = m_next - reinterpret_cast<char*>(m_chunk);
  auto* const data = new (m_next) variant_t::data_t{bytes, {1}, static_cast<unsigned int>(offset)};
  std::memcpy(reinterpret_cast<char*>(data + 1), text, bytes);
  m_next += size;
  m_room -= size;
  ++m_made;
  return variant_t(data);
}

void text_pool_t::openChunk(std::size_t atLeast) {
  const std::size_t size = std::clamp(m_chunkSize * 2, shortestChunk, longestChunk);
  const std::size_t room = std::max(size - sizeof(chunk_t), atLeast);
  void* const memory = variant_t::m_mem.allocate(sizeof(chunk_t) + room);
  BEDROCK::askForLargePages(memory, sizeof(chunk_t) + room);
  closeChunk();
  m_chunk = new (memory) chunk_t{{allTexts}};
  m_next = static_cast<char*>(memory) + sizeof(chunk_t);
  m_room = room;
  m_chunkSize = size;
}

void text_pool_t::closeChunk() noexcept {
  const int neverMade = allTexts - m_made;
  if (m_chunk != nullptr && add(m_chunk->m_texts, -neverMade) == neverMade)
    variant_t::m_mem.free(m_chunk);
  m_made = 0;
}

void text_pool_t::leave(variant_t::data_t* data) noexcept {
  void* const begin = reinterpret_cast<char*>(data) - data->m_offset;
  auto* const chunk = static_cast<chunk_t*>(begin);
  if (add(chunk->m_texts, -1) == 1)
    variant_t::m_mem.free(chunk);
}

}  // namespace stratum2
