#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

// What the user wants, in the tool's own terms: the rest of the tool uses these settings and no
// parser. The defaults are declared in command_line.cpp, with the options.
namespace textkit {

enum class Action { count, search, hash };
enum class Format { plain, csv };
enum class Verbosity { quiet, normal, verbose };
enum class Measure { lines, words, bytes, chars, blank };

struct CountSettings {
  std::vector<Measure> measures;  // one column each, in this order
  double minRatio;                // the share of lines that are not blank; files below are left out
};

struct SearchSettings {
  std::vector<std::string> patterns;  // fixed texts; a line that contains one of them matches
  bool ignoreCase;                    // for the letters of ASCII
  bool lineNumbers;
  std::optional<unsigned int> limit;  // matching lines per file; no value: all
  int context;                        // lines around a match; negative: only before it
};

struct HashSettings {
  std::uint64_t basis;
};

struct Settings {
  std::optional<int> exitStatus;    // set if nothing is left to do; all others are unused then
  std::optional<std::string> help;  // to be shown; if set, the following settings are unused
  bool dryRun;                      // only read the command line
  std::vector<Action> actions;      // in the order given; search is always alone
  std::vector<std::string> files;   // at least one, "-" for standard input
  Format format;
  Verbosity verbosity;
  long long skip;  // bytes to skip at the start of each file; negative: all but the last -skip
  CountSettings count;
  SearchSettings search;
  HashSettings hash;
};

}  // namespace textkit
