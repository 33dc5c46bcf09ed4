// The library finds the nearest name among the names of a parser, so the candidates become the
// names of one.

#include "tool/suggestions.h"

#include <kivo/describe.h>
#include <kivo/handles.h>

#include <algorithm>

namespace kivo_3_3::tool_glue {

std::vector<std::string> nearest(std::vector<std::string> names, const std::string& typed) {
  constexpr std::size_t most = 2;
  std::vector<std::string> found;
  while (found.size() < most) {
    const ParserHandle parser = makeParser();
    if (!parser)
      return found;
    IOption* const candidates = parser->option("", "", vtNull);
    for (const std::string& name : names)
      candidates->synonym(name.c_str());
    const char* const name = nearestName(*parser, typed.c_str());
    if (name == nullptr)
      return found;
    found.emplace_back(name);
    names.erase(std::remove(names.begin(), names.end(), found.back()), names.end());
  }
  return found;
}

}  // namespace kivo_3_3::tool_glue
