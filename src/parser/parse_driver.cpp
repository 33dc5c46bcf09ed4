// The road of one parse: defaults, then the arguments one by one, what stands behind
// "--", the option files, and at last the rules for actions.
//
// A phase writes its message straight into the parser's last error; success does not
// clear it.

#include <kivo/status.h>

#include <algorithm>
#include <array>
#include <exception>
#include <new>

#include "base/quoted.h"
#include "base/running_call.h"
#include "base/trace.h"
#include "bedrock/file.h"
#include "parser/action_rules.h"
#include "parser/argument_window.h"
#include "parser/basic_parser.h"
#include "parser/option_file.h"
#include "recognizers/abbreviation_parser.h"
#include "recognizers/positional_options_parser.h"
#include "result/parse_result.h"

namespace kivo_3_3 {

namespace {

using std::string;

constexpr const char* optionFile = "option-file";
constexpr const char* argumentSeparator = "--";
constexpr const char* traceSwitch = "kivooption=kivologenable=1";
constexpr int lowestPriority = -99999999;

// The result behind the interface; null for none, and for one that is not our own.
ParseResult* storeOf(IParseResult* result) { return dynamic_cast<ParseResult*>(result); }

std::vector<string> argumentsOf(int argc, const char* const* argv) {
  if (argv == nullptr)
    return {};
  return {argv + 1, std::find(argv + 1, argv + argc, nullptr)};
}

string unreadable(const string& file) { return "Error reading option file " + quoted(file); }

// So many option files have been named on the command line and in option files.
std::size_t countOptionFiles(const ParseResult& result) {
  return result.options().find(optionFile)->second.values.size();
}

void traceStored(const string& argument) {
  internal::traceLine([&](std::ostream& out) {
    out << "collectNonparsingArguments: stored argument: '" << argument << "'";
  });
}

void traceOutcome(const char* step, int outcome, const string& error) {
  internal::traceLine([&](std::ostream& out) {
    out << "collectNonparsingArguments: " << step << " result: " << outcome
        << ", message: " << error;
  });
}

// Every recognizer is asked, for each gives its own account of the argument. Of those
// that claim it the one of the highest priority is chosen, on a tie the first; null
// where nobody claims it.
IArgumentParser* chooseRecognizer(const std::array<IArgumentParser*, 2>& recognizers,
                                  std::vector<string>& args,
                                  std::vector<OptionDescription>& options) {
  IArgumentParser* best = nullptr;
  int bestPriority = lowestPriority;
  for (IArgumentParser* recognizer : recognizers) {
    string message;  // what recognize() says is not reported
    if (recognizer->recognize(args, options, message) == 0 &&
        recognizer->getPriority() > bestPriority) {
      best = recognizer;
      bestPriority = recognizer->getPriority();
    }
  }
  return best;
}

}  // namespace

int BasicParser::parseArgsVector(int argc, const char* const* argv, IParseResult* result) {
  try {
    if (ParseResult* store = storeOf(result))
      m_storage.index().forEachDefault(m_storage.options(),
                                       [&](const auto& option) { store->applyDefault(option); });
    if (argc <= 1)
      return status::success;
    std::vector<string> args = argumentsOf(argc, argv);
    return parseVector(args, result);
  } catch (const std::exception&) {
    return status::exceptionCaught;
  }
}

int BasicParser::parseStream(const char* text, IParseResult* result) {
  try {
    std::vector<string> args;
    parseStreamToArgs(text, args);
    return parseVector(args, result);
  } catch (const std::exception&) {
    return status::exceptionCaught;
  }
}

// A handler may parse more into the result being filled. That only adds arguments: the
// option files, and what is to hold for all arguments together, are left to this parse.
int BasicParser::parseVector(std::vector<string>& args, IParseResult* result) {
  const PinnedDeclarations pinned(m_storage);
  const RunningCall parsing(*this, result);
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
    m_lastError = "Unidentified problem detected.";
    return status::unidentifiedProblem;
  }
}

int BasicParser::parseArguments(std::vector<string>& args, IParseResult* result) {
  const int outcome = parse_phase_one(argumentSeparator, args, result, m_lastError);
  return outcome != status::success
             ? outcome
             : collectNonparsingArguments(argumentSeparator, args, storeOf(result), m_lastError);
}

int BasicParser::parse_phase_one(const string& separator, std::vector<string>& args,
                                 IParseResult* result, string& error) {
  ArgumentWindow window(args);
  internal::kivoLogEnabled = !window.view().empty() && window.front() == traceSwitch;
  if (internal::kivoLogEnabled)
    window.dropFront();

  ParseResult* store = storeOf(result);
  std::vector<OptionDescription>& options = m_storage.options();
  PositionalOptionsParser positional(*this, m_garbage, m_flags, m_storage.index());
  AbbreviationParser named(*this, m_garbage, m_flags, m_storage.index());
  const std::array<IArgumentParser*, 2> recognizers = {&positional, &named};
  while (window.advance() && window.front() != separator) {
    IArgumentParser* recognizer = chooseRecognizer(recognizers, window.view(), options);
    if (recognizer == nullptr) {
      const bool accepted = onUknownArgument(window.front().c_str());
      if (accepted && (m_flags & parserFlags::unknownArgumentIsError) != 0) {
        error = "Unknown option: " + window.front();
        return status::usageError;
      }
      internal::traceLine([&](std::ostream& out) { out << "ignoring " << window.front(); });
      window.dropFront();
      continue;
    }
    unsigned int optionIndex = 0;
    const int parsed = recognizer->parse(window.view(), store, options, optionIndex, error);
    if (parsed != status::success)
      return parsed;
  }
  return status::success;
}

int BasicParser::collectNonparsingArguments(const string& separator, std::vector<string>& args,
                                            ParseResult* result, string& error) {
  const auto end = std::find(args.begin(), args.end(), separator);
  if (end == args.end())
    return status::success;
  PositionalOptionsParser positional(
      *this, m_garbage, m_flags & ~parserFlags::dashArgumentsAreNeverPositional, m_storage.index());
  for (auto argument = end + 1; argument != args.end(); ++argument) {
    const int position = IArgumentParser::getNewPositionIndex();
    if (result != nullptr)
      result->addArgument(*argument, position);
    traceStored(*argument);
    if ((m_flags & parserFlags::leftoverArgumentsArePositional) == 0)
      continue;
    const int bound = bindLeftover(*argument, positional, result, error);
    if (bound != status::success)
      return bound;
  }
  args.erase(end, args.end());
  return status::success;
}

// A leftover argument that the positional option does not claim is merely kept.
int BasicParser::bindLeftover(const string& argument, PositionalOptionsParser& recognizer,
                              ParseResult* result, string& error) {
  std::vector<string> args = {argument};
  std::vector<OptionDescription>& options = m_storage.options();
  const int recognized = recognizer.recognize(args, options, error);
  traceOutcome("recognize", recognized, error);
  if (recognized != 0)
    return status::success;
  unsigned int optionIndex = 0;
  const int parsed = recognizer.parse(args, result, options, optionIndex, error);
  traceOutcome("parse", parsed, error);
  return parsed;
}

int BasicParser::parse_phase_two(const string&, std::vector<string>&, IParseResult* result,
                                 string& error) {
  const ParseResult* store = storeOf(result);
  if (store == nullptr)
    return status::success;
  return ActionRules(m_storage, m_simultaneousActions).check(store->options(), error);
}

// The result's own cursor walks the names, and goes on where it was after each file,
// whatever a handler has read meanwhile.
int BasicParser::readOptionFiles(ParseResult* result) {
  if (result == nullptr || !result->present(optionFile, firstPosition, lastPosition))
    return status::success;
  OptionFileTrail trail;
  Value file = result->get(optionFile, firstPosition, lastPosition);
  while (const char* name = file.as<const char*>()) {
    if (*name == '\0')
      throw std::bad_alloc();  // no name is empty, but a text for which memory ran out
    trail.named(countOptionFiles(*result));
    if (!trail.enter(BEDROCK::file_identity(name))) {
      m_lastError = unreadable(name);
      return status::optionFileUnreadable;
    }
    const ResultCursor::Place place = result->cursor().place();
    const int read = readOptionFile(name, result);
    if (read != status::success)
      return read;
    result->cursor().returnTo(place);
    file = result->next(optionFile);
  }
  return status::success;
}

int BasicParser::readOptionFile(const char* name, ParseResult* result) {
  string text;
  if (BEDROCK::load_file(name, text) != 0) {
    m_lastError = unreadable(name);
    return status::optionFileUnreadable;
  }
  std::vector<string> args;
  parseStreamToArgs(text.c_str(), args);
  return parseArguments(args, result);
}

}  // namespace kivo_3_3
