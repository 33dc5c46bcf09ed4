#include "tool/sources.h"

#include <kivo/status.h>

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <new>
#include <system_error>
#include <vector>

#include "tool/arguments.h"

namespace kivo_3_3::tool_glue {
namespace {

constexpr std::size_t mostBytes = std::size_t{16} << 20;  // of a file; an endless one is refused

bool isTrue(const std::string& text) { return text == "1" || text == "true"; }
bool isFalse(const std::string& text) { return text == "0" || text == "false"; }

// Parses arguments without storing them. Returns the status.
int parseInto(IParser& parser, GivenValues& values, std::vector<const char*> arguments,
              std::string& failure) {
  arguments.insert(arguments.begin(), "");
  const int status =
      parser.parseArgsVector(static_cast<int>(arguments.size()), arguments.data(), nullptr);
  if (values.failureStatus() != 0) {
    failure += values.failure();
    return values.failureStatus();
  }
  if (status == status::unidentifiedProblem)  // of the parser itself: it had no memory
    throw std::bad_alloc();
  if (status != status::success)
    failure += parser.getErrorDesc();
  return status;
}

// The value that a deprecated one stands for: only the command line warns of it.
std::string replaced(const Declaration& declaration, const std::string& text) {
  for (const auto& [former, now] : declaration.deprecatedChoices) {
    if (former == text)
      return now;
  }
  return text;
}

int refuse(const Declaration& declaration, const char* expected, std::string& failure) {
  failure = "Environment variable " + declaration.environment + ": expected " + expected;
  return status::usageError;
}

int readTruth(Declaration& declaration, const std::string& text, GivenValues& values,
              std::string& failure) {
  if (!isTrue(text) && !isFalse(text))
    return refuse(declaration, "1, 0, true or false", failure);
  if (declaration.use != Use::option && isTrue(text))
    values.give(declaration);
  if (declaration.use != Use::option || values.giveTruth(declaration, isTrue(text)))
    return status::success;
  failure = "Environment variable " + declaration.environment + ": " + values.failure();
  return values.failureStatus();
}

int readCount(Declaration& declaration, const std::string& text, GivenValues& values,
              std::string& failure) {
  unsigned int count = 0;
  const auto [end, problem] = std::from_chars(text.data(), text.data() + text.size(), count);
  constexpr unsigned int most = 1'000'000;
  if (problem != std::errc() || end != text.data() + text.size() || count > most)
    return refuse(declaration, "a number", failure);
  for (; count != 0; --count)
    values.give(declaration);
  return status::success;
}

int readVariable(const Scope& scope, IParser& parser, Declaration& declaration,
                 const std::string& text, GivenValues& values, std::string& failure) {
  if (declaration.use == Use::count)
    return readCount(declaration, text, values, failure);
  if (!declaration.takesValue())
    return readTruth(declaration, text, values, failure);
  const std::string argument = "--" + scope.nameOf(declaration) + '=' + replaced(declaration, text);
  failure = "Environment variable " + declaration.environment + ": ";
  return parseInto(parser, values, {argument.c_str()}, failure);
}

struct CloseFile {
  void operator()(std::FILE* file) const { std::fclose(file); }
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
  return line.empty() || line[0] == ';' || line[0] == '#' ? "" : line;
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

// Whether the value of an option is in the line after its name.
bool waitsForNext(const Scope& scope, const std::string& argument) {
  const Word word = wordOf(argument);
  if (word.sort != Word::option || !word.value.empty())
    return false;
  const Declaration* const declaration = scope.resolve(word.name.c_str());
  return declaration != nullptr && declaration->takesValue();
}

int readLines(const Scope& scope, IParser& parser, const std::string& path,
              const std::vector<Line>& lines, GivenValues& values, std::string& failure) {
  bool isEnded = false;
  for (std::size_t index = 0; index < lines.size(); ++index) {
    const Line& line = lines[index];
    if (!isEnded && line.argument == "--") {
      isEnded = true;
      continue;
    }
    std::vector<const char*> arguments{line.argument.c_str()};
    if (isEnded)
      arguments.insert(arguments.begin(), "--");
    else if (waitsForNext(scope, line.argument) && index + 1 < lines.size())
      arguments.push_back(lines[++index].argument.c_str());
    std::string reason;
    const int status = parseInto(parser, values, arguments, reason);
    if (status != status::success) {
      failure = path + ':' + std::to_string(line.number) + ": " + reason;
      return status;
    }
  }
  return status::success;
}

// "~/" at the beginning is the home of the user.
std::string atHome(const std::string& path) {
  const char* const home = std::getenv("HOME");
  return path.compare(0, 2, "~/") == 0 && home != nullptr ? home + path.substr(1) : path;
}

}  // namespace

bool isConcerned(const Declaration& declaration, const GivenValues& values) {
  if (declaration.only.empty())
    return true;
  const std::string list = ',' + declaration.only + ',';
  return std::any_of(values.actions().begin(), values.actions().end(), [&](const auto* action) {
    return std::any_of(action->names.begin(), action->names.end(), [&](const std::string& name) {
      return list.find(',' + name + ',') != std::string::npos;
    });
  });
}

int readEnvironment(const Scope& scope, IParser& parser, GivenValues& values,
                    std::string& failure) {
  values.startSource(Source::environment);
  for (Declaration* const declaration : scope.options()) {
    const char* const text = std::getenv(declaration->environment.c_str());
    if (declaration->environment.empty() || text == nullptr || *text == '\0' ||
        !isConcerned(*declaration, values))
      continue;
    const int status = readVariable(scope, parser, *declaration, text, values, failure);
    if (status != status::success)
      return status;
  }
  return status::success;
}

int readConfiguration(const Scope& scope, IParser& parser, GivenValues& values,
                      std::string& failure) {
  values.startSource(Source::config);
  for (Declaration* const declaration : scope.options()) {
    if (declaration->use != Use::config)
      continue;
    const bool isNamed = !declaration->texts.empty();
    const std::string path = isNamed ? declaration->texts.back().text : atHome(declaration->path);
    std::string text;
    const int problem = path.empty() ? ENOENT : load(path, text);
    if (problem == ENOENT && !isNamed)
      continue;
    if (problem != 0) {
      failure = "Cannot read '" + path + "': " + std::generic_category().message(problem);
      return status::usageError;
    }
    const int status = readLines(scope, parser, path, linesOf(text), values, failure);
    if (status != status::success)
      return status;
  }
  return status::success;
}

}  // namespace kivo_3_3::tool_glue
