#include "base/owned_memory.h"

#include <algorithm>

namespace kivo_3_3 {

OwnedMemory::~OwnedMemory() {
  while (m_last != nullptr) {
    Block* const block = m_last;
    m_last = block->previous;
    ::operator delete(block);
  }
}

// What is left of the block before goes unused.
void* OwnedMemory::allocateElsewhere(std::size_t size) {
  if (size > largestSmall)
    return ::operator new(size);
  const std::size_t blockSize = std::clamp(m_blockSize * 2, largestSmall, largestBlock);
  char* const piece = addBlock(blockSize);
  m_blockSize = blockSize;
  m_next = piece + size;
  m_end = piece + m_blockSize;
  return piece;
}

char* OwnedMemory::addBlock(std::size_t size) {
  void* const memory = ::operator new(sizeof(Block) + size);
  m_last = new (memory) Block{m_last};
  return static_cast<char*>(memory) + sizeof(Block);
}

std::string_view OwnedMemory::copy(std::string_view text) {
  const std::size_t size = text.size() + 1;
  char* const place = size > largestSmall ? addBlock(size) : static_cast<char*>(allocate(size));
  text.copy(place, text.size());
  place[text.size()] = '\0';
  return {place, text.size()};
}

}  // namespace kivo_3_3
