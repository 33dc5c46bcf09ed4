#include "recognizers/abbreviation_parser.h"

#include <kivo/status.h>

#include "base/quoted.h"
#include "options/negation.h"
#include "stratum2/find_best_match.h"

namespace kivo_3_3 {

namespace {

using std::string;

constexpr std::size_t shortestArgument = 2;

// Only the ASCII hyphen counts here: a value may begin with a typographic dash.
bool startsWithHyphen(std::string_view text) { return !text.empty() && text.front() == '-'; }

// The words run together, as they always have.
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

}  // namespace

AbbreviationParser::AbbreviationParser(EventHandler* handler, OwnedMemory* texts, int flags,
                                       NameIndex& names)
    : IArgumentParser(handler, texts, flags), m_names(names) {
  m_name = "AbbreviationParser";
}

int AbbreviationParser::recognize(ArgumentWindow& args, OptionList& options, string&) {
  const std::string_view argument = args.front();
  m_candidates.clear();
  trace(": recognizing argument '", argument, "'");
  m_optionIndex = -1;
  if (argument.size() < shortestArgument || dashLength(argument) == 0)
    return 1;

  if (m_handler != nullptr)
    m_whiteSpace = WhiteSpace();  // it may have changed the locale
  m_parts = splitArgument(argument, m_whiteSpace);
  m_match = m_names.findBest(m_parts.name);
  if (m_match.kind == NameIndex::Match::none)
    return 1;
  if (m_match.kind == NameIndex::Match::ambiguous) {
    listCandidates(m_parts.name, options);
    trace(": failed to get best match for '", m_parts.name, "' in argument '", argument,
          "':Ambiguous option, possible options are: ", m_candidates);
    return 0;
  }
  trace(": best match option for '", m_parts.name, "' in argument '", argument, "' is '",
        m_match.ahead, m_match.name, "'");
  m_optionIndex = static_cast<int>(m_match.option);
  return 0;
}

int AbbreviationParser::parse(ArgumentWindow& args, IResultCollector* collector,
                              OptionList& options, unsigned int& optionIndex, string& error) {
  const std::string_view argument = args.front();
  optionIndex = static_cast<unsigned int>(m_optionIndex);
  trace(": parsing argument '", argument, "'");
  if (m_parts.name.empty() || startsWithHyphen(m_parts.name)) {
    error = joined("Unknown option '", argument, "'");
    return status::usageError;
  }
  if (!m_candidates.empty()) {
    error = joined("Ambiguous option '", m_parts.name, "'", formatTokenMessage(argument),
                   ", could be: ", m_candidates);
    return status::usageError;
  }

  const OptionDescription& option = asItStands(options[optionIndex], options);
  trace(": detected option: '", option.firstName(), "'");
  std::string_view value = m_parts.value;
  const int decided = decideValue(option, args, value, error);
  if (decided != status::success)
    return decided;
  const bool isValueNext = m_parts.value.empty() && option.m_type != vtBool && !value.empty();
  announce(option);
  trace(": sent event on option parsed");
  const int bound = parseValueAndAddOption(value, error, option, args, collector);
  if (bound != status::success)
    return bound;

  for (int count = isValueNext ? 2 : 1; count != 0; --count) {
    trace(": removing argument: '", args.front(), "'");
    args.drop();
  }
  return status::success;
}

// `value` is that of the argument itself, which may be empty.
int AbbreviationParser::decideValue(const OptionDescription& option, const ArgumentWindow& args,
                                    std::string_view& value, string& error) const {
  if (m_parts.hasValue)
    trace(": value from the same argument taken: '", value, "'");
  if (option.m_type == vtNull)
    return value.empty() ? status::success
                         : fail(error, takesNoValue(option, formatTokenMessage(args.front())));
  if (option.m_type == vtBool) {
    if (!value.empty())
      return fail(error, isBoolean(option, formatTokenMessage(args.front())));
    value = !m_match.ahead.empty() || isNegated(m_match.name) ? "0" : "1";
    return status::success;
  }
  return value.empty() ? takeValueFromNext(option, args, value, error) : status::success;
}

int AbbreviationParser::takeValueFromNext(const OptionDescription& option,
                                          const ArgumentWindow& args, std::string_view& value,
                                          string& error) const {
  trace(": no value in the same argument, looking next");
  const std::optional<std::string_view> next = args.second();
  if (!next)
    return fail(error, requiresValue(option, formatTokenMessage(args.front())));
  if (startsWithHyphen(*next))
    return fail(error, seemsToBeOption(option, *next));
  trace(": got value from the next argument: '", *next, "'");
  if (next->empty())
    return fail(error, requiresValue(option, formatTokenMessage(args.front())));
  value = *next;
  return status::success;
}

void AbbreviationParser::listCandidates(std::string_view name, const OptionList& options) {
  std::vector<string> names;
  makeOptionNamesList(options, names, name);
  stratum2::generic_iterator_t<string> best;
  stratum2::find_best_match({names.begin(), names.end()}, string(name), best);
  for (; best; ++best) {
    if (!m_candidates.empty())
      m_candidates += ", ";
    m_candidates += quoted(*best);
  }
}

void AbbreviationParser::makeOptionNamesList(const OptionList& options, std::vector<string>& names,
                                             std::string_view beginning) {
  for (const OptionDescription& option : options) {
    for (const HashedName& name : option.m_names) {
      if (beginsWith(name.text, beginning))
        names.emplace_back(name.text);
      const string negated = option.m_type == vtBool ? joined(negation, name.text) : "";
      if (!negated.empty() && beginsWith(negated, beginning))
        names.push_back(negated);
    }
  }
}

}  // namespace kivo_3_3
