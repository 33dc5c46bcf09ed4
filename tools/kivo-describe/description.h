#pragma once

// The description of a tool, as its JSON says it. docs/description.md explains each field.

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace kivo_describe {

using Texts = std::vector<std::string>;

// Facts that the declarations do not hold: lists of texts by key.
using Annotations = std::map<std::string, Texts>;

// The first text of a key; the other texts do not count.
inline std::optional<std::string> firstText(const Annotations& annotations, const char* key) {
  const auto found = annotations.find(key);
  if (found == annotations.end())
    return std::nullopt;
  return found->second.front();
}

struct Section {
  std::string heading;  // empty for the section without a heading
  std::string introduction;
  bool hidden = false;
};

struct DeprecatedValue {
  std::string value;
  std::string replacement;
};

struct Option {
  Texts names;  // at least one
  std::string kind;
  std::string type;
  std::string description;
  std::string section;  // the heading of one of the sections
  bool hidden = false;
  std::optional<std::string> separator;
  bool positional = false;
  Texts actions;  // of a modifier: the first names of the actions that it goes with
  Texts allowed;  // deprecated values may be among them
  std::vector<DeprecatedValue> deprecated;
  std::optional<std::string> defaultValue;  // "true" or "false" for a boolean
  Annotations annotations;
};

// What a parser has declared: that of the tool, or that of one of its commands.
struct Declarations {
  std::vector<Section> sections;
  std::vector<Option> options;
  std::vector<Texts> together;
  std::string unknownArguments;
  std::string dashArguments;
  std::string leftoverArguments;
  Annotations annotations;
};

struct Command {
  std::string words;  // separated by single blanks
  std::string summary;
  Declarations declarations;
};

struct Description {
  std::string name;
  std::string version;
  std::string summary;
  Declarations declarations;  // belong to every command, too
  std::vector<Command> commands;
};

}  // namespace kivo_describe
