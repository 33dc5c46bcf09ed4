#include "bedrock/pages.h"

#include <sys/mman.h>

#include <memory>
#include <new>

namespace BEDROCK {

namespace {

constexpr std::size_t largePage = std::size_t{2} << 20;

}  // namespace

void* allocateInLargePages(std::size_t bytes) {
  void* const memory = ::operator new(bytes);
#ifdef MADV_HUGEPAGE
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
