#pragma once

#include <kivo/value.h>

#include <cstdint>
#include <string_view>

#include "options/option_description.h"
#include "storage/name_table.h"
#include "storage/owned_memory.h"

namespace kivo_3_3 {

// The defaults that a tool has declared, as a parse stores them: one for each name of each option
// that has one. It owns their texts; the names are owned by the declarations.
class DeclaredDefaults {
 public:
  struct Default {
    HashedName name;
    const char* text;  // empty for a value that has no text
    variant_t value;
    std::uint32_t place;  // what to add to the position of the first one
  };

  // Whether the default of this option becomes the same text at every parse in the classic
  // locale, and nobody can tell when: its value does not refer to characters of the tool's, and
  // the option's type can read it, so that the assertion handler has no part in it.
  static bool isTimeless(const OptionDescription& option);

  // Adds the default of one more option under each of its names, each in the next place. It
  // becomes text in the classic locale.
  void add(const OptionDescription& option);

  // Adds one default, or puts it in the place of the one with its name. The text is copied.
  void set(const Default& one);

  // The last one declared for this name; null when there is none.
  const Default* find(const HashedName& name) const;

  // Whether there is a default for every name that `others` have one for.
  bool hasAllOf(const DeclaredDefaults& others) const;

  const NameTable<Default>::Entries& all() const { return m_defaults.entries(); }
  // The number of places.
  std::uint32_t count() const { return m_count; }

 private:
  void put(const Default& one);

  OwnedMemoryOf<512> m_memory;
  NameTable<Default> m_defaults{&m_memory};
  std::uint32_t m_count = 0;
};

}  // namespace kivo_3_3
