#pragma once

// The recognizer of positional arguments. If it claimed an argument that the tool excludes with
// dashArgumentsAreNeverPositional, a mistyped option would be taken for a file name.

#include "options/declaration_summary.h"
#include "recognizers/argument_parser.h"

namespace kivo_3_3 {

// Binds arguments that name no option to the positional option declared first. Each argument
// becomes an occurrence of its own.
class PositionalOptionsParser final : public IArgumentParser {
 public:
  // `summary` must be that of the options that recognize() and parse() receive.
  PositionalOptionsParser(EventHandler* handler, OwnedMemory* texts, int flags,
                          DeclarationSummary& summary);

  int recognize(ArgumentWindow& args, OptionList& options, std::string& error) override;
  int parse(ArgumentWindow& args, IResultCollector* collector, OptionList& options,
            unsigned int& optionIndex, std::string& error) override;
  int getPriority() override { return -100; }

 private:
  DeclarationSummary& m_summary;
};

}  // namespace kivo_3_3
