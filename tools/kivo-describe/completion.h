#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "description.h"

namespace kivo_describe {

// What a completion script offers for a value.
enum class Offered { nothing, files, folders, values };

// What a completion script has to know of one option.
struct CompletedOption {
  Texts
      names;  // everything that stands for the option, without dashes; "no-" forms of a boolean too
  Texts offered;            // the names among them that are offered, in order
  bool takesValue = false;  // after "=", or as the next word
  Offered kind = Offered::nothing;
  Texts values;                     // if values are offered: those that are, in order
  std::string separator;            // at which values are split; empty for none
  std::optional<std::size_t> rank;  // of an action: the least of the typed ones decides
  std::optional<std::vector<std::size_t>> goesWith;  // the ranks of the actions; with all if none
  std::string description;                           // without white space but single blanks
};

// The options of a tool or of one of its commands.
struct CompletedScope {
  std::string words;    // of the command; empty for the tool itself
  std::string summary;  // squeezed
  std::vector<CompletedOption> options;
  std::optional<std::size_t> operand;              // the first positional option, by its index
  std::vector<std::vector<std::size_t>> together;  // ranks of actions, in ascending order
  bool leftoversAreOperands = false;               // after "--", words are what the operand takes
};

// What the completion scripts of all shells are made of. The ranks of actions count for the whole
// tool: the smallest name by bytes has the smallest rank.
struct Completion {
  std::string name;
  bool twoDashes = false;          // names of two characters and more are offered with two dashes
  bool loneDashIsOperand = false;  // a word "-" alone is a value and an operand
  CompletedScope own;              // first in the script
  std::vector<CompletedScope> commands;
};

Completion makeCompletion(const Description& description);

}  // namespace kivo_describe
