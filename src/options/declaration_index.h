#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

#include "options/declared_defaults.h"
#include "options/option_description.h"
#include "storage/name_table.h"

namespace kivo_3_3 {

// Answers what a parse asks about the declarations without walking them. Names are found
// as findOption() and find_best_match() find them among all.
//
// It learns at each look-up what was declared since the one before. Only the last
// description can still change, through its builder, and is always looked at itself.
// All look-ups of one index must be made over the same, growing list of descriptions.
class DeclarationIndex {
 public:
  // What a typed name stands for.
  struct Match {
    enum Kind { none, unique, ambiguous };
    Kind kind = none;
    unsigned int option = 0;      // of a unique match
    std::string_view ahead = {};  // of a unique match: the negation where the name is meant with it
    std::string_view name = {};   // of a unique match: in full
  };

  explicit DeclarationIndex(OwnedMemory* memory)
      : m_names(memory), m_sorted(memory), m_sortedBooleans(memory), m_withDefault(memory) {}

  // The first option that has this name, the "no-" forms of booleans included.
  std::optional<unsigned int> find(const HashedName& name, const OptionList& options);

  // The option whose name was typed, in full or shortened.
  Match findBest(const HashedName& typed, const OptionList& options);

  // The first positional option.
  std::optional<unsigned int> findPositional(const OptionList& options);

  // Whether there is an action.
  bool hasActions(const OptionList& options);

  // Calls `visit` with each option that declares a default other than "no value", in order.
  template <class Visit>
  void forEachDefault(const OptionList& options, Visit visit);

  // The defaults of all options as they stand, for parses in the classic locale; null where there
  // are none, and where they have to be converted anew.
  std::shared_ptr<const DeclaredDefaults> timelessDefaults(const OptionList& options);

 private:
  struct Name {
    HashedName name;
    std::uint32_t option;
    bool isBoolean;
  };
  // Numbers of names, put in order when they are next looked for by how they begin.
  using Sorted = std::vector<std::uint32_t, OwnedAllocator<std::uint32_t>>;
  // The first two names that begin alike.
  struct Matches;

  const Name* findName(const HashedName& name, const OptionList& options);
  void catchUp(const OptionList& options) {
    if (!options.empty() && (&options.back() != m_last || m_last->m_changes != m_lastChanges))
      learn(options);
  }
  void learn(const OptionList& options);
  void settle(std::uint32_t option, const OptionList& options);
  void sortNames();
  void collect(const Sorted& sorted, std::string_view prefix, std::string_view ahead,
               Matches& matches) const;

  NameTable<Name> m_names;
  Sorted m_sorted;                 // all of them
  Sorted m_sortedBooleans;         // those with a "no-" form
  std::uint32_t m_nextOption = 0;  // the name not yet indexed: that of this option
  std::uint32_t m_nextName = 0;    // and of this number

  // The last option, and how often it had changed.
  const OptionDescription* m_last = nullptr;
  std::uint32_t m_lastChanges = 0;

  // Of all options but the last:
  std::optional<std::uint32_t> m_positional;  // the first positional one
  bool m_hasActions = false;
  std::vector<std::uint32_t, OwnedAllocator<std::uint32_t>> m_withDefault;

  // What the timeless defaults were made from.
  std::shared_ptr<const DeclaredDefaults> m_defaults;
  std::size_t m_defaultsOf = 0;           // so many options
  std::uint32_t m_defaultsOfChanges = 0;  // the last one changed so many times
};

template <class Visit>
void DeclarationIndex::forEachDefault(const OptionList& options, Visit visit) {
  catchUp(options);
  const OptionDescription* const last = m_last;
  const std::size_t count = m_withDefault.size();  // `visit` may lead to a declaration
  for (std::size_t i = 0; i < count; ++i)
    visit(options[m_withDefault[i]]);
  if (last != nullptr && last->hasDefault())
    visit(*last);
}

}  // namespace kivo_3_3
