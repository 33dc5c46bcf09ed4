#pragma once

// Parses, and shows the outcome as one line. Unlike Command, it never reads the position counter,
// which other threads change at the same time.

#include <kivo/kivo.h>

#include <string>
#include <vector>

namespace kivo_3_3::testing {

// Parses a command line; "tool" is put before `args`.
inline int parse(IParser& parser, const std::vector<std::string>& args, IParseResult* result) {
  std::vector<const char*> argv = {"tool"};
  for (const std::string& argument : args)
    argv.push_back(argument.c_str());
  return parser.parseArgsVector(static_cast<int>(argv.size()), argv.data(), result);
}

// The text of a value and, after a colon, its typed form: "0x1F:31", "fast:'fast'".
inline std::string shown(const Value& value) {
  const auto typed = [&]() -> std::string {
    if (value.value.can_get<const char*>())
      return "'" + std::string(value.value.get<const char*>()) + "'";
    if (value.value.type() == vtU64)
      return std::to_string(value.value.get<u64_t>());
    return value.value.type() == vtDouble ? std::to_string(value.value.get<double>())
                                          : std::to_string(value.value.get<s64_t>());
  };
  return value.text + (":" + typed());
}

// What the result has for these options, then the leftover arguments:
//   "level=1:1,2:2 quiet x2 | a b"
inline std::string contentsOf(IParseResult& result, const std::vector<const char*>& options) {
  std::string all;
  for (const char* option : options) {
    if (!result.present(option))
      continue;
    int occurrences = 0;
    while (result.nextPosition() != lastPosition)
      ++occurrences;
    const char* separator = "=";
    all.append(all.empty() ? "" : " ").append(option);
    for (const Value& value : values(result, option)) {
      all += separator + shown(value);
      separator = ",";
    }
    if (occurrences > 1)
      all += " x" + std::to_string(occurrences);
  }
  const char* separator = all.empty() ? "| " : " | ";
  for (const char* argument : leftovers(result)) {
    all.append(separator).append(argument);
    separator = " ";
  }
  return all;
}

// Parses into a new result and shows it; after a failure "2: message".
inline std::string parsed(IParser& parser, const std::vector<std::string>& args,
                          const std::vector<const char*>& options) {
  const ResultHandle result = makeResult(parser);
  const int status = parse(parser, args, result.get());
  return status == 0 ? contentsOf(*result, options)
                     : std::to_string(status) + ": " + parser.getErrorDesc();
}

}  // namespace kivo_3_3::testing
