#include "reference/recognizers.h"

#include <kivo/parser.h>
#include <kivo/status.h>

#include <algorithm>

#include "reference/argument_syntax.h"
#include "reference/positions.h"
#include "reference/registry.h"
#include "reference/trace.h"
#include "stratum2/find_best_match.h"

namespace kivo_3_3::reference {

namespace {

std::string inArgument(const std::string& argument) { return " in argument: '" + argument + "'"; }

// All names in declaration order. Each name of a boolean option is followed by its "no-" form.
std::vector<std::string> optionNames(const Options& options) {
  std::vector<std::string> names;
  for (const Option& option : options)
    for (const std::string& name : option.names) {
      names.push_back(name);
      if (option.type == vtBool)
        names.push_back("no-" + name);
    }
  return names;
}

bool isPositional(const Option& option) { return option.isPositional; }

}  // namespace

std::vector<std::string> namesMeant(const Options& options, const std::string& typed) {
  const std::vector<std::string> names = optionNames(options);
  stratum2::generic_iterator_t<std::string> best;
  stratum2::find_best_match({names.begin(), names.end()}, typed, best);
  std::vector<std::string> matches;
  for (; best; ++best)
    matches.push_back(*best);
  return matches;
}

Recognizer::Recognizer(const char* name, EventHandler& handler, int flags)
    : m_name(name), m_handler(handler), m_flags(flags) {}

void Recognizer::trace(const std::string& text) const { traceLine(m_name + text); }

int Recognizer::parseValueAndAddOption(std::string value, std::string& error, const Option& option,
                                       const Arguments& args, Result* result) {
  OptionData data;
  data.positions.push_back(drawPosition());
  if (!value.empty()) {
    trace(": adding values to result container:");
    const int outcome = option.tokenizer == '\0'
                            ? parseWholeValue(value, error, option, args.at(0), data.values)
                            : parseTokens(value, error, option, args.at(0), data.values);
    if (outcome != status::success)
      return outcome;
  }
  if (result != nullptr)
    result->store(option, data);
  trace(": stored option to result container.");
  return status::success;
}

int Recognizer::parseWholeValue(std::string& value, std::string& error, const Option& option,
                                const std::string& argument, std::vector<StoredValue>& values) {
  trace(": not using tokenizer");
  variant_t typed;
  if (const int outcome = validate(value, typed, error, option, argument))
    return outcome;
  const StoredValue stored = {value, typed, drawPosition()};
  if (const int outcome = announceValue(stored, value, error, option, argument))
    return outcome;
  values.push_back(stored);
  return status::success;
}

int Recognizer::parseTokens(const std::string& value, std::string& error, const Option& option,
                            const std::string& argument, std::vector<StoredValue>& values) {
  trace(std::string(": using tokenizer on char: '") + option.tokenizer + "'");
  const std::vector<std::string> tokens = tokensOf(value, option.tokenizer);
  if (tokens.empty()) {
    // The message says "argument" and quotes the whole value; tools depend on it.
    error = "No value parsed in argument '" + value + "' for option '" + option.firstName() + "'";
    trace(": " + error);
    return status::usageError;
  }
  for (std::string token : tokens) {
    trace(": value is: '" + token + "'");
    variant_t typed;
    if (const int outcome = validate(token, typed, error, option, argument))
      return outcome;
    const StoredValue stored = {token, typed, drawPosition()};
    // If a handler refuses a token, the message quotes the whole value.
    if (const int outcome = announceValue(stored, value, error, option, argument))
      return outcome;
    values.push_back(stored);
    trace(": sent event on value parsed, option: '" + option.firstName() + "', value: '" + token +
          "'");
  }
  return status::success;
}

// Replaces an abbreviated token by the full value.
int Recognizer::validate(std::string& token, variant_t& typed, std::string& error,
                         const Option& option, const std::string& argument) const {
  if (option.validate(token, typed, error))
    return status::success;
  error = "Value validation problem in argument '" + argument + "': " + error;
  trace(": " + error);
  return status::usageError;
}

int Recognizer::announceValue(const StoredValue& announced, const std::string& quoted,
                              std::string& error, const Option& option,
                              const std::string& argument) {
  const Value value(announced.text.c_str(), announced.value, announced.position);
  if (m_handler.onValueParse(option.firstName().c_str(), value))
    return status::success;
  error = "Value '" + quoted + "' is not valid for option '" + option.firstName() +
          "' in argument '" + argument + "'";
  // This line has no ": " after the name of the recognizer; tools depend on it.
  trace(error + " One of the handler signaled the value is not valid.");
  return status::valueRefused;
}

// Handlers are notified; their answers are ignored.
void Recognizer::announceOption(const Option& option) {
  m_handler.onOptionParse(option.firstName().c_str());
}

void Recognizer::removeArguments(Arguments& args, int count) const {
  for (int removed = 0; removed < count; ++removed) {
    trace(": removing argument: '" + args.at(0) + "'");
    args.erase(args.begin());
  }
}

NamedRecognizer::NamedRecognizer(EventHandler& handler, int flags)
    : Recognizer("AbbreviationParser", handler, flags) {}

bool NamedRecognizer::recognize(const Arguments& args, const Options& options) {
  m_candidates.clear();
  const std::string& argument = args.at(0);
  trace(": recognizing argument '" + argument + "'");
  if (argument.size() < 2 || getDashLength(argument, 0) == 0)
    return false;
  std::string name;
  splitOptionValue(argument, &name, nullptr);
  const std::vector<std::string> matches = namesMeant(options, name);
  if (matches.empty())
    return false;
  if (matches.size() == 1) {
    m_matchedName = matches[0];
    trace(": best match option for '" + name + "' in argument '" + argument + "' is '" +
          m_matchedName + "'");
    const auto found = findOption(m_matchedName, options);
    m_optionIndex = found.value_or(0);
    return found.has_value();
  }
  for (const std::string& match : matches)
    m_candidates += (m_candidates.empty() ? "'" : ", '") + match + "'";
  trace(": failed to get best match for '" + name + "' in argument '" + argument +
        "':Ambiguous option, possible options are: " + m_candidates);
  return true;
}

// The option is copied before its first event: a handler that amends it does not change the
// occurrence that is being bound.
int NamedRecognizer::parse(Arguments& args, Result* result, const Options& options,
                           std::string& error) {
  trace(": parsing argument '" + args.at(0) + "'");
  std::string name;
  Taken taken;
  const bool isSplitOff = splitOptionValue(args[0], &name, &taken.value);
  // Only an ASCII hyphen counts as a third dash.
  if (name.empty() || startsWithHyphen(name)) {
    error = "Unknown option '" + args[0] + "'";
    return status::usageError;
  }
  if (!m_candidates.empty()) {
    error = "Ambiguous option '" + name + "'" + inArgument(args[0]) + ", could be: " + m_candidates;
    return status::usageError;
  }
  const Option option = options.at(m_optionIndex);
  trace(": detected option: '" + option.firstName() + "'");
  if (isSplitOff)
    trace(": value from the same argument taken: '" + taken.value + "'");
  if (const int outcome = takeValue(option, args, taken, error))
    return outcome;
  announceOption(option);
  trace(": sent event on option parsed");
  if (const int outcome = parseValueAndAddOption(taken.value, error, option, args, result))
    return outcome;
  removeArguments(args, taken.count);
  return status::success;
}

// `taken` has the value from the same argument already. An empty value counts as none: "--level=".
int NamedRecognizer::takeValue(const Option& option, const Arguments& args, Taken& taken,
                               std::string& error) {
  if (option.type == vtNull && !taken.value.empty())
    // There is no blank after the name; tools depend on it.
    return fail(error, "Option '" + option.firstName() + "'does not requires a value" +
                           inArgument(args[0]));
  if (option.type == vtNull)
    return status::success;
  if (option.type == vtBool && !taken.value.empty())
    return fail(error, "Option '" + option.firstName() +
                           "' is boolean and should be declared in form '--option' or "
                           "'--no-option'" +
                           inArgument(args[0]));
  if (!taken.value.empty())
    return status::success;
  if (option.type != vtBool)
    return takeNextArgument(option, args, taken, error);
  taken.value = m_matchedName.compare(0, 3, "no-") == 0 ? "0" : "1";
  return status::success;
}

int NamedRecognizer::takeNextArgument(const Option& option, const Arguments& args, Taken& taken,
                                      std::string& error) {
  const std::string requiresValue =
      "Option '" + option.firstName() + "' requires a value" + inArgument(args[0]);
  trace(": no value in the same argument, looking next");
  if (args.size() < 2)
    return fail(error, requiresValue);
  taken.value = args[1];
  taken.count = 2;
  if (startsWithHyphen(taken.value))
    return fail(error, "Option '" + option.firstName() +
                           "' received value from the next argument: '" + taken.value +
                           "', but it seems to be an option. Use '-option=value' declaration "
                           "form or make sure that value is not missed");
  trace(": got value from the next argument: '" + taken.value + "'");
  if (taken.value.empty())
    return fail(error, requiresValue);
  return status::success;
}

int NamedRecognizer::fail(std::string& error, const std::string& message) const {
  error = message;
  trace(": " + error);
  return status::usageError;
}

PositionalRecognizer::PositionalRecognizer(EventHandler& handler, int flags)
    : Recognizer("PositionalOptionsParser", handler, flags) {}

bool PositionalRecognizer::recognize(const Arguments& args, const Options& options) {
  trace(": recognizing argument '" + args.at(0) + "'");
  if ((flags() & parserFlags::dashArgumentsAreNeverPositional) != 0 && startsWithHyphen(args[0]))
    return false;
  return std::any_of(options.begin(), options.end(), isPositional);
}

// The whole argument is the value. An empty argument gives an occurrence without values.
int PositionalRecognizer::parse(Arguments& args, Result* result, const Options& options,
                                std::string& error) {
  trace(": parsing argument '" + args.at(0) + "'");
  const Option option = *std::find_if(options.begin(), options.end(), isPositional);
  trace(": option is '" + option.firstName() + "'");
  announceOption(option);
  if (const int outcome = parseValueAndAddOption(args[0], error, option, args, result))
    return outcome;
  removeArguments(args, 1);
  return status::success;
}

}  // namespace kivo_3_3::reference
