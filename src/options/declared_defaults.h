#pragma once

#include <kivo/value.h>

#include <cstdint>
#include <string_view>

#include "base/name_table.h"
#include "base/owned_memory.h"
#include "options/option_description.h"

namespace kivo_3_3 {

// The defaults that a tool has declared, as each parse stores them: one for each name of
// each option that has one. It owns their texts; those of the names are the declarations'.
class DeclaredDefaults {
 public:
  struct Default {
    HashedName name;
    const char* text;  // empty for a value that has no text
    variant_t value;
    std::uint32_t place;  // in the order of declaration: each draws a position
  };

  // Adds those of one more option; nothing once there was one without a name for its default
  // to go under.
  void add(const OptionDescription& option);

  // The last one declared for this name; null when there is none.
  const Default* find(const HashedName& name) const;

  // Whether there is a default for every name that `others` have one for.
  bool hasAllOf(const DeclaredDefaults& others) const;

  const NameTable<Default>::Entries& all() const { return m_defaults.entries(); }
  std::uint32_t count() const { return m_count; }
  // Whether an option was met that has no name.
  bool isOutOfRange() const { return m_isOutOfRange; }

 private:
  void add(const Default& added);

  OwnedMemoryOf<512> m_memory;
  NameTable<Default> m_defaults{&m_memory};
  std::uint32_t m_count = 0;
  bool m_isOutOfRange = false;
};

}  // namespace kivo_3_3
