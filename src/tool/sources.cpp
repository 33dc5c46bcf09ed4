#include "tool/sources.h"

#include <kivo/status.h>

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <memory>
#include <system_error>
#include <utility>
#include <vector>

#include "tool/arguments.h"
#include "tool/messages.h"
#include "tool/suggestions.h"

namespace kivo_3_3::tool_glue {
namespace {

constexpr std::size_t mostBytes = std::size_t{16} << 20;  // of a file; an endless one is refused

bool isTrue(const std::string& text) { return text == "1" || text == "true"; }
bool isFalse(const std::string& text) { return text == "0" || text == "false"; }

// Why a value was refused; a function of the tool may have thrown something without a text.
std::string reasonOf(const GivenValues& values) {
  return values.failure().empty() ? "The value cannot be read" : values.failure();
}

// Parses words, the first of which is passed over, without storing them. Returns the status.
int parseInto(const Scope& scope, IParser& parser, GivenValues& values,
              const std::vector<const char*>& words, const std::vector<std::string>& unknownNames,
              std::string& failure) {
  const int status = parser.parseArgsVector(static_cast<int>(words.size()), words.data(), nullptr);
  const bool isFromValues = values.failureStatus() != 0;
  if (!isFromValues && status == status::success)
    return status;
  std::string reason = reasonOf(values);
  if (!isFromValues)
    reason = parser.getErrorDesc();
  failure += reason + suggestedOption(scope, unknownNames, reason) + suggestedChoice(scope, reason);
  if (isFromValues)
    return values.failureStatus();
  // A parser that fails without a reason of its own had no memory.
  return status == status::unidentifiedProblem ? int{status::exceptionCaught} : status;
}

// The beginning of an error.
std::string ofVariable(const Declaration& declaration) {
  return "Environment variable " + std::string(declaration.environment) + ": ";
}

int refuse(const Declaration& declaration, const char* expected, std::string& failure) {
  failure = ofVariable(declaration) + "expected " + expected;
  return status::usageError;
}

// Why the variable may not give a flag or a count this often, if that is so.
int checkUse(const Declaration& declaration, unsigned int count, std::string& failure) {
  const std::string reason = refusedUse(declaration, count);
  if (reason.empty())
    return status::success;
  failure = ofVariable(declaration) + reason;
  return status::usageError;
}

// Nothing is given, but a configuration file does not change that.
void outrankFile(Declaration& declaration) {
  declaration.source = std::max(declaration.source, Source::environment);
}

int readTruth(Declaration& declaration, const std::string& text, GivenValues& values,
              std::string& failure) {
  if (!isTrue(text) && !isFalse(text))
    return refuse(declaration, "1, 0, true or false", failure);
  if (const int status = checkUse(declaration, isTrue(text) ? 1 : 0, failure))
    return status;
  if (declaration.use != Use::option && isTrue(text))
    values.give(declaration);
  else if (declaration.use != Use::option)
    outrankFile(declaration);
  if (declaration.use != Use::option || values.giveTruth(declaration, isTrue(text)))
    return status::success;
  failure = ofVariable(declaration) + reasonOf(values);
  return values.failureStatus();
}

int readCount(Declaration& declaration, const std::string& text, GivenValues& values,
              std::string& failure) {
  unsigned int count = 0;
  const auto [end, problem] = std::from_chars(text.data(), text.data() + text.size(), count);
  constexpr unsigned int most = 1'000'000;
  if (problem != std::errc() || end != text.data() + text.size() || count > most)
    return refuse(declaration, "a number up to 1000000", failure);
  if (const int status = checkUse(declaration, count, failure))
    return status;
  outrankFile(declaration);
  for (; count != 0; --count)
    values.give(declaration);
  return status::success;
}

int readOperand(const Scope& scope, Declaration& declaration, const std::string& text,
                GivenValues& values, std::string& failure) {
  if (values.giveOperand(declaration, text.c_str()))
    return status::success;
  const std::string reason = reasonOf(values);
  failure = ofVariable(declaration) + reason + suggestedChoice(scope, reason);
  return values.failureStatus();
}

int readVariable(const Scope& scope, IParser& parser, Declaration& declaration,
                 const std::string& text, GivenValues& values, std::string& failure) {
  if (declaration.use == Use::count)
    return readCount(declaration, text, values, failure);
  if (declaration.isOperand())
    return readOperand(scope, declaration, text, values, failure);
  if (!declaration.takesValue())
    return readTruth(declaration, text, values, failure);
  const std::string argument = "--" + scope.nameOf(declaration) + '=' + text;
  failure = ofVariable(declaration);
  return parseInto(scope, parser, values, {"", argument.c_str()}, {}, failure);
}

struct CloseFile {
  void operator()(std::FILE* file) const { static_cast<void>(std::fclose(file)); }
};

// Returns 0 or the number of the system's error. A file that is too long is no error of the system.
int load(const std::string& path, std::string& text) {
  const std::unique_ptr<std::FILE, CloseFile> file(std::fopen(path.c_str(), "rbe"));
  if (!file)
    return errno;
  char block[65536];
  while (const std::size_t count = std::fread(block, 1, sizeof block, file.get())) {
    text.append(block, count);
    if (text.size() > mostBytes)
      return EFBIG;
  }
  return std::ferror(file.get()) != 0 ? errno : 0;
}

// A line without white space before it and carriage returns after it; empty for a comment.
std::string argumentOf(std::string line) {
  line.erase(line.find_last_not_of('\r') + 1);
  line.erase(0, std::min(line.find_first_not_of(" \t\v\f\r"), line.size()));
  if (line[0] == ';' || line[0] == '#')
    line.clear();
  return line;
}

// The arguments of a file with the numbers of their lines.
struct Line {
  unsigned int number;
  std::string argument;
};
std::vector<Line> linesOf(const std::string& text) {
  std::vector<Line> lines;
  unsigned int number = 0;
  for (std::size_t begin = 0; begin < text.size();) {
    const std::size_t end = std::min(text.find('\n', begin), text.size());
    const std::string argument = argumentOf(text.substr(begin, end - begin));
    ++number;
    if (!argument.empty())
      lines.push_back({number, argument});
    begin = end + 1;
  }
  return lines;
}

// The beginning of an error in a file.
std::string placeIn(const std::string& path, unsigned int line) {
  return path + ':' + std::to_string(line) + ": ";
}

// How often the files give each option without a value. Whether it may be given so often is known
// when all files were read, and counts even where the option is given by another source.
class UsesInFiles {
 public:
  void add(const Declaration& option, const std::string& path, unsigned int line) {
    Use& use = m_uses[&option];
    ++use.count;
    use.path = path;
    use.line = line;
  }

  /// Returns the status; `failure` gets the place of the last use, and what is wrong.
  int check(const Scope& scope, std::string& failure) const {
    for (const Declaration* option : scope.options()) {
      const auto found = m_uses.find(option);
      if (found == m_uses.end())
        continue;
      const std::string reason = refusedUse(*option, found->second.count);
      if (reason.empty())
        continue;
      failure = placeIn(found->second.path, found->second.line) + reason;
      return status::usageError;
    }
    return status::success;
  }

 private:
  struct Use {
    unsigned int count = 0;
    std::string path;
    unsigned int line = 0;
  };
  std::map<const Declaration*, Use> m_uses;
};

// Reads a file line by line, so that errors can tell the line.
class FileReader {
 public:
  FileReader(const Scope& scope, IParser& parser, GivenValues& values, UsesInFiles& uses)
      : m_scope(scope), m_parser(parser), m_values(values), m_uses(uses) {}

  /// Returns the status; `failure` gets the place, and what is wrong there.
  int read(const std::string& path, const std::string& text, std::string& failure) {
    m_path = path;
    m_lines = linesOf(text);
    for (; m_index < m_lines.size(); ++m_index) {
      const Line& line = m_lines[m_index];
      std::string reason;
      const int status = readLine(line.argument, reason);
      if (status != status::success) {
        failure = placeIn(path, line.number) + reason;
        return status;
      }
    }
    return status::success;
  }

 private:
  int readLine(const std::string& argument, std::string& reason) {
    const Word word = m_isEnded ? Word{Word::operand, "", "", false} : wordOf(argument);
    if (argument.find('\0') != std::string::npos)
      reason = "A line of text cannot hold a zero byte";
    else if (word.sort == Word::operand)
      return readOperandLine(argument, reason);
    else if (word.sort == Word::option)
      return readOption(word, argument, reason);
    else
      m_isEnded = true;
    return reason.empty() ? status::success : status::usageError;
  }

  int readOperandLine(const std::string& argument, std::string& reason) {
    const auto& operands = m_scope.operands();
    const bool isRest = !operands.empty() && operands.back()->use == Use::rest;
    if (m_operands++ < operands.size() || isRest)
      return parse({"", "--", argument.c_str()}, reason);
    reason = isUnexpected(argument);
    return status::usageError;
  }

  int readOption(const Word& word, const std::string& argument, std::string& reason) {
    const Declaration* const option = m_scope.resolve(word.name);
    if (option == nullptr)
      return parse({"", argument.c_str()}, reason);
    if (option->isBuiltIn || option->use == Use::config) {
      reason = isForCommandLine(*option);
      return status::usageError;
    }
    if (!option->takesValue())
      m_uses.add(*option, m_path, m_lines[m_index].number);
    if (!option->takesValue() || (word.hasValue && option->takesAnyText()) || !word.value.empty())
      return parse({"", argument.c_str()}, reason);
    const std::string* const next =
        m_index + 1 < m_lines.size() ? &m_lines[m_index + 1].argument : nullptr;
    if (next == nullptr || (next->front() == '-' && *next != "-"))
      return parse({"", argument.c_str()}, reason);
    ++m_index;
    return parse({"", argument.c_str(), next->c_str()}, reason);
  }

  int parse(const std::vector<const char*>& words, std::string& reason) {
    const EarlyOptions none;
    const Arguments arguments(m_scope, none, false, words);
    m_values.replaceMarks(arguments.mark(), arguments.marked());
    return parseInto(m_scope, m_parser, m_values, arguments.words(), arguments.unknownNames(),
                     reason);
  }

  const Scope& m_scope;
  IParser& m_parser;
  GivenValues& m_values;
  UsesInFiles& m_uses;
  std::string m_path;
  std::vector<Line> m_lines;
  std::size_t m_index = 0;
  std::size_t m_operands = 0;
  bool m_isEnded = false;
};

// "~/" at the beginning is the home of the user. Empty, as no file is there, for a user without
// one.
std::string atHome(const std::string& path) {
  if (path.compare(0, 2, "~/") != 0)
    return path;
  // NOLINTNEXTLINE(concurrency-mt-unsafe): nothing here changes the environment
  const char* const home = std::getenv("HOME");
  if (home == nullptr || *home == '\0')
    return "";
  return home + path.substr(1);
}

}  // namespace

bool isConcerned(const Declaration& declaration, const GivenValues& values) {
  if (declaration.only.empty())
    return true;
  const std::string list = ',' + std::string(declaration.only) + ',';
  for (const Declaration* const action : values.actions()) {
    for (const std::string_view name : action->names) {
      if (list.find(',' + std::string(name) + ',') != std::string::npos)
        return true;
    }
  }
  return false;
}

int readEnvironment(const Scope& scope, IParser& parser, GivenValues& values,
                    std::string& failure) {
  values.startSource(Source::environment);
  for (const auto* list : {&scope.options(), &scope.operands()}) {
    for (Declaration* const declaration : *list) {
      if (declaration->environment.empty())
        continue;
      // NOLINTNEXTLINE(concurrency-mt-unsafe): nothing here changes the environment
      const char* const text = std::getenv(declaration->environment.data());
      if (text == nullptr || *text == '\0' || declaration->use == Use::action ||
          !isConcerned(*declaration, values))
        continue;
      const int status = readVariable(scope, parser, *declaration, text, values, failure);
      if (status != status::success)
        return status;
    }
  }
  return status::success;
}

int readConfiguration(const Scope& scope, IParser& parser, GivenValues& values,
                      std::string& failure) {
  values.startSource(Source::config);
  UsesInFiles uses;
  for (Declaration* const declaration : scope.options()) {
    if (declaration->use != Use::config || !isConcerned(*declaration, values))
      continue;
    const bool isNamed = !declaration->texts.empty();
    std::string path = atHome(declaration->path);
    if (isNamed)
      path = declaration->texts.back().text;
    std::string text;
    const int problem = path.empty() ? ENOENT : load(path, text);
    if ((problem == ENOENT || problem == ENOTDIR) && !isNamed)
      continue;
    if (problem != 0) {
      failure = "Cannot read '" + path + "': " + std::generic_category().message(problem);
      return status::usageError;
    }
    const int status = FileReader(scope, parser, values, uses).read(path, text, failure);
    if (status != status::success)
      return status;
  }
  return uses.check(scope, failure);
}

}  // namespace kivo_3_3::tool_glue
