// Asks for large pages. The advice to the kernel changes speed only: the memory is valid without
// it.

#include "bedrock/pages.h"

#include <sys/mman.h>

#include <memory>
#include <new>

namespace BEDROCK {

namespace {

constexpr std::size_t largePage = std::size_t{2} << 20;  // bytes, on x86-64

}  // namespace

void* allocateInLargePages(std::size_t bytes) {
  void* const memory = ::operator new(bytes);
  askForLargePages(memory, bytes);
  return memory;
}

void askForLargePages([[maybe_unused]] void* memory, [[maybe_unused]] std::size_t bytes) {
#ifdef MADV_HUGEPAGE
  // Two pages: a block of that size holds at least one whole aligned page.
  if (bytes >= 2 * largePage) {
    std::align(largePage, largePage, memory, bytes);
    madvise(memory, bytes / largePage * largePage, MADV_HUGEPAGE);
  }
#endif
}

}  // namespace BEDROCK
