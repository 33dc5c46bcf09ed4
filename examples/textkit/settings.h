#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

// What the user wants, in the tool's own terms: the rest of the tool reads this and
// never sees a parser. The defaults are declared in command_line.cpp, with the options.
namespace textkit {

enum class Action { count, search, hash };
enum class Format { plain, csv };
enum class Verbosity { quiet, normal, verbose };
enum class Measure { lines, words, bytes, chars, blank };

struct CountSettings {
  std::vector<Measure> measures;  // one column each, in this order
  double minRatio;                // of lines that are not blank; files below it are left out
};

struct SearchSettings {
  std::vector<std::string> patterns;  // fixed texts; a line that holds one of them matches
  bool ignoreCase;                    // for the letters of ASCII
  bool lineNumbers;
  std::optional<unsigned int> limit;  // matching lines to a file, none for all of them
  int context;                        // lines around a match; negative: only ahead of it
};

struct HashSettings {
  std::uint64_t basis;
};

struct Settings {
  std::optional<std::string> help;  // to be shown; nothing else is asked for then
  bool dryRun;                      // do nothing
  std::vector<Action> actions;      // in the order given; search is never with another one
  std::vector<std::string> files;   // at least one, "-" for standard input
  Format format;
  Verbosity verbosity;
  long long skip;  // bytes at the start of each file; negative: all but so many at its end
  CountSettings count;
  SearchSettings search;
  HashSettings hash;
};

}  // namespace textkit
