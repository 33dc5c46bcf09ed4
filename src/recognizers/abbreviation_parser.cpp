// Decides which option an argument names, and where the option's value is. A mistake here takes a
// value for an option, or an option for a value.

#include "recognizers/abbreviation_parser.h"

#include <kivo/status.h>

#include "base/quoted.h"
#include "options/negation.h"

namespace kivo_3_3 {

namespace {

using std::string;

constexpr std::size_t shortestArgument = 2;
constexpr unsigned int noOption = -1U;

[[gnu::cold]] string isUnknown(std::string_view argument) {
  return joined("Unknown option '", argument, "'");
}

[[gnu::cold]] string isAmbiguous(std::string_view name, const string& inArgument,
                                 const string& candidates) {
  return joined("Ambiguous option '", name, "'", inArgument, ", could be: ", candidates);
}

// Spelled like this since 3.0; tools depend on it.
[[gnu::cold]] string takesNoValue(const OptionDescription& option, const string& inArgument) {
  return joined("Option '", option.firstName(), "'does not requires a value", inArgument);
}

[[gnu::cold]] string isBoolean(const OptionDescription& option, const string& inArgument) {
  return joined("Option '", option.firstName(),
                "' is boolean and should be declared in form '--option' or '--no-option'",
                inArgument);
}

[[gnu::cold]] string requiresValue(const OptionDescription& option, const string& inArgument) {
  return joined("Option '", option.firstName(), "' requires a value", inArgument);
}

[[gnu::cold]] string seemsToBeOption(const OptionDescription& option, std::string_view value) {
  return joined("Option '", option.firstName(), "' received value from the next argument: '", value,
                "', but it seems to be an option. Use '-option=value' declaration form"
                " or make sure that value is not missed");
}

// The names that an ambiguous name abbreviates, quoted, in declaration order.
[[gnu::cold]] string listCandidates(std::string_view name, const OptionList& options) {
  std::vector<string> names;
  AbbreviationParser::makeOptionNamesList(options, names, name);
  string candidates;
  for (const string& candidate : names) {
    if (!candidates.empty())
      candidates += ", ";
    candidates += quoted(candidate);
  }
  return candidates;
}

// Whether the matched name turns its boolean option off.
bool isSwitchedOff(const NameIndex::Match& match) {
  return !match.ahead.empty() || isNegated(match.name);
}

}  // namespace

AbbreviationParser::AbbreviationParser(EventHandler* handler, OwnedMemory* texts, int flags,
                                       NameIndex& names)
    : IArgumentParser(handler, texts, flags), m_names(names) {
  m_name = "AbbreviationParser";
}

int AbbreviationParser::recognize(ArgumentWindow& args, OptionList& options, string&) {
  const std::string_view argument = args.front();
  m_found.match.kind = NameIndex::Match::none;
  trace(": recognizing argument '", argument, "'");
  if (argument.size() < shortestArgument || dashLength(argument) == 0)
    return 1;

  m_found.parts = splitArgument(argument, whiteSpace());
  const std::string_view name = m_found.parts.name;
  m_names.findBest(name, m_found.match);
  if (m_found.match.kind == NameIndex::Match::none)
    return 1;
  if (m_found.match.kind == NameIndex::Match::ambiguous) {
    m_found.candidates = listCandidates(name, options);
    trace(": failed to get best match for '", name, "' in argument '", argument,
          "':Ambiguous option, possible options are: ", m_found.candidates);
    return 0;
  }
  trace(": best match option for '", name, "' in argument '", argument, "' is '",
        m_found.match.ahead, m_found.match.name, "'");
  return 0;
}

int AbbreviationParser::parse(ArgumentWindow& args, IResultCollector* collector,
                              OptionList& options, unsigned int& optionIndex, string& error) {
  const std::string_view argument = args.front();
  optionIndex = foundIndex();
  trace(": parsing argument '", argument, "'");
  if (internal::kivoLogEnabled)  // writing the trace may have changed the locale
    m_found.parts = splitArgument(argument, whiteSpace());
  if (!isUsable(argument, error))
    return status::usageError;

  const OptionDescription& option = asItStands(options[optionIndex], options);
  const std::string_view firstName = option.firstName();  // raises without a name
  trace(": detected option: '", firstName, "'");
  const Decision decision = decideValue(option, args, error);
  if (decision.status != status::success)
    return decision.status;
  announce(option);
  trace(": sent event on option parsed");
  const int bound = parseValueAndAddOption(decision.value, error, option, args, collector);
  if (bound != status::success)
    return bound;
  for (unsigned int count = decision.argumentCount; count != 0; --count)
    removeFront(args);
  return status::success;
}

unsigned int AbbreviationParser::foundIndex() const {
  return m_found.match.kind == NameIndex::Match::unique ? m_found.match.option : noOption;
}

// Whether the recognized argument has a name, and the name means exactly one option. Errors found
// here are not traced.
bool AbbreviationParser::isUsable(std::string_view argument, string& error) const {
  const std::string_view name = m_found.parts.name;
  if (name.empty() || beginsWithHyphen(name)) {
    error = isUnknown(argument);
    return false;
  }
  if (m_found.match.kind == NameIndex::Match::ambiguous) {
    error = isAmbiguous(name, formatTokenMessage(argument), m_found.candidates);
    return false;
  }
  return true;
}

// An empty value, as in "--level=", counts as no value.
AbbreviationParser::Decision AbbreviationParser::decideValue(const OptionDescription& option,
                                                             const ArgumentWindow& args,
                                                             string& error) const {
  const std::string_view value = m_found.parts.value;
  if (m_found.parts.hasValue)
    trace(": value from the same argument taken: '", value, "'");
  if (option.m_type == vtNull && !value.empty())
    return {fail(error, takesNoValue(option, formatTokenMessage(args.front())))};
  if (option.m_type == vtBool && !value.empty())
    return {fail(error, isBoolean(option, formatTokenMessage(args.front())))};
  if (option.m_type == vtBool)
    return {status::success, isSwitchedOff(m_found.match) ? "0" : "1"};
  if (option.m_type != vtNull && value.empty())
    return takeValueFromNext(option, args, error);
  return {status::success, value};
}

AbbreviationParser::Decision AbbreviationParser::takeValueFromNext(const OptionDescription& option,
                                                                   const ArgumentWindow& args,
                                                                   string& error) const {
  trace(": no value in the same argument, looking next");
  const std::string_view next = args.second();
  if (next.data() == nullptr)
    return {fail(error, requiresValue(option, formatTokenMessage(args.front())))};
  if (beginsWithHyphen(next))
    return {fail(error, seemsToBeOption(option, next))};
  trace(": got value from the next argument: '", next, "'");
  if (next.empty())
    return {fail(error, requiresValue(option, formatTokenMessage(args.front())))};
  return {status::success, next, 2};
}

void AbbreviationParser::makeOptionNamesList(const OptionList& options, std::vector<string>& names,
                                             std::string_view prefix) {
  const auto behindNegation = prefixBehindNegation(prefix);
  for (const OptionDescription& option : options) {
    for (const HashedName& name : option.m_names) {
      if (beginsWith(name.text, prefix))
        names.emplace_back(name.text);
      if (option.m_type == vtBool && behindNegation && beginsWith(name.text, *behindNegation))
        names.push_back(joined(negation, name.text));
    }
  }
}

}  // namespace kivo_3_3
