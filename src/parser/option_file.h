#pragma once

// Splits the texts of option files, and detects cycles of them. If a cycle were missed, a parse
// would not end.

#include <cstddef>
#include <deque>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "base/white_space.h"
#include "recognizers/argument_window.h"

namespace kivo_3_3 {

// The arguments in `text`, one a line. A null text counts as empty. `text` and `isSpace` must
// outlive the arguments.
ArgumentWindow parseStreamToArgs(const char* text, const WhiteSpace& isSpace);

// Records which option file named which, to tell a cycle from a file that is only read twice. Files
// are read in the order in which they were named.
class OptionFileTrail {
 public:
  // `total` files have been named so far. The new ones were named by the file entered last; if no
  // file has been entered yet, no file named them.
  void named(std::size_t total);

  // Enters the next file. Returns false if that file has named itself, directly or through other
  // files. Two names mean the same file if their identities are equal.
  bool enter(const std::string& identity);

 private:
  struct Entered {
    const std::string* identity;  // one address for each identity
    std::optional<std::size_t> namedBy;
  };

  // Whether `file` has this identity, or a file with this identity has named `file`, directly or
  // through others.
  bool hasLedTo(const std::string* identity, std::optional<std::size_t> file) const;

  std::vector<Entered> m_entered;
  std::set<std::string> m_identities;  // not hashed: users could make names collide
  // For each file that is not entered yet, the index of the file that named it.
  std::deque<std::optional<std::size_t>> m_waiting;
  std::size_t m_named = 0;
};

}  // namespace kivo_3_3
