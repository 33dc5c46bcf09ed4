// One parse, from its defaults to its rules.
//
// 1. parseArgsVector() stores the declared defaults; parseStream() does not.
// 2. Phase one walks the arguments up to "--" and has the recognizers bind them.
// 3. The arguments after "--" are kept as leftover arguments.
// 4. Option files are read, each with steps 2 and 3 of its own.
// 5. Phase two checks what may be given together.
//
// A failure leaves everything that was stored before it. Messages go into m_lastError, which
// the recognizers write into directly.

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

// The result that a parse fills; null for a null result and for one of another class.
Result* storeOf(IParseResult* result) { return dynamic_cast<Result*>(result); }

// Every recognizer is asked. Of those that claim the argument the one of the highest priority
// is chosen, the first on a tie; null where none claims it.
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

// A null entry ends the vector early.
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

// A handler may parse more into the result that is being filled. That only adds arguments:
// option files and rules are left to the outer parse.
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

// The trace is switched by the very first argument only, and by every text anew.
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

// A handler that answers false lets the argument pass where it would be an error.
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

// The separator itself is dropped; a second one is an ordinary leftover argument.
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

// The flag that keeps dashes from being positional does not count here. An argument that is
// not claimed is skipped.
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

// Files named by an option file are read in their turn. The walk over the names keeps its own
// place in the result, so that handlers may read the result meanwhile.
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
