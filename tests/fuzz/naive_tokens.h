#pragma once

// Splits a text into its arguments, one a line, in a slow and plain way.

#include <locale>
#include <sstream>
#include <string>
#include <vector>

namespace kivo_3_3::fuzzing {

inline std::vector<std::string> naiveTokens(const std::string& text) {
  std::vector<std::string> tokens;
  std::istringstream lines(text == "-1" ? "?" : text);
  for (std::string line; std::getline(lines, line);) {
    while (!line.empty() && std::isspace(line.front(), std::locale()))
      line.erase(0, 1);
    if (!line.empty() && (line.front() == ';' || line.front() == '#'))
      continue;
    while (!line.empty() && (line.back() == '\r' || line.back() == '\n'))
      line.pop_back();
    if (!line.empty())
      tokens.push_back(line);
  }
  return tokens;
}

}  // namespace kivo_3_3::fuzzing
