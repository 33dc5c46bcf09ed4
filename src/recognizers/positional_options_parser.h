#pragma once

#include "options/declaration_summary.h"
#include "recognizers/argument_parser.h"

namespace kivo_3_3 {

// Binds arguments that name no option to the first declared positional option, each as
// an occurrence of its own.
class PositionalOptionsParser final : public IArgumentParser {
 public:
  // `index` is that of the options that recognize() and parse() are called with.
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
