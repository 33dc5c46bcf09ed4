#pragma once

// The recognizer of named options. The rules for names, abbreviations and dashes that users rely on
// are applied here.

#include <kivo/status.h>

#include <string>
#include <string_view>
#include <vector>

#include "options/name_index.h"
#include "recognizers/argument_parser.h"
#include "recognizers/split_argument.h"

namespace kivo_3_3 {

// Recognizes named options: "-v", "--level=3", "--level 3", "--no-verbose", by any name of the
// option, in full or abbreviated without ambiguity, with any kind of dash.
//
// recognize() stores what it finds for the next call of parse(), on the same argument. An ambiguous
// argument is claimed too, so that parse() can report the ambiguity.
class AbbreviationParser final : public IArgumentParser {
 public:
  // `names` must have the names of the options that recognize() and parse() receive.
  AbbreviationParser(EventHandler* handler, OwnedMemory* texts, int flags, NameIndex& names);

  int recognize(ArgumentWindow& args, OptionList& options, std::string& error) override;
  int parse(ArgumentWindow& args, IResultCollector* collector, OptionList& options,
            unsigned int& optionIndex, std::string& error) override;
  int getPriority() override { return -10; }

  // Appends every name that begins with `prefix` and that an argument may give, in declaration
  // order. The "no-" form of a boolean option's name comes directly after that name.
  static void makeOptionNamesList(const OptionList& options, std::vector<std::string>& names,
                                  std::string_view prefix = {});

 private:
  // What recognize() found.
  struct Found {
    ArgumentParts parts;     // the name and the value in the argument
    NameIndex::Match match;  // what the name means
    std::string candidates;  // only of an ambiguous name: the names it abbreviates, quoted
  };

  // The value of an option, or the status of the failure to find a value.
  struct Decision {
    int status = status::success;
    std::string_view value = {};
    unsigned int argumentCount = 1;  // arguments that the option and its value take up
  };

  // The number of the option that was found; noOption if the name is ambiguous.
  unsigned int foundIndex() const;
  bool isUsable(std::string_view argument, std::string& error) const;
  Decision decideValue(const OptionDescription& option, const ArgumentWindow& args,
                       std::string& error) const;
  Decision takeValueFromNext(const OptionDescription& option, const ArgumentWindow& args,
                             std::string& error) const;

  Found m_found;
  NameIndex& m_names;
};

}  // namespace kivo_3_3
