#pragma once

// Descriptions for tests: the JSON of a small valid one, and changes of it.

#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>

#include "description_reader.h"

namespace kivo_describe::testing {

// A tool without declarations; ANNOTATIONS and COMMANDS stand where these fields may be added.
inline const char* const emptyTool =
    R"({"schema":"kivo-description/1","tool":{"name":"fx","version":"1","summary":"Does it."},)"
    R"("sections":[{"heading":"","introduction":"","hidden":false}],"options":[],"together":[],)"
    R"("unknownArguments":"error","dashArguments":"options","leftoverArguments":"kept"})";

// The text with the first place of `old` replaced, which has to be there.
inline std::string replaced(std::string text, const std::string& old, const std::string& by) {
  const std::size_t place = text.find(old);
  if (place == std::string::npos)
    throw std::logic_error("not in the text: " + old);
  return text.replace(place, old.size(), by);
}

// The tool with options, given as the elements of the list.
inline std::string toolWith(const std::string& options) {
  return replaced(emptyTool, R"("options":[])", R"("options":[)" + options + ']');
}

// An option of the section without a heading; `more` begins with a comma.
inline std::string option(const std::string& names, const std::string& more = "",
                          const std::string& type = "string") {
  return R"({"names":[)" + names + R"(],"kind":"option","type":")" + type +
         R"(","description":"Text.","section":"","hidden":false,"separator":null,)"
         R"("positional":false)" +
         more + '}';
}

inline std::string contentsOf(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file.is_open())
    throw std::runtime_error("cannot read " + path);
  return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace kivo_describe::testing
