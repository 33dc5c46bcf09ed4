#pragma once

#include "options/declaration_index.h"
#include "recognizers/argument_parser.h"

namespace kivo_3_3 {

// Recognizes named options: "-v", "--level=3", "--level 3", "--no-verbose", by any name
// in full or shortened as far as it stays unambiguous, with any kind of dash.
//
// What recognize() finds is kept for the parse() that follows it on the same argument.
// An ambiguous argument is claimed too, so that parse() can report it.
class AbbreviationParser final : public IArgumentParser {
 public:
  // `index` is that of the options that recognize() and parse() are called with.
  AbbreviationParser(EventHandler& handler, Garbage& garbage, int flags, DeclarationIndex& index);

  int recognize(std::vector<std::string>& args, std::vector<OptionDescription>& options,
                std::string& error) override;
  int parse(std::vector<std::string>& args, IResultCollector* collector,
            std::vector<OptionDescription>& options, unsigned int& optionIndex,
            std::string& error) override;
  int getPriority() override { return -10; }

  // Appends every name an argument may be matched with, in declaration order, the "no-"
  // form of a boolean's name right behind it.
  static void makeOptionNamesList(const std::vector<OptionDescription>& options,
                                  std::vector<std::string>& names);

 private:
  // The argument being parsed, split, and how many arguments its value comes from.
  struct Argument {
    std::string name;
    std::string value;
    bool valueInside = false;
    std::size_t count = 1;
  };

  int decideValue(const OptionDescription& option, std::vector<std::string>& args,
                  Argument& argument, std::string& error);
  int takeValueFromNext(const OptionDescription& option, std::vector<std::string>& args,
                        Argument& argument, std::string& error);
  void listCandidates(const std::string& name, const std::vector<OptionDescription>& options);

  int m_optionIndex = -1;     // the option that recognize() matched, -1 for none
  std::string m_candidates;   // the names an ambiguous argument may stand for, quoted
  std::string m_matchedName;  // the name that recognize() matched, a "no-" form included
  DeclarationIndex& m_index;
};

}  // namespace kivo_3_3
