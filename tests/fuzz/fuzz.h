#pragma once

// A fuzz target is one function that runs one input and traps if a rule is broken. libFuzzer calls
// it with generated inputs, replay.cpp with the files of the corpus.

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace kivo_3_3::fuzzing {

// Prints the rule and the details, and traps. It does not use the C++ streams, because targets
// redirect them.
[[noreturn]] inline void broken(const std::string& rule, const std::string& details) {
  std::fprintf(stderr, "Broken rule: %s\n%s\n", rule.c_str(), details.c_str());
  std::fflush(stderr);
  __builtin_trap();
}

inline void expect(bool holds, const char* rule, const std::string& details) {
  if (!holds)
    broken(rule, details);
}

inline void expectEqual(const char* rule, const std::string& expected, const std::string& actual) {
  if (expected != actual)
    broken(rule, "expected: " + expected + "\nactual:   " + actual);
}

}  // namespace kivo_3_3::fuzzing
