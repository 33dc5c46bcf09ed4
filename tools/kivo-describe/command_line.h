#pragma once

#include <optional>
#include <string>

#include "formats.h"

namespace kivo_describe {

// What the command line asks for: a text, or what a format makes of a description.
struct Settings {
  std::optional<int> exitStatus;    // the tool has described itself and is done
  std::optional<std::string> text;  // help or version
  const Format* format = nullptr;
  std::optional<std::string> file;  // standard input if there is none
};

// Returns 0, or the exit status of the tool with the reason in `error`.
int readCommandLine(int argc, const char* const* argv, Settings& settings, std::string& error);

}  // namespace kivo_describe
