#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "storage/hashed_name.h"
#include "storage/name_table.h"

namespace kivo_3_3 {

// Which option a name means, found without walking the declarations. If this index disagreed with
// findOption() or find_best_match() over all names, a tool would read another option than its user
// typed.
//
// Options are numbered in declaration order, and their names are added in that order.
class NameIndex {
 public:
  // What a typed name means.
  struct Match {
    enum Kind { none, unique, ambiguous };
    Kind kind = none;
    unsigned int option = 0;      // the number of the option of a unique match
    std::string_view ahead = {};  // the negation, if a unique match is the "no-" form of `name`
    std::string_view name = {};   // the full name of a unique match
  };

  // The memory must outlive the index.
  explicit NameIndex(OwnedMemory* memory)
      : m_names(memory), m_sorted(memory), m_sortedBooleans(memory) {}

  // After this, `count` names can be added. Raises std::bad_alloc.
  void makeRoomFor(std::size_t count) { m_names.makeRoomFor(count); }

  // Adds a name of an option, for which there must be room. Its characters must live as long as the
  // index. A boolean is also found by the "no-" form of the name.
  void add(const HashedName& name, std::uint32_t option, bool isBoolean) noexcept {
    m_names.add({name, option, isBoolean});
  }

  // The first option that has this name.
  std::optional<unsigned int> find(const HashedName& name) const;

  // The option whose name was typed in full, else the one whose name begins with `typed`. Raises
  // std::bad_alloc.
  Match findBest(const HashedName& typed);

 private:
  struct Name {
    HashedName name;
    std::uint32_t option;
    bool isBoolean;
  };
  // Numbers of names, in the order of their texts.
  using Sorted = std::vector<std::uint32_t, OwnedAllocator<std::uint32_t>>;
  // The first of the names that begin alike, and whether there are more.
  struct Matches;

  const Name* findName(const HashedName& name) const;
  [[gnu::cold]] void sortNames();
  void collect(const Sorted& sorted, std::string_view prefix, std::string_view ahead,
               Matches& matches) const;

  NameTable<Name> m_names;
  // Sorted when a name is not found in full and names were added since the last time.
  Sorted m_sorted;
  Sorted m_sortedBooleans;  // only names of booleans
};

}  // namespace kivo_3_3
