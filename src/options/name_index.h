#pragma once

// Finds the option that a name means without walking the declarations. If this index disagreed with
// findOption() or with find_best_match() over all names, a tool would read another option than its
// user typed.

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

#include "options/sorted_names.h"
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

    void setTo(unsigned int only, std::string_view before, std::string_view fullName) {
      kind = unique;
      option = only;
      ahead = before;
      name = fullName;
    }
  };

  // The memory must outlive the index.
  explicit NameIndex(OwnedMemory* memory) : m_names(memory), m_repeated(memory) {}

  // Makes room for `count` more names, so that add() cannot fail. Raises std::bad_alloc.
  void makeRoomFor(std::size_t count);

  // Adds a name of an option; there must be room for it. The characters of the name must live as
  // long as the index. A boolean option is also found by the "no-" form of the name.
  void add(const HashedName& name, std::uint32_t option, bool isBoolean) noexcept;

  // The first option that has this name.
  std::optional<unsigned int> find(const HashedName& name) const;

  // Whether `isMeant` accepts an option that has exactly this name, by its number.
  template <class IsMeant>
  bool anyNamed(const HashedName& name, IsMeant isMeant) const;

  // Finds the option that has the name `typed`; otherwise the option with the only name that begins
  // with `typed`. The match is set in place: to copy it took a twentieth of a parse. Raises
  // std::bad_alloc.
  void findBest(const HashedName& typed, Match& match);

 private:
  struct Name {
    HashedName name;
    std::uint32_t option;
    bool isBoolean;
  };
  // The names as abbreviations need them.
  struct Sorted {
    SortedNames all;
    SortedNames booleans;
    // How many names of the table and of the repeated ones they have.
    std::size_t named = 0;
    std::size_t repeated = 0;
  };

  const Name* findName(const HashedName& name) const;
  [[gnu::cold]] void findAbbreviated(std::string_view typed, Match& match);
  template <class Visit>
  void eachUnsorted(Visit visit) const;
  [[gnu::cold]] void sortAdded();

  NameTable<Name> m_names;
  // Names that find() never returns, since an equal name was added before. They are not in the
  // table, where thousands of equal names would be probed one by one.
  std::vector<Name, OwnedAllocator<Name>> m_repeated;
  std::unique_ptr<Sorted> m_sorted;  // made by the first abbreviation
};

template <class IsMeant>
bool NameIndex::anyNamed(const HashedName& name, IsMeant isMeant) const {
  const auto isMeantByName = [&](const Name& other) {
    return other.name == name && isMeant(other.option);
  };
  if (m_names.find(name) == nullptr)
    return false;
  for (const Name& repeated : m_repeated)
    if (isMeantByName(repeated))
      return true;
  return m_names.find(name, isMeantByName) != nullptr;
}

}  // namespace kivo_3_3
