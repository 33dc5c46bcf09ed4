// The stages of one parse: the defaults, the arguments before "--", the arguments after "--", the
// option files, the rules for actions. Their order decides which of several values is the last one.
//
// A stage writes the reason for a failure into the error text of the parser. A success does not
// clear that text.

#include <kivo/status.h>

#include <algorithm>
#include <array>
#include <exception>
#include <typeinfo>

#include "base/quoted.h"
#include "base/running_call.h"
#include "base/trace.h"
#include "bedrock/file.h"
#include "options/value_conversion.h"
#include "parser/action_rules.h"
#include "parser/basic_parser.h"
#include "parser/option_file.h"
#include "recognizers/abbreviation_parser.h"
#include "recognizers/argument_window.h"
#include "recognizers/positional_options_parser.h"
#include "result/parse_result.h"

namespace kivo_3_3 {

namespace {

using std::string;

constexpr const char* optionFile = "option-file";
constexpr const char* argumentSeparator = "--";
constexpr const char* traceSwitch = "kivooption=kivologenable=1";
constexpr int lowestPriority = -99999999;

// `result` as the library's own class; null if `result` is null or of another class.
ParseResult* storeOf(IParseResult* result) {
  const bool isOurs = result != nullptr && typeid(*result) == typeid(ParseResult);
  return isOurs ? static_cast<ParseResult*>(result) : nullptr;
}

// The arguments after the name of the tool, up to the first null pointer.
ArgumentWindow argumentsOf(int argc, const char* const* argv) {
  if (argv == nullptr)
    return ArgumentWindow(nullptr, 0);
  const auto count = std::find(argv + 1, argv + argc, nullptr) - (argv + 1);
  return ArgumentWindow(argv + 1, static_cast<std::size_t>(count));
}

[[gnu::cold]] string unreadable(const char* file) {
  return joined("Error reading option file '", file, "'");
}

[[gnu::cold]] string isUnknown(std::string_view argument) {
  return joined("Unknown option: ", argument);
}

using Arguments = std::vector<const char*, OwnedAllocator<const char*>>;

// The same arguments, with copies of their texts in the memory of `copies`.
[[gnu::cold]] ArgumentWindow copied(ArgumentWindow args, Arguments& copies) {
  OwnedMemory& memory = *copies.get_allocator().memory();
  for (; !args.empty(); args.drop())
    copies.push_back(memory.copy(args.front()).data());
  return ArgumentWindow(copies.data(), copies.size());
}

// The arena for the texts of values; null without a result.
OwnedMemory* textsOf(ParseResult* result) {
  return result != nullptr ? &result->memory() : nullptr;
}

// The number of option files named so far, on the command line and in option files.
std::size_t countOptionFiles(const ParseResult& result) {
  const auto option = result.options().find(optionFile);
  return option ? result.options().given(*option).values.size() : 0;
}

void traceStored(std::string_view argument) {
  internal::traceLine("collectNonparsingArguments: stored argument: '", argument, "'");
}

void traceOutcome(const char* step, int outcome, const string& error) {
  internal::traceLine("collectNonparsingArguments: ", step, " result: ", std::to_string(outcome),
                      ", message: ", error);
}

// Asks every recognizer, because each traces what it makes of the argument. Of the recognizers that
// claim the argument, returns the first one with the highest priority; null if none claims it.
IArgumentParser* chooseRecognizer(const std::array<IArgumentParser*, 2>& recognizers,
                                  ArgumentWindow& args, OptionList& options) {
  IArgumentParser* best = nullptr;
  int bestPriority = lowestPriority;
  string unreported;
  for (IArgumentParser* recognizer : recognizers) {
    if (recognizer->recognize(args, options, unreported) != 0)
      continue;
    const int priority = recognizer->getPriority();
    if (priority > bestPriority) {
      best = recognizer;
      bestPriority = priority;
    }
  }
  return best;
}

}  // namespace

int BasicParser::parseArgsVector(int argc, const char* const* argv, IParseResult* result) {
  try {
    return parseCommandLine(argc, argv, result);
  } catch (const std::exception&) {
    return status::exceptionCaught;
  }
}

// A handler may change or free the caller's arguments, so they are copied if there are handlers.
int BasicParser::parseCommandLine(int argc, const char* const* argv, IParseResult* result) {
  try {
    if (ParseResult* store = storeOf(result)) {
      store->holdDeclarations(m_garbage);
      applyDefaults(*store);
    }
    if (argc <= 1)
      return status::success;
    OwnedMemoryOf<128> memory;
    Arguments copies(&memory);
    ArgumentWindow args = argumentsOf(argc, argv);
    if (listener() != nullptr)
      args = copied(args, copies);
    return parseVector(args, result);
  } catch (const PositionsExhausted&) {
    return unidentifiedProblem();
  }
}

int BasicParser::unidentifiedProblem() {
  m_lastError = "Unidentified problem detected.";
  return status::unidentifiedProblem;
}

// Defaults are converted to text at every parse, because the global locale may have changed. If no
// tool can observe the difference, the texts of the previous parse are reused.
void BasicParser::applyDefaults(ParseResult& result) {
  if (isClassicLocale()) {
    const auto defaults = m_storage.summary().timelessDefaults();
    const auto first =
        defaults != nullptr ? IArgumentParser::drawInARow(defaults->count()) : std::nullopt;
    if (first) {
      result.applyDefaults(defaults, *first);
      return;
    }
  }
  applyEachDefault(result);
}

// Converts the defaults one by one: if a conversion raises, the defaults before it stay stored.
// Each name is stored before its default is converted, so the result knows it even then.
void BasicParser::applyEachDefault(ParseResult& result) {
  std::shared_ptr<DeclaredDefaults> applied;
  m_storage.summary().forEachDefault([&](const OptionDescription& declared) {
    if (applied == nullptr) {
      applied = std::make_shared<DeclaredDefaults>();
      result.applyDefaults(applied, firstPosition);
    }
    const OptionDescription option = declared;
    option.firstName();  // raises without a name
    for (const HashedName& name : option.m_names) {
      if (!result.options().knows(name))
        applied->set({name, "", {}, 0});
      string text;
      appendValue(option.m_type, option.m_defaultValue, text);
      const int position = IArgumentParser::getNewPositionIndex();
      applied->set(
          {name, text.c_str(), option.m_defaultValue, static_cast<std::uint32_t>(position)});
    }
  });
}

int BasicParser::parseStream(const char* text, IParseResult* result) {
  try {
    OwnedMemoryOf<512> memory;
    const bool isCopied = text != nullptr && listener() != nullptr;
    const WhiteSpace isSpace;
    ArgumentWindow args = parseStreamToArgs(isCopied ? memory.copy(text).data() : text, isSpace);
    return parseVector(args, result);
  } catch (const std::exception&) {
    return status::exceptionCaught;
  }
}

// A handler may start another parse with this parser into the same result. The inner parse only
// adds arguments; the outer parse reads the option files and checks the rules for actions.
int BasicParser::parseVector(ArgumentWindow& args, IParseResult* result) {
  const RunningParse parsing(*this, result);
  try {
    parsing.throwIfTooDeep();
    int outcome = parseArguments(args, result);
    if (parsing.isPartOfAParse())
      return outcome;
    if (outcome == status::success && m_optionFileEnabled)
      outcome = readOptionFiles(storeOf(result));
    if (outcome == status::success)
      outcome = parse_phase_two(argumentSeparator, args, result, m_lastError);
    return outcome;
  } catch (const std::exception&) {
    return unidentifiedProblem();
  }
}

int BasicParser::parseArguments(ArgumentWindow& args, IParseResult* result) {
  const int outcome = parse_phase_one(argumentSeparator, args, result, m_lastError);
  return outcome != status::success
             ? outcome
             : collectNonparsingArguments(argumentSeparator, args, storeOf(result), m_lastError);
}

int BasicParser::parse_phase_one(std::string_view separator, ArgumentWindow& args,
                                 IParseResult* result, string& error) {
  internal::kivoLogEnabled = !args.empty() && args.front() == traceSwitch;
  if (internal::kivoLogEnabled)
    args.drop();

  ParseResult* store = storeOf(result);
  if (store != nullptr)
    store->holdDeclarations(m_garbage);
  OptionList& options = m_storage.options();
  PositionalOptionsParser positional(listener(), textsOf(store), m_flags, m_storage.summary());
  AbbreviationParser named(listener(), textsOf(store), m_flags, m_storage.names());
  const std::array<IArgumentParser*, 2> recognizers = {&positional, &named};
  while (!args.empty() && args.front() != separator) {
    IArgumentParser* recognizer = chooseRecognizer(recognizers, args, options);
    unsigned int optionIndex = 0;
    const int passed = recognizer != nullptr
                           ? recognizer->parse(args, store, options, optionIndex, error)
                           : passUnknown(args, error);
    if (passed != status::success)
      return passed;
  }
  return status::success;
}

// Drops the first argument, which no recognizer claims. Instead, reports an error if unknown
// arguments are errors and no handler has returned false.
int BasicParser::passUnknown(ArgumentWindow& args, string& error) {
  const std::string_view argument = args.front();
  const bool accepted = onUknownArgument(string(argument).c_str());
  if (accepted && (m_flags & parserFlags::unknownArgumentIsError) != 0) {
    error = isUnknown(argument);
    return status::usageError;
  }
  internal::traceLine("ignoring ", argument);
  args.drop();
  return status::success;
}

// parse_phase_one() has stopped at the separator, or at the end of the arguments.
int BasicParser::collectNonparsingArguments(std::string_view separator, ArgumentWindow& args,
                                            ParseResult* result, string& error) {
  if (args.empty() || args.front() != separator)
    return status::success;
  PositionalOptionsParser positional(listener(), textsOf(result),
                                     m_flags & ~parserFlags::dashArgumentsAreNeverPositional,
                                     m_storage.summary());
  ArgumentWindow rest = args;
  for (rest.drop(); !rest.empty(); rest.drop()) {
    const std::string_view argument = rest.front();
    const int position = IArgumentParser::getNewPositionIndex();
    if (result != nullptr)
      result->addArgument(argument, position);
    traceStored(argument);
    if ((m_flags & parserFlags::leftoverArgumentsArePositional) == 0)
      continue;
    const int bound = bindLeftover(rest, positional, result, error);
    if (bound != status::success)
      return bound;
  }
  args = rest;
  return status::success;
}

// Binds the first of `args`, a leftover argument, if the positional option claims it.
int BasicParser::bindLeftover(ArgumentWindow args, PositionalOptionsParser& recognizer,
                              ParseResult* result, string& error) {
  OptionList& options = m_storage.options();
  const int recognized = recognizer.recognize(args, options, error);
  traceOutcome("recognize", recognized, error);
  if (recognized != 0)
    return status::success;
  unsigned int optionIndex = 0;
  const int parsed = recognizer.parse(args, result, options, optionIndex, error);
  traceOutcome("parse", parsed, error);
  return parsed;
}

int BasicParser::parse_phase_two(std::string_view, ArgumentWindow&, IParseResult* result,
                                 string& error) {
  const ParseResult* store = storeOf(result);
  if (store == nullptr)
    return status::success;
  const bool hasActions = m_storage.summary().hasActions();
  if (!hasActions && !store->isFilledByMany())
    return status::success;  // no rule applies
  return ActionRules(m_storage, m_simultaneousActions).check(store->options(), error);
}

// The cursor of the result walks the names of the files. After each file the cursor returns to its
// place, because a handler may have moved it.
int BasicParser::readOptionFiles(ParseResult* result) {
  if (result == nullptr)
    return status::success;
  ResultCursor& cursor = result->cursor();
  OptionFileTrail trail;
  Value file = cursor.get(optionFile, firstPosition, lastPosition);
  while (const char* name = file.as<const char*>()) {
    trail.named(countOptionFiles(*result));
    if (!trail.enter(BEDROCK::file_identity(name))) {
      m_lastError = unreadable(name);
      return status::optionFileUnreadable;
    }
    const ResultCursor::Place place = cursor.place();
    const int read = readOptionFile(name, result);
    if (read != status::success)
      return read;
    cursor.returnTo(place);
    file = cursor.next();
  }
  return status::success;
}

int BasicParser::readOptionFile(const char* name, ParseResult* result) {
  string text;
  if (BEDROCK::load_file(name, text) != 0) {
    m_lastError = unreadable(name);
    return status::optionFileUnreadable;
  }
  const WhiteSpace isSpace;
  ArgumentWindow args = parseStreamToArgs(text.c_str(), isSpace);
  return parseArguments(args, result);
}

}  // namespace kivo_3_3
