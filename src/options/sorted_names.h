#pragma once

// Finds names by how they begin. If it missed a name, an abbreviation would be taken for another
// option, or an ambiguous one for a unique one.

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace kivo_3_3 {

// Names sorted by their texts. They are kept in runs, each of which is sorted and at least twice as
// long as the next one: if names are added between any two searches, few of them are sorted again.
class SortedNames {
 public:
  struct Entry {
    std::string_view text;
    std::uint32_t option;
  };

  // cppcheck-suppress uninitMemberVar ; the end of a run is set when the run is made
  SortedNames() {}

  // Makes room for `count` more names, so that add() cannot fail. Raises std::bad_alloc.
  void makeRoomFor(std::size_t count) {
    if (m_entries.size() < m_count + count)
      m_entries.resize(m_count + count);
  }

  // Adds a name; there must be room for it.
  void add(std::string_view text, std::uint32_t option) noexcept {
    m_entries[m_count++] = {text, option};
  }

  // The first name that begins with `prefix`, and the number of such names: 2 stands for more, too.
  struct Found {
    int count = 0;
    Entry first = {};
  };
  Found find(std::string_view prefix);

 private:
  std::size_t beginOf(std::size_t run) const { return run == 0 ? 0 : m_ends[run - 1]; }
  void findInRun(std::size_t run, std::string_view prefix, Found& found) const;
  [[gnu::cold]] void sortAdded();

  // The numbers of options have 32 bits, and the last run may have one name.
  static constexpr std::size_t mostRuns = 33;

  // The names, and room for more. Those behind the last run are not sorted yet.
  std::vector<Entry> m_entries;
  std::size_t m_count = 0;
  std::uint32_t m_runs = 0;
  std::array<std::uint32_t, mostRuns> m_ends;
};

}  // namespace kivo_3_3
