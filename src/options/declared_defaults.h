#pragma once

// The declared defaults in the form that a result stores. Parses share them if isTimeless() is true
// for each; if that were wrong, a result would show the defaults of an earlier parse.

#include <kivo/value.h>

#include <cstdint>
#include <string_view>

#include "options/option_description.h"
#include "storage/name_table.h"
#include "storage/owned_memory.h"

namespace kivo_3_3 {

// One default for each name of each option that has a default. This object owns the texts of the
// defaults; the declarations own the names.
class DeclaredDefaults {
 public:
  struct Default {
    HashedName name;
    const char* text;  // empty for a value that has no text
    variant_t value;
    std::uint32_t place;  // the position is `first` of StoredOptions::apply() plus this
  };

  // Whether the default of this option can be converted once for all parses in the classic locale
  // without a visible difference: its value does not refer to characters of the tool, which can
  // change, and the option's type can read it, so the conversion calls no assertion handler.
  static bool isTimeless(const OptionDescription& option);

  // Adds the default of one more option under each of its names, each name in the next place. The
  // default is converted to text in the classic locale.
  void add(const OptionDescription& option);

  // Adds one default or replaces the one of the same name. The text is copied.
  void set(const Default& one);

  // The default declared last for this name; null if there is none.
  const Default* find(const HashedName& name) const;

  // Whether every name that has a default in `others` also has one here.
  bool hasAllOf(const DeclaredDefaults& others) const;

  const NameTable<Default>::Entries& all() const { return m_defaults.entries(); }
  // The number of places, which is the number of positions that the defaults take.
  std::uint32_t count() const { return m_count; }

 private:
  void put(const Default& one);

  OwnedMemoryOf<512> m_memory;
  NameTable<Default> m_defaults{&m_memory};
  std::uint32_t m_count = 0;
};

}  // namespace kivo_3_3
