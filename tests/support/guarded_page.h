#pragma once

#include <sys/mman.h>
#include <unistd.h>

#include <cstddef>
#include <new>
#include <string_view>

namespace kivo_3_3::testing {

// A page of memory between two inaccessible pages: an access one byte outside of it ends the
// process, in every build.
class GuardedPage {
 public:
  GuardedPage()
      : m_size(static_cast<std::size_t>(sysconf(_SC_PAGESIZE))),
        m_pages(mmap(nullptr, 3 * m_size, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0)) {
    if (m_pages == MAP_FAILED || mprotect(begin(), m_size, PROT_READ | PROT_WRITE) != 0)
      throw std::bad_alloc();
  }
  GuardedPage(const GuardedPage&) = delete;
  GuardedPage& operator=(const GuardedPage&) = delete;
  ~GuardedPage() { munmap(m_pages, 3 * m_size); }

  char* begin() const { return static_cast<char*>(m_pages) + m_size; }
  char* end() const { return begin() + m_size; }

  // Copies the bytes to the start or to the end of the page.
  std::string_view first(std::string_view bytes) const { return copied(bytes, begin()); }
  std::string_view last(std::string_view bytes) const {
    return copied(bytes, end() - bytes.size());
  }

 private:
  static std::string_view copied(std::string_view bytes, char* place) {
    return {place, bytes.copy(place, bytes.size())};
  }

  std::size_t m_size;
  void* m_pages;
};

}  // namespace kivo_3_3::testing
