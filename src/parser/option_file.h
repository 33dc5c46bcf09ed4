#pragma once

#include <cstddef>
#include <deque>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "base/white_space.h"
#include "recognizers/argument_window.h"

namespace kivo_3_3 {

// The arguments in `text`, one a line. A null text counts as the empty one.
ArgumentWindow parseStreamToArgs(const char* text, const WhiteSpace& isSpace);

// Remembers which option file named which, to distinguish a cycle from a file that is merely
// read twice. Files are read in the order in which they were named.
class OptionFileTrail {
 public:
  // `total` files have been named so far; the new ones among them by the file entered last.
  void named(std::size_t total);

  // Enters the next file; false if that file has led to itself. Files are the same if their
  // identities are equal, however their names are spelt.
  bool enter(const std::string& identity);

 private:
  struct Entered {
    const std::string* identity;  // one address for each
    std::optional<std::size_t> namedBy;
  };

  // Whether a file of this identity is `file`, or named it, or named what named it.
  bool hasLedTo(const std::string* identity, std::optional<std::size_t> file) const;

  std::vector<Entered> m_entered;
  std::set<std::string> m_identities;                // in order: links may have any identity
  std::deque<std::optional<std::size_t>> m_waiting;  // who named each file not entered yet
  std::size_t m_named = 0;
};

}  // namespace kivo_3_3
