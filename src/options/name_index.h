#pragma once

// Finds the option that a name means without walking the declarations. If this index disagreed with
// findOption() or with find_best_match() over all names, a tool would read another option than its
// user typed.

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "storage/hashed_name.h"
#include "storage/name_table.h"

namespace kivo_3_3 {

// The names of all options. Options are numbered in declaration order, and their names are added in
// that order.
class NameIndex {
 public:
  // What a typed name means.
  struct Match {
    enum Kind { none, unique, ambiguous };
    Kind kind = none;
    unsigned int option = 0;      // the number of the option of a unique match
    std::string_view ahead = {};  // "no-" if `typed` abbreviates a negated form
    std::string_view name = {};   // the full name of a unique match, without `ahead`
  };

  // The memory must outlive the index.
  explicit NameIndex(OwnedMemory* memory)
      : m_names(memory), m_repeated(memory), m_sorted(memory), m_sortedBooleans(memory) {}

  // Makes room for `count` more names, so that add() cannot fail. Raises std::bad_alloc.
  void makeRoomFor(std::size_t count);

  // Adds a name of an option; there must be room for it. The characters of the name must live as
  // long as the index. A boolean option is also found by the "no-" form of the name.
  void add(const HashedName& name, std::uint32_t option, bool isBoolean) noexcept;

  // The first option that has this name.
  std::optional<unsigned int> find(const HashedName& name) const;

  // The option that has the name `typed`; otherwise the option with the only name that begins with
  // `typed`. Raises std::bad_alloc.
  Match findBest(const HashedName& typed);

 private:
  struct Name {
    HashedName name;
    std::uint32_t option;
    bool isBoolean;
  };
  // Sorted by the texts of the names. The pointers are valid until the next call of makeRoomFor().
  using Sorted = std::vector<const Name*, OwnedAllocator<const Name*>>;
  // The first name that begins with a prefix, and whether there are more.
  struct Matches;

  const Name* findName(const HashedName& name) const;
  [[gnu::cold]] void sortNames();
  static void collect(const Sorted& sorted, std::string_view prefix, std::string_view ahead,
                      Matches& matches);

  NameTable<Name> m_names;
  // Names that find() never returns, since an equal name was added before. They are not in the
  // table, where thousands of equal names would be probed one by one.
  std::vector<Name, OwnedAllocator<Name>> m_repeated;
  // makeRoomFor() empties the first list. findBest() builds both lists again when it needs them.
  Sorted m_sorted;
  Sorted m_sortedBooleans;  // only names of booleans
};

}  // namespace kivo_3_3
