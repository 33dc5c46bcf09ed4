#include "recognizers/positional_options_parser.h"

#include <kivo/parser.h>

namespace kivo_3_3 {

using std::string;

PositionalOptionsParser::PositionalOptionsParser(EventHandler& handler, Garbage& garbage, int flags,
                                                 DeclarationIndex& index)
    : IArgumentParser(handler, garbage, flags), m_index(index) {
  m_name = "PositionalOptionsParser";
}

int PositionalOptionsParser::recognize(std::vector<string>& args,
                                       std::vector<OptionDescription>& options, string&) {
  trace(": recognizing argument '", args.at(0), "'");
  const bool dashesAreRefused = (m_flags & parserFlags::dashArgumentsAreNeverPositional) != 0;
  if (dashesAreRefused && !args[0].empty() && args[0].front() == '-')
    return 1;
  return m_index.findPositional(options) ? 0 : 1;
}

int PositionalOptionsParser::parse(std::vector<string>& args, IResultCollector* collector,
                                   std::vector<OptionDescription>& options,
                                   unsigned int& optionIndex, string& error) {
  trace(": parsing argument '", args.at(0), "'");
  optionIndex = m_index.findPositional(options).value_or(static_cast<unsigned int>(options.size()));
  const OptionDescription& option = options.at(optionIndex);
  trace(": option is '", option.firstName(), "'");
  string value = args[0];
  m_handler->onOptionParse(option.firstName().c_str());
  const int bound = parseValueAndAddOption(value, error, option, args, collector);
  if (bound != status::success)
    return bound;
  trace(": removing argument: '", args.at(0), "'");
  args.erase(args.begin());
  return status::success;
}

}  // namespace kivo_3_3
