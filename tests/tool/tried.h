#pragma once

#include <kivo/tool.h>

#include <gtest/gtest.h>

#include <initializer_list>
#include <optional>
#include <string>

namespace kivo_3_3 {

/// Whether long double is wider than double: some processors have no such type.
constexpr bool hasLongDouble = sizeof(long double) > sizeof(double);

/// A tool whose output is kept instead of printed.
class Tried : public Tool {
 public:
  explicit Tried(const char* name = "tool", const char* summary = "Tries a tool.",
                 const char* version = "1.0")
      : Tool(name, summary, version) {
    output([this](const char* text, bool isError) { (isError ? err : out) += text; });
  }

  /// The status, or -1 if the tool should go on.
  int run(std::initializer_list<const char*> arguments) {
    const std::optional<int> status = parse(arguments);
    return status.value_or(-1);
  }

  std::string out, err;
};

}  // namespace kivo_3_3
