#pragma once

// Parses, and reads a result back through its interface as one text.

#include <kivo/kivo.h>

#include <cstdio>
#include <set>
#include <string>
#include <vector>

#include "base/trace.h"
#include "fuzz/fuzz.h"
#include "recognizers/argument_parser.h"

namespace kivo_3_3::fuzzing {

// Resets the state of the process, so that the outcome of an input does not depend on what ran
// before it.
inline void startAfresh() {
  IArgumentParser::m_idx = 1;
  internal::kivoLogEnabled = false;
}

inline int parse(IParser& parser, const std::vector<std::string>& args, IParseResult* result) {
  std::vector<const char*> argv = {"tool"};
  for (const std::string& argument : args)
    argv.push_back(argument.c_str());
  return parser.parseArgsVector(static_cast<int>(argv.size()), argv.data(), result);
}

// The type and the value, exact to the last bit.
inline std::string exactly(const variant_t& value) {
  std::string text = std::to_string(value.type()) + ":";
  char hexadecimal[32] = "";
  if (value.can_get<u64_t>())
    text += std::to_string(value.get<u64_t>());
  else if (value.can_get<double>())
    std::snprintf(hexadecimal, sizeof hexadecimal, "%a", value.get<double>());
  else if (value.can_get<const char*>())
    text += value.get<const char*>();
  return text + hexadecimal;
}

// A value as "text(type:value)@position"; "nothing" for "no value".
inline std::string shown(const Value& value, int base) {
  if (value.isEmpty != 0)
    return "nothing";
  return (value.text != nullptr ? value.text : "-") + ("(" + exactly(value.value)) + ")@" +
         std::to_string(value.position - base);
}

// Checks that positions rise; `base` is the last position before them. If an option has one name
// twice, each occurrence is stored twice under that name, so its positions repeat.
class Rising {
 public:
  Rising(int base, bool mayRepeat) : m_base(base), m_last(base), m_mayRepeat(mayRepeat) {}

  std::string next(int position) {
    expect(position > m_last || m_mayRepeat, "positions rise",
           std::to_string(position) + " after " + std::to_string(m_last));
    m_last = position;
    return "@" + std::to_string(position - m_base) + " ";
  }

 private:
  int m_base;
  int m_last;
  bool m_mayRepeat;
};

inline std::string renderedOption(IParseResult& result, const char* name, int base,
                                  bool mayRepeat) {
  if (!result.present(name))
    return "";
  std::string text = std::string(name) + ": ";
  Rising occurrences(base, mayRepeat);
  for (int position = result.nextPosition(); position != lastPosition;
       position = result.nextPosition())
    text += occurrences.next(position);
  Rising values(base, mayRepeat);
  Value last;
  for (Value value = result.get(name); value.isEmpty == 0; value = result.next(name)) {
    values.next(value.position);
    text += shown(value, base) + " ";
    last = value;
  }
  expectEqual("the last value of a walk is the last value", shown(last, base),
              shown(getLastValue(&result, name), base));
  return text + "\n";
}

// Everything that a result answers for these names, and its leftover arguments. Positions are
// relative to `base`.
inline std::string rendered(IParseResult& result, const std::set<std::string>& names, int base,
                            bool mayRepeat = false) {
  std::string text;
  for (const std::string& name : names)
    text += renderedOption(result, name.c_str(), base, mayRepeat);
  for (const char* argument : leftovers(result))
    text += std::string("| ") + argument + "\n";
  return text;
}

}  // namespace kivo_3_3::fuzzing
