#pragma once

#include <string>
#include <vector>

#include "options/name_index.h"
#include "recognizers/argument_parser.h"
#include "recognizers/split_argument.h"

namespace kivo_3_3 {

// Recognizes named options: "-v", "--level=3", "--level 3", "--no-verbose", by any name
// in full or shortened as far as it stays unambiguous, with any kind of dash.
//
// What recognize() finds is kept for the parse() that follows it on the same argument.
// An ambiguous argument is claimed too, so that parse() can report it.
class AbbreviationParser final : public IArgumentParser {
 public:
  // `index` is that of the options that recognize() and parse() are called with.
  AbbreviationParser(EventHandler* handler, OwnedMemory* texts, int flags, NameIndex& names);

  int recognize(ArgumentWindow& args, OptionList& options, std::string& error) override;
  int parse(ArgumentWindow& args, IResultCollector* collector, OptionList& options,
            unsigned int& optionIndex, std::string& error) override;
  int getPriority() override { return -10; }

  // Appends every name an argument may be matched with, in declaration order, the "no-"
  // form of a boolean's name right behind it; of those, the ones with this beginning.
  static void makeOptionNamesList(const OptionList& options, std::vector<std::string>& names,
                                  std::string_view beginning = {});

 private:
  int decideValue(const OptionDescription& option, const ArgumentWindow& args,
                  std::string_view& value, std::string& error) const;
  int takeValueFromNext(const OptionDescription& option, const ArgumentWindow& args,
                        std::string_view& value, std::string& error) const;
  void listCandidates(std::string_view name, const OptionList& options);

  int m_optionIndex = -1;    // the option that recognize() matched, -1 for none
  std::string m_candidates;  // the names an ambiguous argument may stand for, quoted
  NameIndex::Match m_match;  // what recognize() matched
  ArgumentParts m_parts;     // of the argument that was recognized
  WhiteSpace m_whiteSpace;
  NameIndex& m_names;
};

}  // namespace kivo_3_3
