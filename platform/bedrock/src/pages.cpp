// Implements allocateInLargePages(). The advice to the kernel changes speed only: the memory is
// valid without it.

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
#ifdef MADV_HUGEPAGE
  // Two pages: a block of that size holds at least one whole aligned page.
  if (bytes >= 2 * largePage) {
    void* firstPage = memory;
    std::size_t rest = bytes;
    std::align(largePage, largePage, firstPage, rest);
    madvise(firstPage, rest / largePage * largePage, MADV_HUGEPAGE);
  }
#endif
  return memory;
}

}  // namespace BEDROCK
