#pragma once

// An arena, and its allocator for containers. If two allocations overlapped, or one was freed
// early, texts and values would change while a tool refers to them.
//
// This folder has its own arena, list and hash table because those of the standard library cost
// more for what a parser and a result store. Instructions, g++ 12 -O2 on x86-64:
//
//                             OwnedMemory  pmr::monotonic_buffer_resource
//   declare 24 options             10,203                          15,354
//   declare 10,000 options      3,634,748                       5,417,034
//
// The resource of the standard library pads each text, since it carves texts and objects from one
// end, and makes a virtual call for each piece. It takes less memory, since its blocks grow by half
// instead of fourfold: 18 kB of blocks for 24 options instead of 51 kB, 11.3 MB for 10,000 instead
// of 14.9 MB, of which some are never touched.
//
//                            SegmentedList       deque      vector
//   store 12 values                    998       3,120       3,136
//   store 1,000,000 values      74,137,945  68,673,411  46,701,761
//   the same, milliseconds             4.0         7.4         9.6
//
// Values are stored with their positions, and read once. Each empty deque allocates 576 bytes: the
// 24 lists of 12 options 14 kB. A vector moves its elements, to which a tool may refer.
//
//                              NameTable  unordered_map  unordered_map with the hash of HashedName
//   add 24 names                   1,823          8,547                                      4,430
//   add 10,000 names           1,593,801      2,564,811                                  1,934,259
//   find one of 24 names              65            139                                         85
//   find one of 10,000 names          71            158                                         93
//
// An unordered_map also forgets the order of declaration, in which entries are walked.

#include <cstddef>
#include <new>
#include <string_view>
#include <type_traits>

namespace kivo_3_3 {

// An arena: everything allocated from it is freed with it. Small objects are carved from the front
// of a few blocks, texts from the back, where they need no alignment; large ones are separate and
// can be freed early.
class OwnedMemory {
 public:
  OwnedMemory(const OwnedMemory&) = delete;
  OwnedMemory& operator=(const OwnedMemory&) = delete;

  // Aligned for pointers and numbers. A large piece must be deallocated. Raises std::bad_alloc.
  void* allocate(std::size_t bytes) {
    const std::size_t size = rounded(bytes);
    if (size > largestSmallBytes || size > static_cast<std::size_t>(m_end - m_next))
      return allocateElsewhere(size);
    char* const piece = m_next;
    m_next += size;
    return piece;
  }
  // `bytes` must be those of the call of allocate(). The memory of a small piece is reused only if
  // the piece was allocated last.
  void deallocate(void* piece, std::size_t bytes) noexcept {
    if (bytes > largestSmallBytes)
      ::operator delete(piece);
    else if (static_cast<char*>(piece) + rounded(bytes) == m_next)
      m_next = static_cast<char*>(piece);
  }

  // Like allocate(), but a large piece too is freed with the arena, and must not be deallocated.
  void* allocateForGood(std::size_t bytes) {
    return bytes > largestSmallBytes ? addBlock(bytes) : allocate(bytes);
  }

  // Returns a zero-terminated copy of `text` that is freed with the arena. Raises std::bad_alloc.
  std::string_view copy(std::string_view text) {
    const std::size_t size = text.size() + 1;
    char* const place =
        size <= static_cast<std::size_t>(m_end - m_next) ? m_end -= size : cutElsewhere(size);
    text.copy(place, text.size());
    place[text.size()] = '\0';
    return {place, text.size()};
  }

 protected:
  static constexpr std::size_t alignment = alignof(double);

  // Carves from `first`, which must outlive the arena, before it allocates a block.
  OwnedMemory(char* first, std::size_t size)
      : m_next(first), m_end(first + size), m_blockSize(size) {}
  ~OwnedMemory();

 private:
  // The header of a block; the pieces come directly after it.
  struct alignas(alignment) Block {
    Block* previous;
  };

  // Bytes of the largest small piece. 1536: the tables of a result with 32 names are small (at most
  // 1,024 bytes), and the unused rest of a block is never longer than this.
  static constexpr std::size_t largestSmallBytes = 1536;
  // Each block is this many times as long as the one before it. 4: the last block holds most of
  // the memory, so that there are few.
  static constexpr std::size_t blockGrowthFactor = 4;
  // Bytes of the largest block. 31 MB is below the 32 MB from which on glibc returns every freed
  // block to the system at once. A million values take 93 MB with it, and 128 MB without a limit,
  // in the same time.
  static constexpr std::size_t largestBlockBytes = std::size_t{31} << 20;

  static constexpr std::size_t rounded(std::size_t bytes) {
    return (bytes + alignment - 1) / alignment * alignment;
  }
  void* allocateElsewhere(std::size_t size);
  void beginBlock();
  char* cutElsewhere(std::size_t size);
  char* addBlock(std::size_t size);

  char* m_next;
  char* m_end;
  Block* m_last = nullptr;
  std::size_t m_blockSize;
};

// An arena with its first block inside, of `firstSize` bytes.
template <std::size_t firstSize>
class OwnedMemoryOf final : public OwnedMemory {
 public:
  // cppcheck-suppress uninitMemberVar ; each piece is set by its user
  OwnedMemoryOf() : OwnedMemory(m_first, firstSize) {}

 private:
  alignas(alignment) char m_first[firstSize];
};

// Lets a container allocate its elements from an arena; from the heap, if it is given none. A copy
// of a container allocates from the heap, since it may outlive the arena.
template <class T>
class OwnedAllocator {
 public:
  using value_type = T;
  using propagate_on_container_move_assignment = std::true_type;
  using propagate_on_container_swap = std::true_type;
  static_assert(alignof(T) <= alignof(double));

  OwnedAllocator() = default;
  // NOLINTNEXTLINE(google-explicit-constructor): containers are made from the memory
  OwnedAllocator(OwnedMemory* memory) : m_memory(memory) {}
  template <class Other>
  // NOLINTNEXTLINE(google-explicit-constructor): allocators convert into each other
  OwnedAllocator(const OwnedAllocator<Other>& other) : m_memory(other.memory()) {}

  T* allocate(std::size_t count) {
    const std::size_t bytes = count * elementSize;
    return static_cast<T*>(m_memory != nullptr ? m_memory->allocate(bytes) : ::operator new(bytes));
  }
  void deallocate(T* elements, std::size_t count) noexcept {
    if (m_memory != nullptr)
      m_memory->deallocate(elements, count * elementSize);
    else
      ::operator delete(elements);
  }
  OwnedAllocator select_on_container_copy_construction() const { return {}; }

  OwnedMemory* memory() const { return m_memory; }

 private:
  // NOLINTNEXTLINE(bugprone-sizeof-expression): elements may be pointers
  static constexpr std::size_t elementSize = sizeof(T);

  OwnedMemory* m_memory = nullptr;
};

template <class T, class Other>
bool operator==(const OwnedAllocator<T>& left, const OwnedAllocator<Other>& right) {
  return left.memory() == right.memory();
}
template <class T, class Other>
bool operator!=(const OwnedAllocator<T>& left, const OwnedAllocator<Other>& right) {
  return !(left == right);
}

}  // namespace kivo_3_3
