#include "recognizers/positional_options_parser.h"

#include <kivo/parser.h>

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
  if (dashesAreRefused && !argument.empty() && argument.front() == '-')
    return 1;
  return m_summary.findPositional() ? 0 : 1;
}

int PositionalOptionsParser::parse(ArgumentWindow& args, IResultCollector* collector,
                                   OptionList& options, unsigned int& optionIndex, string& error) {
  trace(": parsing argument '", args.front(), "'");
  optionIndex = m_summary.findPositional().value_or(static_cast<unsigned int>(options.size()));
  const OptionDescription& option = asItStands(options.at(optionIndex), options);
  trace(": option is '", option.firstName(), "'");
  announce(option);
  const int bound = parseValueAndAddOption(args.front(), error, option, args, collector);
  if (bound != status::success)
    return bound;
  trace(": removing argument: '", args.front(), "'");
  args.drop();
  return status::success;
}

}  // namespace kivo_3_3
