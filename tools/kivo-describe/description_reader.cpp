#include "description_reader.h"

#include <algorithm>
#include <initializer_list>
#include <set>
#include <string_view>
#include <utility>

#include "json_text.h"
#include "text.h"

// Reads JSON into a Description and refuses whatever a page could not be made of without guessing.
//
// Generators rely on what is checked here: each option has a name and one of the sections, each
// annotation has a text, and no two commands have the same words. A list that the schema wants to
// be either filled or left out may be empty, which means the same.

namespace kivo_describe {
namespace {

using nlohmann::json;

[[noreturn]] void refuse(const std::string& place, const std::string& problem) {
  throw NoDescription(place + ' ' + problem);
}

// A value of the description, and its place for messages: "options[3].names".
class Node {
 public:
  Node(const json& value, std::string place) : m_value(value), m_place(std::move(place)) {}

  bool has(const char* key) const { return m_value.contains(key); }

  Node field(const char* key) const {
    require(m_value.is_object(), "is not an object");
    const std::string place = m_place.empty() ? key : m_place + '.' + key;
    if (!has(key))
      refuse(place, "is missing");
    return {m_value.at(key), place};
  }

  std::string text() const {
    require(m_value.is_string(), "is not a text");
    return m_value.get<std::string>();
  }

  bool truth() const {
    require(m_value.is_boolean(), "is neither true nor false");
    return m_value.get<bool>();
  }

  bool isNull() const { return m_value.is_null(); }

  std::string oneOf(std::initializer_list<std::string_view> expected) const {
    std::string found = text();
    require(std::find(expected.begin(), expected.end(), found) != expected.end(),
            "has an unknown value");
    return found;
  }

  // What `read` makes of each element of a list.
  template <typename Read>
  auto list(Read read) const {
    require(m_value.is_array(), "is not a list");
    std::vector<decltype(read(*this))> elements;
    for (const json& element : m_value)
      elements.push_back(
          read(Node(element, m_place + '[' + std::to_string(elements.size()) + ']')));
    return elements;
  }

  template <typename Read>
  auto filledList(Read read) const {
    auto elements = list(read);
    require(!elements.empty(), "is an empty list");
    return elements;
  }

  // Calls `read` with the name and the value of each field.
  template <typename Read>
  void eachField(Read read) const {
    require(m_value.is_object(), "is not an object");
    for (const auto& [key, value] : m_value.items())
      read(key, Node(value, m_place + '.' + key));
  }

  void require(bool holds, const std::string& problem) const {
    if (!holds)
      refuse(m_place.empty() ? "the description" : m_place, problem);
  }

 private:
  const json& m_value;
  std::string m_place;
};

std::string textOf(const Node& node) { return node.text(); }

Texts textsOf(const Node& node) { return node.list(textOf); }

Annotations annotationsOf(const Node& owner) {
  Annotations annotations;
  if (!owner.has("annotations"))
    return annotations;
  const Node node = owner.field("annotations");
  node.eachField([&](const std::string& key, const Node& texts) {
    if (Texts read = textsOf(texts); !read.empty())
      annotations[key] = std::move(read);
  });
  return annotations;
}

Section sectionOf(const Node& node) {
  return {node.field("heading").text(), node.field("introduction").text(),
          node.field("hidden").truth()};
}

DeprecatedValue deprecatedValueOf(const Node& node) {
  return {node.field("value").text(), node.field("replacement").text()};
}

std::string defaultOf(const Node& node, const std::string& type) {
  if (type == "boolean")
    return node.truth() ? "true" : "false";
  return node.text();
}

std::optional<std::string> separatorOf(const Node& node) {
  if (node.isNull())
    return std::nullopt;
  std::string text = node.text();
  node.require(countOfCharacters(text) == 1, "is not one character");
  return text;
}

void readOptionalFields(const Node& node, Option& option) {
  if (option.kind == "modifier")
    option.actions = textsOf(node.field("actions"));
  if (node.has("allowed"))
    option.allowed = textsOf(node.field("allowed"));
  if (node.has("deprecated"))
    option.deprecated = node.field("deprecated").list(deprecatedValueOf);
  if (node.has("default"))
    option.defaultValue = defaultOf(node.field("default"), option.type);
  option.annotations = annotationsOf(node);
}

Option optionOf(const Node& node) {
  Option option;
  option.names = node.field("names").filledList(textOf);
  option.kind = node.field("kind").oneOf({"action", "modifier", "option"});
  option.type =
      node.field("type").oneOf({"none", "boolean", "integer", "unsigned integer", "64 bit integer",
                                "unsigned 64 bit or hex", "double", "string", "other"});
  option.description = node.field("description").text();
  option.section = node.field("section").text();
  option.hidden = node.field("hidden").truth();
  option.separator = separatorOf(node.field("separator"));
  option.positional = node.field("positional").truth();
  readOptionalFields(node, option);
  return option;
}

// The sections of a description by their headings.
std::map<std::string, Section> byHeading(const Node& node, const std::vector<Section>& sections) {
  std::map<std::string, Section> found;
  for (const Section& section : sections)
    node.require(found.emplace(section.heading, section).second, "has a section twice");
  return found;
}

// An option of a hidden section is hidden.
void checkSections(const Node& node, Declarations& declarations) {
  const auto sections = byHeading(node.field("sections"), declarations.sections);
  for (Option& option : declarations.options) {
    const auto section = sections.find(option.section);
    node.field("options").require(section != sections.end(), "has an option of an unknown section");
    option.hidden = option.hidden || section->second.hidden;
  }
}

Declarations declarationsOf(const Node& node) {
  Declarations declarations;
  declarations.sections = node.field("sections").list(sectionOf);
  declarations.options = node.field("options").list(optionOf);
  declarations.together = node.field("together").list(textsOf);
  declarations.unknownArguments = node.field("unknownArguments").oneOf({"error", "passed over"});
  declarations.dashArguments = node.field("dashArguments").oneOf({"options", "positional"});
  declarations.leftoverArguments = node.field("leftoverArguments").oneOf({"positional", "kept"});
  declarations.annotations = annotationsOf(node);
  checkSections(node, declarations);
  return declarations;
}

std::string wordsOf(const Node& node) {
  std::string text = node.text();
  for (const std::string& word : splitAtBlanks(text))
    node.require(isWord(word) && word.front() != '-',
                 "is not one or more words, separated by single blanks, none of which begins with "
                 "'-'");
  return text;
}

Command commandOf(const Node& node) {
  node.require(!node.has("commands"), "has commands of its own");
  return {wordsOf(node.field("words")), node.field("summary").text(), declarationsOf(node)};
}

std::vector<Command> commandsOf(const Node& owner) {
  if (!owner.has("commands"))
    return {};
  const Node node = owner.field("commands");
  std::vector<Command> commands = node.filledList(commandOf);
  std::set<std::string> known;
  for (const Command& command : commands)
    node.require(known.insert(command.words).second, "has two commands of the same words");
  return commands;
}

std::string toolNameOf(const Node& node) {
  std::string name = node.text();
  node.require(isToolName(name), "is not usable as the name of a tool");
  return name;
}

Description descriptionOf(const Node& node) {
  node.field("schema").oneOf({"kivo-description/1"});
  const Node tool = node.field("tool");
  return {toolNameOf(tool.field("name")), tool.field("version").text(),
          tool.field("summary").text(), declarationsOf(node), commandsOf(node)};
}

}  // namespace

Description readDescription(const std::string& json) {
  const auto root = parseJson(json);
  return descriptionOf(Node(root, ""));
}

}  // namespace kivo_describe
