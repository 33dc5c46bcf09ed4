// The steps of one parse:
//
// 1. parseArgsVector() stores the declared defaults; parseStream() does not.
// 2. Phase one walks the arguments up to "--" and has the recognizers bind them.
// 3. The arguments after "--" are kept as leftover arguments.
// 4. Option files are read, each with steps 2 and 3 of its own.
// 5. Phase two checks which actions and modifiers may be given together.
//
// After a failure, everything that was stored before it stays stored. Messages are written to
// m_lastError, to which the recognizers get a reference.

#include <kivo/status.h>

#include <algorithm>

#include "bedrock/file.h"
#include "reference/parser.h"
#include "reference/positions.h"
#include "reference/trace.h"

namespace kivo_3_3::reference {

namespace {

constexpr const char* argumentSeparator = "--";
constexpr const char* traceOn = "kivooption=kivologenable=1";
constexpr const char* optionFile = "option-file";
constexpr const char* unidentifiedProblem = "Unidentified problem detected.";
constexpr int lowestPriority = -99999999;

// The result to fill. Null if the tool gave none, or one of another class.
Result* storeOf(IParseResult* result) { return dynamic_cast<Result*>(result); }

// Asks every recognizer. Returns the recognizer with the highest priority of those that claim the
// argument, the first one on a tie; null if none claims it.
Recognizer* chooseRecognizer(const std::vector<Recognizer*>& recognizers, const Arguments& args,
                             const Options& options) {
  Recognizer* best = nullptr;
  int bestPriority = lowestPriority;
  for (Recognizer* recognizer : recognizers)
    if (recognizer->recognize(args, options) && recognizer->priority() > bestPriority) {
      best = recognizer;
      bestPriority = recognizer->priority();
    }
  return best;
}

std::string unreadable(const std::string& file) {
  return "Error reading option file '" + file + "'";
}

void traceOutcome(const std::string& step, int outcome, const std::string& error) {
  traceLine("collectNonparsingArguments: " + step + " result: " + std::to_string(outcome) +
            ", message: " + error);
}

}  // namespace

// A null entry in argv ends the arguments early.
int Parser::parseArgsVector(int argc, const char* const* argv, IParseResult* result) {
  try {
    Result* const store = storeOf(result);
    if (store != nullptr)
      store->applyDefaults(m_registry.options());
    if (argc <= 1)
      return status::success;
    Arguments args;
    for (int index = 1; argv != nullptr && index < argc && argv[index] != nullptr; ++index)
      args.emplace_back(argv[index]);
    return parseVector(args, store);
  } catch (const PositionsExhausted&) {
    m_lastError = unidentifiedProblem;
    return status::unidentifiedProblem;
  } catch (const std::exception&) {
    return status::exceptionCaught;
  }
}

int Parser::parseStream(const char* text, IParseResult* result) {
  try {
    Arguments args = argumentsOfText(text != nullptr ? text : "");
    return parseVector(args, storeOf(result));
  } catch (const std::exception&) {
    return status::exceptionCaught;
  }
}

// A handler may start a nested parse by the same parser into the same result. The nested parse only
// stores its arguments; the outer parse reads the option files and checks the rules.
int Parser::parseVector(Arguments& args, Result* result) {
  const RunningParse parsing(*this, result);
  try {
    throwIfTooDeep();
    if (const int outcome = parseArguments(args, result))
      return outcome;
    if (result == nullptr || parsing.isPartOfOuterParse())
      return status::success;
    if (const int outcome = readOptionFiles(*result))
      return outcome;
    return parsePhaseTwo(*result);
  } catch (const std::exception&) {
    m_lastError = unidentifiedProblem;
    return status::unidentifiedProblem;
  }
}

int Parser::parseArguments(Arguments& args, Result* result) {
  if (const int outcome = parsePhaseOne(args, result))
    return outcome;
  return collectNonparsingArguments(args, result);
}

// Each command line and each text sets the trace switch anew: on if its very first argument is the
// switch, off otherwise.
int Parser::parsePhaseOne(Arguments& args, Result* result) {
  traceSwitch() = !args.empty() && args[0] == traceOn;
  if (traceSwitch())
    args.erase(args.begin());
  PositionalRecognizer positional(*this, m_flags);
  NamedRecognizer named(*this, m_flags);
  while (!args.empty() && args[0] != argumentSeparator) {
    const Options& options = m_registry.options();
    Recognizer* const recognizer = chooseRecognizer({&positional, &named}, args, options);
    const int outcome = recognizer != nullptr
                            ? recognizer->parse(args, result, options, m_lastError)
                            : passOverUnknown(args);
    if (outcome != status::success)
      return outcome;
  }
  return status::success;
}

// If unknown arguments are errors, a handler can still let an argument pass by answering false.
int Parser::passOverUnknown(Arguments& args) {
  const bool accepted = onUknownArgument(args[0].c_str());
  if ((m_flags & parserFlags::unknownArgumentIsError) != 0 && accepted) {
    m_lastError = "Unknown option: " + args[0];
    return status::usageError;
  }
  traceLine("ignoring " + args[0]);
  args.erase(args.begin());
  return status::success;
}

// The separator itself is dropped. A second separator is an ordinary leftover argument.
int Parser::collectNonparsingArguments(Arguments& args, Result* result) {
  const auto separator = std::find(args.begin(), args.end(), argumentSeparator);
  if (separator == args.end())
    return status::success;
  for (auto argument = separator + 1; argument != args.end(); ++argument) {
    const int position = drawPosition();
    if (result != nullptr)
      result->addArgument(*argument, position);
    traceLine("collectNonparsingArguments: stored argument: '" + *argument + "'");
    if ((m_flags & parserFlags::leftoverArgumentsArePositional) == 0)
      continue;
    if (const int outcome = offerToPositional(*argument, result))
      return outcome;
  }
  args.erase(separator, args.end());
  return status::success;
}

// The flag dashArgumentsAreNeverPositional does not count after "--". An argument that the
// recognizer does not claim is no error.
int Parser::offerToPositional(const std::string& argument, Result* result) {
  PositionalRecognizer positional(*this, m_flags & ~parserFlags::dashArgumentsAreNeverPositional);
  Arguments args = {argument};
  const bool isClaimed = positional.recognize(args, m_registry.options());
  traceOutcome("recognize", isClaimed ? 0 : 1, m_lastError);
  if (!isClaimed)
    return status::success;
  const int outcome = positional.parse(args, result, m_registry.options(), m_lastError);
  traceOutcome("parse", outcome, m_lastError);
  return outcome;
}

// Files are read in the order in which they were named, so a file that an option file names is read
// after those that were named before it. The cursor is saved and restored around each file:
// handlers may query the result meanwhile.
int Parser::readOptionFiles(Result& result) {
  if (!m_optionFileEnabled || !result.present(optionFile, firstPosition, lastPosition))
    return status::success;
  Value file = result.get(optionFile, firstPosition, lastPosition);
  OptionFileQueue queue;
  while (file.as<const char*>() != nullptr) {
    const std::string name = file.as<const char*>();
    const Result::Cursor place = result.cursor();
    queue.named(result.countValues(optionFile));
    if (!queue.enter(name)) {
      m_lastError = unreadable(name);
      return status::optionFileUnreadable;
    }
    if (const int outcome = readOptionFile(name, result))
      return outcome;
    result.setCursor(place);
    file = result.next(optionFile);
  }
  return status::success;
}

// The text of a file ends at its first zero byte.
int Parser::readOptionFile(const std::string& name, Result& result) {
  std::string text;
  if (BEDROCK::load_file(name.c_str(), text) != 0) {
    m_lastError = unreadable(name);
    return status::optionFileUnreadable;
  }
  text.erase(std::min(text.find('\0'), text.size()));
  Arguments args = argumentsOfText(text);
  return parseArguments(args, &result);
}

int Parser::parsePhaseTwo(const Result& result) {
  return checkActions(result.options(), m_registry.options(), m_simultaneousActions, m_lastError);
}

}  // namespace kivo_3_3::reference
