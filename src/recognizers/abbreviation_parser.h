#pragma once

#include <kivo/status.h>

#include <string>
#include <string_view>
#include <vector>

#include "options/name_index.h"
#include "recognizers/argument_parser.h"
#include "recognizers/split_argument.h"

namespace kivo_3_3 {

// Recognizes named options: "-v", "--level=3", "--level 3", "--no-verbose", by any name
// in full or shortened as far as it stays unambiguous, with any kind of dash.
//
// What recognize() finds is stored for the parse() that follows it on the same argument.
// An ambiguous argument is claimed too, so that parse() can report it.
class AbbreviationParser final : public IArgumentParser {
 public:
  // `names` are those of the options that recognize() and parse() are called with.
  AbbreviationParser(EventHandler* handler, OwnedMemory* texts, int flags, NameIndex& names);

  int recognize(ArgumentWindow& args, OptionList& options, std::string& error) override;
  int parse(ArgumentWindow& args, IResultCollector* collector, OptionList& options,
            unsigned int& optionIndex, std::string& error) override;
  int getPriority() override { return -10; }

  // Appends every name an argument may be matched with, in declaration order, the "no-"
  // form of a boolean's name right after the name; only those that begin with `prefix`.
  static void makeOptionNamesList(const OptionList& options, std::vector<std::string>& names,
                                  std::string_view prefix = {});

 private:
  // What recognize() found.
  struct Found {
    ArgumentParts parts;     // of the argument
    NameIndex::Match match;  // the option that its name stands for
    std::string candidates;  // the names that an ambiguous one stands for, quoted
  };

  // The value of an option, or why there is none.
  struct Decision {
    int status = status::success;
    std::string_view value = {};
    unsigned int argumentCount = 1;  // the arguments that the option and its value are in
  };

  // The number of the option that was found, noOption where it is ambiguous.
  unsigned int foundIndex() const;
  bool isUsable(std::string_view argument, std::string& error) const;
  Decision decideValue(const OptionDescription& option, const ArgumentWindow& args,
                       std::string& error) const;
  Decision takeValueFromNext(const OptionDescription& option, const ArgumentWindow& args,
                             std::string& error) const;

  Found m_found;
  WhiteSpace m_whiteSpace;
  NameIndex& m_names;
};

}  // namespace kivo_3_3
