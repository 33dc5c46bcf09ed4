// The blocks of an arena. If one was left out of the chain, it would leak; if one was in it twice,
// it would be freed twice.

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
  if (size > largestSmallBytes)
    return BEDROCK::allocateInLargePages(size);
  beginBlock();
  return allocate(size);
}

// The rest of the block before it stays unused.
void OwnedMemory::beginBlock() {
  const std::size_t size =
      std::clamp(m_blockSize * blockGrowthFactor, largestSmallBytes, largestBlockBytes);
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
  if (size > largestSmallBytes)
    return addBlock(size);
  beginBlock();
  return m_end -= size;
}

}  // namespace kivo_3_3
