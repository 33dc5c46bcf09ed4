#pragma once

// The options of a result, by name. If two names shared a record that only one of them should have,
// a tool would read an option that was not given.

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

// What was given under each name, and the defaults.
//
// To a reader, every name has data of its own. The names of one option share one record as long as
// every occurrence concerns all of them. Two options can have a name in common, and an option can
// have a name twice or get another one between two parses: then storeApart() separates or replaces
// the records of the names concerned.
class StoredOptions {
 public:
  // A default of this result.
  struct Default {
    HashedName name;
    const char* text;  // empty for a value without a text; valid until the next apply()
    const variant_t* value;
    int position;
  };
  using Number = std::uint32_t;

  explicit StoredOptions(OwnedMemory& memory)
      : m_memory(memory),
        m_names(&memory, expectedNames),
        m_records(&memory),
        m_storing(&memory),
        m_applied(&memory) {}

  // Adds an occurrence under each of the names or, if memory runs out, under none. The texts of
  // names and values must outlive this object. `option` identifies the option that has the names,
  // or is 0: an option that is stored twice in a row finds its record without a lookup.
  void store(const Names& names, const OptionData& occurrence, std::uint64_t option);

  // Applies these defaults, which replace former defaults of the same names. The position of each
  // is `first` plus its place. Defaults may be added to `defaults` until the next call.
  void apply(std::shared_ptr<const DeclaredDefaults> defaults, int first);

  // The number of the name, if something was given under it.
  std::optional<Number> find(const HashedName& name) const {
    const Name* const found = m_names.find(name);
    const bool isGiven = found != nullptr && found->record != nullptr && !found->record->isEmpty();
    return isGiven ? std::make_optional(m_names.numberOf(*found)) : std::nullopt;
  }
  // What was given under the name with this number.
  const GivenOption& given(Number name) const { return m_names[name].record->given; }
  GivenOption& given(Number name) { return m_names[name].record->given; }

  std::optional<Default> findDefault(const HashedName& name) const;

  // Whether something was given under the name or a default was applied to it.
  bool knows(const HashedName& name) const { return find(name) || findDefault(name); }

  // The names under which something was given or that have a default, sorted, each once.
  Texts names() const;

 private:
  static constexpr std::size_t expectedNames = 32;

  // A record: what was given under each of the names that share it.
  struct Record {
    // Without it, all bytes of a new record would be cleared before they are set.
    Record() {}  // NOLINT(modernize-use-equals-default)
    bool isEmpty() const { return given.positions.empty(); }

    Number names = 0;  // the number of names that share this record
    GivenOption given;
  };
  struct Name {
    HashedName name;
    Record* record = nullptr;  // its record; null or empty while nothing was given
  };
  // The option stored last.
  struct Last {
    std::uint64_t option = 0;
    std::size_t names = 0;     // the number of its names
    Record* record = nullptr;  // the record that exactly these names share
  };
  struct Applied {
    std::shared_ptr<const DeclaredDefaults> defaults;
    int first;  // a position: see apply()
  };

  [[gnu::cold]] void dropOutdated(const DeclaredDefaults* replaced);
  Record* recordFor(const Names& names);
  [[gnu::cold]] void lookUp(const Names& names);
  void share(Record& record, std::size_t count);
  static void lead(Name& name, Record& record);
  [[gnu::cold]] void storeApart(const Names& names, const OptionData& occurrence);
  [[gnu::cold]] void replace(const OptionData& occurrence);
  [[gnu::cold]] void separate(Name& name);

  OwnedMemory& m_memory;
  NameTable<Name> m_names;
  Last m_last;
  std::forward_list<Record, OwnedAllocator<Record>> m_records;
  // The sorted numbers of the names that the current store() adds to.
  std::vector<Number, OwnedAllocator<Number>> m_storing;
  std::vector<Applied, OwnedAllocator<Applied>> m_applied;  // the latest last
};

}  // namespace kivo_3_3
