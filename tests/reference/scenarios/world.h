#pragma once

// A world is one implementation of the public interfaces: the library, or the reference that the
// library is compared with.

#include <kivo/kivo.h>

#include <string>

namespace kivo_3_3::scenarios {

struct World {
  int (*createParser)(IParser** parser, int flags);
  Value (*getLastValue)(IParseResult* result, const char* name, int from, int to);
  std::string (*paragraphString)(std::string text, std::string head, unsigned int indent,
                                 unsigned int width);
  const char* (*describe)(IParser& parser, const ToolInfo& tool, const CommandInfo* commands,
                          unsigned int count);
  bool (*annotate)(IParser& parser, const char* option, const char* key, const char* text);
  const char* (*resolveName)(IParser& parser, const char* typed);
  const char* (*nearestName)(IParser& parser, const char* typed);
  unsigned int (*getDashLength)(const std::string& text, unsigned int pos);
  bool (*splitOptionValue)(const std::string& arg, std::string* name, std::string* value);
  // Process-wide state; each world has its own.
  int& (*positionCounter)();
  bool& (*traceSwitch)();
};

const World& libraryWorld();
const World& referenceWorld();

}  // namespace kivo_3_3::scenarios
