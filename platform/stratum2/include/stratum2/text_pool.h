#pragma once

#include <cstddef>

#include "stratum2/variant.h"

namespace stratum2 {

/// Makes variants that are texts, with one allocation for many of them.
///
/// Their characters lie in chunks of at most 4 KB, each of which is freed when it is used up, or
/// its pool has ended, and the last variant in it is gone: any variant may outlive the pool, and
/// end on another thread. Longer texts are allocated by themselves.
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
  int m_made = 0;  // texts in the chunk
};

}  // namespace stratum2
