#pragma once

#include <cstdint>
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
      : m_memory(memory),
        m_names(&memory, expectedNames),
        m_numbers(&memory),
        m_data(&memory),
        m_applied(&memory) {}

  // Adds an occurrence under each of the names: under all of them or, when memory runs
  // out, under none. The texts of its values must live as long. `option`, if it is not
  // 0, tells whose names they are: what comes again and again finds its place at once.
  void store(const Names& names, const OptionData& occurrence, std::uint64_t option);

  // Puts these defaults in the place of former ones of the same names, and draws a
  // position for each.
  void apply(std::shared_ptr<const DeclaredDefaults> defaults);

  // The number of the name that something was given under.
  std::optional<Number> find(const HashedName& name) const;
  // What was given under the name of this number.
  const GivenOption& given(Number name) const { return m_data[m_names[name].data]; }

  std::optional<Default> findDefault(const HashedName& name) const;

  // All names that something was given under or that have a default, in order.
  Texts names() const;

 private:
  static constexpr Number none = 0xFFFFFFFF;
  static constexpr std::size_t expectedNames = 32;
  static constexpr std::size_t expectedOptions = 16;

  using Numbers = std::vector<Number, OwnedAllocator<Number>>;
  struct Name {
    HashedName name;
    Number data;   // none while nothing was given
    Number next;   // the name that stands behind it in the option's list
    bool isFirst;  // in that list
  };
  // What was stored last.
  struct Last {
    std::uint64_t option = 0;
    std::size_t names = 0;  // so many
    Number data = none;     // of the option alone, if it has such
  };
  struct Applied {
    std::shared_ptr<const DeclaredDefaults> defaults;
    int firstPosition;
  };

  bool lookUp(const Names& names);
  [[gnu::cold]] void makeLatest(std::shared_ptr<const DeclaredDefaults> defaults);
  bool isGiven(Number name) const { return m_names[name].data != none; }
  bool isAlone(const Numbers& names) const;
  Number storeFirst(const Numbers& names, const OptionData& occurrence);
  [[gnu::cold]] void storeApart(const Numbers& names, const OptionData& occurrence);
  [[gnu::cold]] Number ownData(Number name);
  [[gnu::cold]] bool isShared(Number data) const;
  Number numberOf(const HashedName& name);

  OwnedMemory& m_memory;
  NameTable<Name> m_names;
  Last m_last;
  Numbers m_numbers;  // of the names being stored, kept for the room it has
  std::vector<GivenOption, OwnedAllocator<GivenOption>> m_data;
  std::vector<Applied, OwnedAllocator<Applied>> m_applied;  // the latest last
  // What later ones have taken the place of, name by name: its texts have been handed out.
  std::vector<std::shared_ptr<const DeclaredDefaults>> m_outdated;
};

}  // namespace kivo_3_3
