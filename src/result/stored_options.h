#pragma once

#include <cstddef>
#include <cstdint>
#include <forward_list>
#include <memory>
#include <optional>
#include <vector>

#include "options/declared_defaults.h"
#include "options/name_list.h"
#include "options/option_data.h"
#include "result/given_option.h"
#include "storage/name_table.h"
#include "storage/owned_memory.h"

namespace kivo_3_3 {

// What a result holds of options: what was given under each name, and the defaults.
//
// Every name has data of its own, as a reader sees it. In fact the names of one option share a
// group of data for as long as everything stored concerns all of them alike. Options can share a
// name, have one twice, or get another one between two parses: from then on each of the names
// concerned has a group to itself.
class StoredOptions {
 public:
  // A default as it stands in this result.
  struct Default {
    HashedName name;
    const char* text;  // empty where there is nothing to show; lives until the next apply()
    const variant_t* value;
    int position;
  };
  using Number = std::uint32_t;

  explicit StoredOptions(OwnedMemory& memory)
      : m_memory(memory),
        m_names(&memory, expectedNames),
        m_groups(&memory),
        m_storing(&memory),
        m_applied(&memory) {}

  // Adds an occurrence under each of the names: under all of them or, when memory runs
  // out, under none. The texts of names and values must live as long. `option`, if it is
  // not 0, tells whose names they are: what comes again and again finds its place at once.
  void store(const Names& names, const OptionData& occurrence, std::uint64_t option);

  // Puts these defaults in the place of former ones of the same names. Their positions count
  // from `first` on. Defaults may be added to them until the next call.
  void apply(std::shared_ptr<const DeclaredDefaults> defaults, int first);

  // The number of the name that something was given under.
  std::optional<Number> find(const HashedName& name) const {
    const Name* const found = m_names.find(name);
    const bool isGiven = found != nullptr && found->group != nullptr && !found->group->isEmpty();
    return isGiven ? std::make_optional(m_names.numberOf(*found)) : std::nullopt;
  }
  // What was given under the name of this number.
  const GivenOption& given(Number name) const { return m_names[name].group->given; }
  GivenOption& given(Number name) { return m_names[name].group->given; }

  std::optional<Default> findDefault(const HashedName& name) const;

  // Whether something was given under the name, or a default applied.
  bool knows(const HashedName& name) const { return find(name) || findDefault(name); }

  // All names that something was given under or that have a default, in order.
  Texts names() const;

 private:
  static constexpr std::size_t expectedNames = 32;

  // What was given under some names alike.
  struct Group {
    bool isEmpty() const { return given.positions.empty(); }

    Number names = 0;  // the number of names that have this group
    GivenOption given;
  };
  struct Name {
    HashedName name;
    Group* group = nullptr;  // null or empty while nothing was given
  };
  // What was stored last.
  struct Last {
    std::uint64_t option = 0;
    std::size_t names = 0;   // the number of its names
    Group* group = nullptr;  // the group that exactly these share
  };
  struct Applied {
    std::shared_ptr<const DeclaredDefaults> defaults;
    int first;  // position
  };

  [[gnu::cold]] void dropOutdated(const DeclaredDefaults* replaced);
  Group* groupFor(const Names& names);
  [[gnu::cold]] void lookUp(const Names& names);
  void share(Group& group, std::size_t count);
  static void lead(Name& name, Group& group);
  [[gnu::cold]] void storeApart(const Names& names, const OptionData& occurrence);
  [[gnu::cold]] void replace(const OptionData& occurrence);
  [[gnu::cold]] void separate(Name& name);

  OwnedMemory& m_memory;
  NameTable<Name> m_names;
  Last m_last;
  std::forward_list<Group, OwnedAllocator<Group>> m_groups;
  // The names that are being stored under, by their numbers in ascending order.
  std::vector<Number, OwnedAllocator<Number>> m_storing;
  std::vector<Applied, OwnedAllocator<Applied>> m_applied;  // the latest last
};

}  // namespace kivo_3_3
