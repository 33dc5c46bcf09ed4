#include "command_line.h"

#include <kivo/kivo.h>

#include <algorithm>
#include <cstring>
#include <utility>

#include "help.h"

// The command line of textkit: what is declared, and how the result becomes Settings.
//
// Values are not split at commas unless an option says so, because most values here are one thing:
// a number, a file name. Arguments that look like options are never files, so that a misspelt
// option is an error; a file whose name begins with "-" is given after "--".
//
// Only hidden options have a group: help writes the headings of all groups, and in the help on a
// single action most groups would be empty.

namespace textkit {
namespace {

constexpr int parserFlags = kivo::parserFlags::unknownArgumentIsError |
                            kivo::parserFlags::dashArgumentsAreNeverPositional |
                            kivo::parserFlags::noTokenizer;

constexpr unsigned int largestLimit = 100000;
constexpr kivo::u64_t fnvOffsetBasis = 0xcbf29ce484222325;

// Refuses numbers that are well-formed but out of range.
class Bounds final : public kivo::EventHandler {
 public:
  bool onValueParse(const char* name, const kivo::Value& given) override {
    if (std::strcmp(name, "limit") == 0)
      return given.value.get<unsigned int>() <= largestLimit;
    if (std::strcmp(name, "min-ratio") == 0)
      return given.value.get<double>() >= 0.0 && given.value.get<double>() <= 1.0;
    return true;
  }
};

void declareActions(kivo::IParser& parser) {
  parser.action("count,c", "Count lines, words, bytes, characters or blank lines.", kivo::vtNull);
  parser.action("search,s", "Show the lines that hold a text.", kivo::vtNull);
  parser.action("hash,x", "Show the 64-bit FNV-1a hash.", kivo::vtNull)->synonym("checksum");
  parser.action("help,h", "Show the actions, or all about those that are named.", kivo::vtNull);
  parser.action("help-hidden", "Show the options that help leaves out.", kivo::vtNull);
  parser.allowSimultaneousActions({"count", "hash"});
}

void declareCounting(kivo::IParser& parser) {
  // Allowing values turns on splitting at commas, which is wanted here.
  parser
      .modifier("what,w", "count",
                "What to count, separated by commas; lines,words,bytes if absent.", kivo::vtString)
      ->allowValue("lines")
      ->allowValue("words")
      ->allowValue("bytes")
      ->allowValue("chars")
      ->allowValue("blank")
      ->allowDeprecatedValue("octets", "bytes");
  parser
      .modifier("min-ratio,r", "count",
                "Leave out files with a smaller share of lines that are not blank, 0 to 1.",
                kivo::vtDouble)
      ->defaultValue(0.0);
}

void declareSearching(kivo::IParser& parser) {
  parser.modifier("pattern,p", "search", "Texts to look for, separated by commas.", kivo::vtString)
      ->tokenize(',');
  parser.modifier("literal,e", "search", "A text to look for, its commas included.",
                  kivo::vtString);
  parser
      .modifier("ignore-case,i", "search", "Take small and capital letters of ASCII for the same.",
                kivo::vtBool)
      ->defaultValue(false);
  parser.modifier("line-number,n", "search", "Show the number of each line.", kivo::vtBool)
      ->defaultValue(false);
  parser.modifier("limit,l", "search", "Matching lines to show from each file, at most 100000.",
                  kivo::vtU32);
  parser
      .modifier("context,C", "search",
                "Lines to show around a match; with a negative number so many ahead of it only.",
                kivo::vtS32)
      ->defaultValue(0);
}

void declareHashing(kivo::IParser& parser) {
  // If count and hash are given together, modifiers are checked against count alone, the first of
  // the two by name. So a modifier of hash must be a modifier of count too.
  parser
      .modifier("basis,b", "hash,count", "Start value of the hash, as in 0xcbf29ce484222325.",
                kivo::vtU64)
      ->defaultValue(fnvOffsetBasis);
}

void declareGeneral(kivo::IParser& parser) {
  parser
      .modifier(
          "skip,k", "count,search,hash",
          "Bytes to pass over in each file; with a negative number all but so many at its end.",
          kivo::vtS64)
      ->defaultValue(0LL);
  // One format at a time: turns off the splitting that the allowed values have turned on.
  parser.option("format,f", "How to write the result.", kivo::vtString)
      ->allowValue("plain")
      ->allowValue("csv")
      ->defaultValue("plain")
      ->tokenize('\0');
  parser.option("verbose,v", "Tell on standard error what is read.", kivo::vtBool)
      ->defaultValue(false);
  parser
      .option("quiet,q", "Say nothing of files that cannot be read; the later of the two counts.",
              kivo::vtBool)
      ->defaultValue(false);
  parser.addOptionFileOption("A file with further arguments, one a line.", nullptr);
  parser.option("file", "The files to read; standard input if there is none.", kivo::vtString)
      ->positional();
}

void declareHidden(kivo::IParser& parser) {
  parser.option("dry-run", "Read the command line and stop there.", kivo::vtNull,
                "kivo_hidden:For those who test scripts around textkit.");
}

void declareAll(kivo::IParser& parser) {
  declareActions(parser);
  declareCounting(parser);
  declareSearching(parser);
  declareHashing(parser);
  declareGeneral(parser);
  declareHidden(parser);
}

void appendValues(kivo::IParseResult& result, const char* name, std::vector<std::string>& texts) {
  for (const kivo::Value& value : kivo::values(result, name))
    texts.emplace_back(value.text);
}

std::vector<Action> readActions(kivo::IParseResult& result) {
  const std::pair<const char*, Action> known[] = {
      {"count", Action::count}, {"search", Action::search}, {"hash", Action::hash}};
  std::vector<std::pair<int, Action>> given;
  for (const auto& [name, action] : known) {
    if (result.present(name))
      given.emplace_back(result.nextPosition(), action);
  }
  std::sort(given.begin(), given.end());
  std::vector<Action> actions;
  actions.reserve(given.size());
  for (const auto& [position, action] : given)
    actions.push_back(action);
  return actions;
}

std::vector<Measure> readMeasures(kivo::IParseResult& result) {
  std::vector<Measure> measures;
  for (const kivo::Value& value : kivo::values(result, "what")) {
    const std::string text = value.text;
    // Abbreviations have been completed. A deprecated value, here "octets", is delivered unchanged.
    if (text == "lines")
      measures.push_back(Measure::lines);
    else if (text == "words")
      measures.push_back(Measure::words);
    else if (text == "chars")
      measures.push_back(Measure::chars);
    else if (text == "blank")
      measures.push_back(Measure::blank);
    else
      measures.push_back(Measure::bytes);
  }
  if (measures.empty())
    return {Measure::lines, Measure::words, Measure::bytes};
  return measures;
}

Format readFormat(kivo::IParseResult& result) {
  const auto format = kivo::valueOr<std::string>(result, "format", "plain");
  return format == "csv" ? Format::csv : Format::plain;
}

// Whether a value is there and true. Without memory for its declaration an option has no default.
bool isTrue(const kivo::Value& given) { return given.isEmpty == 0 && given.value.get<bool>(); }

// The option given later decides alone, "-no-quiet" and "-no-verbose" included. Both options have
// defaults, and the position of a default is before those of all arguments.
Verbosity readVerbosity(kivo::IParseResult& result) {
  const kivo::Value quiet = kivo::getLastValue(&result, "quiet");
  const kivo::Value verbose = kivo::getLastValue(&result, "verbose");
  if (quiet.position > verbose.position)
    return isTrue(quiet) ? Verbosity::quiet : Verbosity::normal;
  return isTrue(verbose) ? Verbosity::verbose : Verbosity::normal;
}

std::optional<unsigned int> readLimit(kivo::IParseResult& result) {
  const kivo::Value limit = kivo::getLastValue(&result, "limit");
  if (limit.isEmpty != 0)
    return std::nullopt;
  return limit.value.get<unsigned int>();
}

SearchSettings readSearch(kivo::IParseResult& result) {
  SearchSettings search;
  appendValues(result, "pattern", search.patterns);
  appendValues(result, "literal", search.patterns);
  search.ignoreCase = kivo::valueOr(result, "ignore-case", false);
  search.lineNumbers = kivo::valueOr(result, "line-number", false);
  search.limit = readLimit(result);
  search.context = kivo::valueOr(result, "context", 0);
  return search;
}

// An empty argument is an occurrence of `file` without a value. If the tool ignored it, a script's
// unset variable would make the tool wait for standard input.
bool hasEmptyFileName(kivo::IParseResult& result, std::size_t names) {
  if (!result.present("file"))
    return false;
  std::size_t occurrences = 0;
  while (result.nextPosition() != kivo::lastPosition)
    ++occurrences;
  return occurrences != names;
}

// After "--" every argument is a file, whatever it begins with.
void appendLeftovers(kivo::IParseResult& result, std::vector<std::string>& texts) {
  for (const char* text : kivo::leftovers(result))
    texts.emplace_back(text);
}

int usageError(const char* reason, std::string& error) {
  error = reason;
  return kivo::status::usageError;
}

int readSettings(kivo::IParseResult& result, Settings& settings, std::string& error) {
  settings.dryRun = result.present("dry-run");
  settings.actions = readActions(result);
  settings.format = readFormat(result);
  settings.verbosity = readVerbosity(result);
  settings.skip = kivo::valueOr(result, "skip", 0LL);
  settings.count = {readMeasures(result), kivo::valueOr(result, "min-ratio", 0.0)};
  settings.search = readSearch(result);
  settings.hash = {kivo::valueOr(result, "basis", fnvOffsetBasis)};
  appendValues(result, "file", settings.files);

  if (hasEmptyFileName(result, settings.files.size()))
    return usageError("A file name is empty.", error);
  if (settings.actions.empty())
    return usageError("No action defined.", error);
  if (settings.actions.front() == Action::search && settings.search.patterns.empty())
    return usageError("Action '-search' needs a '-pattern' or a '-literal'.", error);
  appendLeftovers(result, settings.files);
  if (settings.files.empty())
    settings.files.push_back("-");
  return kivo::status::success;
}

bool asksForHelp(kivo::IParseResult& result) {
  return result.present("help") || result.present("help-hidden");
}

// With help, the arguments that would be files are topics.
int readHelp(kivo::IParser& parser, kivo::IParseResult& result, Settings& settings,
             std::string& error) {
  std::vector<std::string> topics;
  appendValues(result, "file", topics);
  appendLeftovers(result, topics);
  const bool hidden = result.present("help-hidden");
  if (hidden && !topics.empty())
    return usageError("Action '-help-hidden' takes no topic.", error);
  settings.help = hidden ? parser.getDescription(true) : describeTopics(parser, topics);
  return kivo::status::success;
}

// Whether the description of the tool was asked for; then nothing else is.
bool describeIfAsked(kivo::IParser& parser, int argc, const char* const* argv, Settings& settings) {
  const kivo::ToolInfo tool = {"textkit", "1.0", "Counts, searches and hashes text files."};
  kivo::annotate(parser, nullptr, "exitStatus", "10 A file cannot be read.");
  kivo::annotate(parser, nullptr, "exitStatus", "11 The output cannot be written.");
  int status = kivo::status::success;
  if (!kivo::describeIfAsked(parser, tool, argc, argv, &status))
    return false;
  settings.exitStatus = status;
  return true;
}

// The only failure for which the parser has no error text.
int internalFailure(std::string& error) {
  error = "The command line cannot be read.";
  return kivo::status::exceptionCaught;
}

}  // namespace

int readCommandLine(int argc, const char* const* argv, Settings& settings, std::string& error) {
  Bounds bounds;  // outlives the parser that calls it
  const kivo::ParserHandle parser = kivo::makeParser(parserFlags);
  if (parser == nullptr)
    return internalFailure(error);
  declareAll(*parser);
  if (describeIfAsked(*parser, argc, argv, settings))
    return kivo::status::success;
  parser->addHandler(&bounds);

  const kivo::ResultHandle result = kivo::makeResult(*parser);
  if (result == nullptr)
    return internalFailure(error);
  const int status = parser->parseArgsVector(argc, argv, result.get());
  if (status == kivo::status::exceptionCaught)
    return internalFailure(error);
  if (status != kivo::status::success) {
    error = parser->getErrorDesc();
    return status;
  }
  return asksForHelp(*result) ? readHelp(*parser, *result, settings, error)
                              : readSettings(*result, settings, error);
}

}  // namespace textkit
