#pragma once

#include <cstddef>
#include <cstdint>
#include <forward_list>
#include <memory>
#include <optional>
#include <vector>

#include "base/name_table.h"
#include "base/owned_memory.h"
#include "options/declared_defaults.h"
#include "options/name_list.h"
#include "options/option_data.h"
#include "result/given_option.h"

namespace kivo_3_3 {

// What a result holds of options: what was given under each name, and the defaults.
//
// Every name has data of its own, as a reader sees it. In fact the names of one option
// lead to the same data, until something is stored that does not concern all of them alike:
// options can share a name, have one twice, or get another one between two parses. From then
// on their data stays apart.
class StoredOptions {
 public:
  // A default as it stands in this result.
  struct Default {
    HashedName name;
    const char* text;  // empty where there is nothing to show
    const variant_t* value;
    int position;
  };
  using Number = std::uint32_t;

  explicit StoredOptions(OwnedMemory& memory)
      : m_memory(memory), m_names(&memory, expectedNames), m_groups(&memory), m_applied(&memory) {}

  // Adds an occurrence under each of the names: under all of them or, when memory runs
  // out, under none. The texts of names and values must live as long. `option`, if it is
  // not 0, tells whose names they are: what comes again and again finds its place at once.
  void store(const Names& names, const OptionData& occurrence, std::uint64_t option);

  // Puts these defaults in the place of former ones of the same names, and draws a
  // position for each.
  void apply(std::shared_ptr<const DeclaredDefaults> defaults);

  // The number of the name that something was given under.
  std::optional<Number> find(const HashedName& name) const {
    const Name* const found = m_names.find(name);
    return found != nullptr && found->group != nullptr
               ? std::make_optional(m_names.numberOf(*found))
               : std::nullopt;
  }
  // What was given under the name of this number.
  const GivenOption& given(Number name) const { return m_names[name].group->given; }

  std::optional<Default> findDefault(const HashedName& name) const;

  // All names that something was given under or that have a default, in order.
  Texts names() const;

 private:
  static constexpr std::size_t expectedNames = 32;

  // What was given under some names at once. No other leads to it, and these do, unless they
  // were stored under with others since.
  struct Group {
    Number firstName = 0;  // their numbers begin here and follow each other
    Number names = 0;      // so many
    GivenOption given;
  };
  struct Name {
    HashedName name;
    Group* group;  // null while nothing was given
  };
  // What was stored last.
  struct Last {
    std::uint64_t option = 0;
    std::size_t names = 0;   // so many
    Group* group = nullptr;  // theirs alone, if there is such
  };
  struct Applied {
    std::shared_ptr<const DeclaredDefaults> defaults;
    int firstPosition;
  };

  [[gnu::cold]] void makeLatest(std::shared_ptr<const DeclaredDefaults> defaults);
  Group* groupFor(const Names& names);
  Group* knownGroup(const Names& names);
  [[gnu::cold]] void storeApart(const Names& names, const OptionData& occurrence);
  [[gnu::cold]] Group& ownCopy(const Name& name);
  [[gnu::cold]] bool isShared(const Group* group) const;

  OwnedMemory& m_memory;
  NameTable<Name> m_names;
  Last m_last;
  std::forward_list<Group, OwnedAllocator<Group>> m_groups;
  std::vector<Applied, OwnedAllocator<Applied>> m_applied;  // the latest last
  // What later ones have taken the place of, name by name: its texts have been handed out.
  std::vector<std::shared_ptr<const DeclaredDefaults>> m_outdated;
};

}  // namespace kivo_3_3
