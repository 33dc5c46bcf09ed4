#include "recognizers/abbreviation_parser.h"

#include <kivo/argument_syntax.h>
#include <kivo/status.h>

#include "base/quoted.h"
#include "stratum2/find_best_match.h"

namespace kivo_3_3 {

namespace {

using std::string;

constexpr std::size_t shortestArgument = 2;

// Only the ASCII hyphen counts here: a value may begin with a typographic dash.
bool startsWithHyphen(const string& text) { return !text.empty() && text.front() == '-'; }

bool isNegated(const string& name) { return name.compare(0, 3, "no-") == 0; }

// The words run together, as they always have.
string takesNoValue(const OptionDescription& option, const string& inArgument) {
  return "Option " + quoted(option.firstName()) + "does not requires a value" + inArgument;
}

string isBoolean(const OptionDescription& option, const string& inArgument) {
  return "Option " + quoted(option.firstName()) +
         " is boolean and should be declared in form '--option' or '--no-option'" + inArgument;
}

string requiresValue(const OptionDescription& option, const string& inArgument) {
  return "Option " + quoted(option.firstName()) + " requires a value" + inArgument;
}

string seemsToBeOption(const OptionDescription& option, const string& value) {
  return "Option " + quoted(option.firstName()) +
         " received value from the next argument: " + quoted(value) +
         ", but it seems to be an option. Use '-option=value' declaration form"
         " or make sure that value is not missed";
}

}  // namespace

AbbreviationParser::AbbreviationParser(EventHandler& handler, Garbage& garbage, int flags,
                                       DeclarationIndex& index)
    : IArgumentParser(handler, garbage, flags), m_index(index) {
  m_name = "AbbreviationParser";
}

int AbbreviationParser::recognize(std::vector<string>& args,
                                  std::vector<OptionDescription>& options, string&) {
  const string& argument = args.at(0);
  m_candidates.clear();
  trace(": recognizing argument '", argument, "'");
  m_optionIndex = -1;
  if (argument.size() < shortestArgument || getDashLength(argument, 0) == 0)
    return 1;

  string name;
  splitOptionValue(argument, &name, nullptr);
  const DeclarationIndex::Match best = m_index.findBest(name, options);
  if (best.kind == DeclarationIndex::Match::none)
    return 1;
  if (best.kind == DeclarationIndex::Match::ambiguous) {
    listCandidates(name, options);
    trace(": failed to get best match for '", name, "' in argument '", argument,
          "':Ambiguous option, possible options are: ", m_candidates);
    return 0;
  }
  trace(": best match option for '", name, "' in argument '", argument, "' is '", best.name, "'");
  m_matchedName = best.name;
  m_optionIndex = static_cast<int>(best.option);
  return 0;
}

int AbbreviationParser::parse(std::vector<string>& args, IResultCollector* collector,
                              std::vector<OptionDescription>& options, unsigned int& optionIndex,
                              string& error) {
  optionIndex = static_cast<unsigned int>(m_optionIndex);
  trace(": parsing argument '", args.at(0), "'");
  Argument argument;
  argument.valueInside = splitOptionValue(args[0], &argument.name, &argument.value);
  if (argument.name.empty() || startsWithHyphen(argument.name)) {
    error = "Unknown option " + quoted(args[0]);
    return status::usageError;
  }
  if (!m_candidates.empty()) {
    error = "Ambiguous option " + quoted(argument.name) + formatTokenMessage(args[0]) +
            ", could be: " + m_candidates;
    return status::usageError;
  }

  const OptionDescription& option = options.at(optionIndex);
  trace(": detected option: '", option.firstName(), "'");
  const int decided = decideValue(option, args, argument, error);
  if (decided != status::success)
    return decided;
  m_handler->onOptionParse(option.firstName().c_str());
  trace(": sent event on option parsed");
  const int bound = parseValueAndAddOption(argument.value, error, option, args, collector);
  if (bound != status::success)
    return bound;

  for (; argument.count != 0; --argument.count) {
    trace(": removing argument: '", args.at(0), "'");
    args.erase(args.begin());
  }
  return status::success;
}

int AbbreviationParser::decideValue(const OptionDescription& option, std::vector<string>& args,
                                    Argument& argument, string& error) {
  if (argument.valueInside)
    trace(": value from the same argument taken: '", argument.value, "'");
  if (option.m_type == vtNull)
    return argument.value.empty() ? status::success
                                  : fail(error, takesNoValue(option, formatTokenMessage(args[0])));
  if (option.m_type == vtBool) {
    if (!argument.value.empty())
      return fail(error, isBoolean(option, formatTokenMessage(args[0])));
    argument.value = isNegated(m_matchedName) ? "0" : "1";
    return status::success;
  }
  return argument.value.empty() ? takeValueFromNext(option, args, argument, error)
                                : status::success;
}

int AbbreviationParser::takeValueFromNext(const OptionDescription& option,
                                          std::vector<string>& args, Argument& argument,
                                          string& error) {
  trace(": no value in the same argument, looking next");
  if (args.size() < 2)
    return fail(error, requiresValue(option, formatTokenMessage(args[0])));
  if (startsWithHyphen(args[1]))
    return fail(error, seemsToBeOption(option, args[1]));
  trace(": got value from the next argument: '", args[1], "'");
  if (args[1].empty())
    return fail(error, requiresValue(option, formatTokenMessage(args[0])));
  argument.value = args[1];
  argument.count = 2;
  return status::success;
}

void AbbreviationParser::listCandidates(const string& name,
                                        const std::vector<OptionDescription>& options) {
  std::vector<string> names;
  makeOptionNamesList(options, names);
  stratum2::generic_iterator_t<string> best;
  stratum2::find_best_match({names.begin(), names.end()}, name, best);
  for (; best; ++best) {
    if (!m_candidates.empty())
      m_candidates += ", ";
    m_candidates += quoted(*best);
  }
}

void AbbreviationParser::makeOptionNamesList(const std::vector<OptionDescription>& options,
                                             std::vector<string>& names) {
  for (const OptionDescription& option : options) {
    for (const string& name : option.m_names) {
      names.push_back(name);
      if (option.m_type == vtBool)
        names.push_back("no-" + name);
    }
  }
}

}  // namespace kivo_3_3
