#include "bedrock/pages.h"

#include <sys/mman.h>

#include <cstdint>
#include <new>

namespace BEDROCK {

namespace {

constexpr std::size_t largePage = std::size_t{2} << 20;

}  // namespace

void* allocateInLargePages(std::size_t bytes) {
  void* const memory = ::operator new(bytes);
#ifdef MADV_HUGEPAGE
  if (bytes >= 2 * largePage) {
    const std::uintptr_t begin = reinterpret_cast<std::uintptr_t>(memory);
    const std::uintptr_t aligned = (begin + largePage - 1) / largePage * largePage;
    const std::uintptr_t end = (begin + bytes) / largePage * largePage;
    madvise(reinterpret_cast<void*>(aligned), end - aligned, MADV_HUGEPAGE);
  }
#endif
  return memory;
}

}  // namespace BEDROCK
