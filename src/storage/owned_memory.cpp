#include "storage/owned_memory.h"

#include <algorithm>

#include "bedrock/pages.h"

namespace kivo_3_3 {

OwnedMemory::~OwnedMemory() {
  while (m_last != nullptr) {
    Block* const block = m_last;
    m_last = block->previous;
    ::operator delete(block);
  }
}

void* OwnedMemory::allocateElsewhere(std::size_t size) {
  if (size > largestSmall)
    return BEDROCK::allocateInLargePages(size);
  beginBlock();
  return allocate(size);
}

// What is left of the block before goes unused.
void OwnedMemory::beginBlock() {
  const std::size_t size = std::clamp(m_blockSize * growth, largestSmall, largestBlock);
  m_next = addBlock(size);
  m_end = m_next + size;
  m_blockSize = size;
}

char* OwnedMemory::addBlock(std::size_t size) {
  void* const memory = BEDROCK::allocateInLargePages(sizeof(Block) + size);
  m_last = new (memory) Block{m_last};
  return static_cast<char*>(memory) + sizeof(Block);
}

char* OwnedMemory::cutElsewhere(std::size_t size) {
  if (size > largestSmall)
    return addBlock(size);
  beginBlock();
  return m_end -= size;
}

}  // namespace kivo_3_3
