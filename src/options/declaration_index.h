#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "options/option_description.h"

namespace kivo_3_3 {

// Answers what a parse asks about the declarations without walking them. Names are found
// as findOption() and find_best_match() find them among all.
//
// The index refers to descriptions and names by number, so the descriptions may move.
// It learns at each look-up what was declared since the one before. Only the last
// description can still change, through its builder, and is always looked at itself.
// All look-ups of one index must be made over the same, growing list of descriptions.
class DeclarationIndex {
 public:
  using Options = std::vector<OptionDescription>;

  // What a typed name stands for.
  struct Match {
    enum Kind { none, unique, ambiguous };
    Kind kind = none;
    unsigned int option = 0;  // of a unique match
    std::string name;         // of a unique match: in full, a "no-" form included
  };

  // The first option that has this name, the "no-" forms of booleans included.
  std::optional<unsigned int> find(std::string_view name, const Options& options);

  // The option whose name was typed, in full or shortened.
  Match findBest(const std::string& typed, const Options& options);

  // The first positional option.
  std::optional<unsigned int> findPositional(const Options& options);

  // Visits the options that have a default, in declaration order.
  template <class Visit>
  void forEachDefault(const Options& options, Visit visit) {
    catchUp(options);
    for (const std::uint32_t option : m_withDefault)
      visit(options[option]);
    if (!options.empty() && options.back().m_hasDefault)
      visit(options.back());
  }

 private:
  struct Entry {
    std::uint32_t option;
    std::uint32_t name;
  };
  struct Slot {
    std::size_t hash = 0;
    std::optional<Entry> entry;
  };
  using Entries = std::vector<Entry>::const_iterator;

  void catchUp(const Options& options);
  void settle(std::uint32_t option, const Options& options);
  void add(Entry entry, const Options& options);
  void grow();
  Slot& freeSlot(std::vector<Slot>& slots, std::size_t hash) const;

  static const std::string& nameOf(Entry entry, const Options& options);
  static bool isBoolean(Entry entry, const Options& options);

  template <class Accept>
  std::optional<unsigned int> firstWith(std::string_view name, const Options& options,
                                        Accept accept) const;
  // Names, put in order when they are next looked for by how they begin.
  struct Names {
    std::vector<Entry> entries;
    bool sorted = false;

    void makeRoom();
    void add(Entry entry);  // behind makeRoom() it cannot fail
    std::pair<Entries, Entries> beginningWith(std::string_view prefix, const Options& options);
  };

  std::vector<Slot> m_slots;  // open addressing, a power of two, at most half full
  Names m_names;              // all of them
  Names m_booleans;           // those with a "no-" form
  Entry m_next = {0, 0};      // the first name not yet indexed

  // Of all options but the last:
  std::optional<std::uint32_t> m_positional;  // the first positional one
  std::vector<std::uint32_t> m_withDefault;
};

}  // namespace kivo_3_3
