#pragma once

#include <cstddef>
#include <new>
#include <string_view>
#include <type_traits>

namespace kivo_3_3 {

// Memory for what ends together with its owner. Small pieces are cut from a few larger
// blocks, texts from their ends, and given back with all others at the end; large ones that
// are given back come and go one by one.
class OwnedMemory {
 public:
  OwnedMemory(const OwnedMemory&) = delete;
  OwnedMemory& operator=(const OwnedMemory&) = delete;

  // Aligned for pointers and numbers. Raises std::bad_alloc.
  void* allocate(std::size_t bytes) {
    const std::size_t size = rounded(bytes);
    if (size > largestSmall || size > static_cast<std::size_t>(m_end - m_next))
      return allocateElsewhere(size);
    char* const piece = m_next;
    m_next += size;
    return piece;
  }
  // With what allocate() was called with. The piece cut last can be cut again.
  void deallocate(void* piece, std::size_t bytes) noexcept {
    if (bytes > largestSmall)
      ::operator delete(piece);
    else if (static_cast<char*>(piece) + rounded(bytes) == m_next)
      m_next = static_cast<char*>(piece);
  }

  // Like allocate(), for what stays to the end.
  void* allocateForGood(std::size_t bytes) {
    return bytes > largestSmall ? addBlock(bytes) : allocate(bytes);
  }

  // A copy of `text`, with a zero behind it, that stays to the end.
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

  // Cuts up `first`, which lives as long, before anything else.
  OwnedMemory(char* first, std::size_t size)
      : m_next(first), m_end(first + size), m_blockSize(size) {}
  ~OwnedMemory();

 private:
  // A larger block, which begins with this.
  struct alignas(alignment) Block {
    Block* previous;
  };

  static constexpr std::size_t largestSmall = 1536;
  // Each block is so much longer than the one before that the last is most of all. A C
  // library may go by the largest piece below 32 MB that it got by itself from the system and
  // that was freed: twice as much of free memory it keeps at hand for who parses again.
  static constexpr std::size_t growth = 4;
  static constexpr std::size_t largestBlock = std::size_t{31} << 20;

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

// The same with its first block inside.
template <std::size_t firstSize>
class OwnedMemoryOf final : public OwnedMemory {
 public:
  // cppcheck-suppress uninitMemberVar ; what is in it comes with its use
  OwnedMemoryOf() : OwnedMemory(m_first, firstSize) {}

 private:
  alignas(alignment) char m_first[firstSize];
};

// Lets a container take its elements from such memory; without, from the heap. Copies of
// the container do the latter: they may live longer.
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
