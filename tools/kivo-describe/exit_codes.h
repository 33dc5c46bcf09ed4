#pragma once

namespace kivo_describe {

// The exit statuses of this tool beside those of a parse, as its page tells them.
struct ExitCode {
  int number;
  const char* meaning;
};

constexpr ExitCode inputUnreadable = {10, "The description cannot be read."};
constexpr ExitCode inputInvalid = {11, "The text is not the description of a tool."};
constexpr ExitCode outputUnwritable = {12, "The output cannot be written."};
constexpr ExitCode exitCodes[] = {inputUnreadable, inputInvalid, outputUnwritable};

}  // namespace kivo_describe
