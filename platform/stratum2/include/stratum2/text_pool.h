#pragma once

// Saves most of the allocations for the typed texts of a result. A pooled text must still be an
// ordinary variant: it may outlive the result and be destroyed on any thread.

#include <cstddef>

#include "stratum2/variant.h"

namespace stratum2 {

/// Makes variants that are texts, with one allocation for many of them.
///
/// The characters are in chunks: the first one has 256 bytes, each further one is twice as long as
/// the one before it, up to 8 MB. A chunk is freed with the last variant that uses it, but not
/// before the chunk is full or the pool is destroyed. A variant may therefore outlive the pool and
/// be destroyed on another thread; it keeps its whole chunk, about half of what the pool held at
/// most. A text of 1 KB or more has its own allocation.
class text_pool_t {
 public:
  text_pool_t() = default;
  text_pool_t(const text_pool_t&) = delete;
  text_pool_t& operator=(const text_pool_t&) = delete;
  ~text_pool_t() { closeChunk(); }

  /// A value that holds a copy of `text`. Raises std::bad_alloc.
  variant_t make(const char* text);

 private:
  friend class variant_t;

  struct chunk_t;

  void openChunk(std::size_t atLeast);
  void closeChunk() noexcept;
  static void leave(variant_t::data_t* data) noexcept;

  chunk_t* m_chunk = nullptr;
  char* m_next = nullptr;
  std::size_t m_room = 0;
  std::size_t m_chunkSize = 0;
  int m_made = 0;  // the number of texts made in m_chunk
};

}  // namespace stratum2
