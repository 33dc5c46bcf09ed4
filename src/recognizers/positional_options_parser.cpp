// Claims any argument if a positional option is declared. Its priority is the lowest, so it binds
// only what names no option; otherwise an option would become a file name, for example.

#include "recognizers/positional_options_parser.h"

#include <kivo/parser.h>

#include "recognizers/split_argument.h"

namespace kivo_3_3 {

using std::string;

PositionalOptionsParser::PositionalOptionsParser(EventHandler* handler, OwnedMemory* texts,
                                                 int flags, DeclarationSummary& summary)
    : IArgumentParser(handler, texts, flags), m_summary(summary) {
  m_name = "PositionalOptionsParser";
}

int PositionalOptionsParser::recognize(ArgumentWindow& args, OptionList&, string&) {
  const std::string_view argument = args.front();
  trace(": recognizing argument '", argument, "'");
  const bool dashesAreRefused = (m_flags & parserFlags::dashArgumentsAreNeverPositional) != 0;
  if (dashesAreRefused && beginsWithHyphen(argument))
    return 1;
  return m_summary.findPositional() ? 0 : 1;
}

int PositionalOptionsParser::parse(ArgumentWindow& args, IResultCollector* collector,
                                   OptionList& options, unsigned int& optionIndex, string& error) {
  const std::string_view argument = args.front();
  trace(": parsing argument '", argument, "'");
  optionIndex = m_summary.findPositional().value_or(static_cast<unsigned int>(options.size()));
  const OptionDescription& option = asItStands(options.at(optionIndex), options);
  const std::string_view firstName = option.firstName();  // raises without a name
  trace(": option is '", firstName, "'");
  announce(option);
  const int bound = parseValueAndAddOption(argument, error, option, args, collector);
  if (bound != status::success)
    return bound;
  removeFront(args);
  return status::success;
}

}  // namespace kivo_3_3
