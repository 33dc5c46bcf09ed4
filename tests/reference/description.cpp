#include "reference/description.h"

#include <map>
#include <set>

#include "reference/characters.h"
#include "reference/conversion.h"

namespace kivo_3_3::reference {

namespace {

using std::string;
using Texts = std::vector<string>;

constexpr const char* replacementCharacter = "\xEF\xBF\xBD";

// A text as UTF-8.
string repaired(const string& text) {
  string all;
  for (const string& item : charactersOf(text))
    all += isCharacter(item) ? item : replacementCharacter;
  return all;
}

// The control characters of Unicode: U+0000 to U+001F and U+007F to U+009F.
bool isControl(const string& character) {
  if (character.size() == 1)
    return static_cast<unsigned char>(character[0]) < 0x20 || character[0] == 0x7F;
  return character >= "\xC2\x80" && character <= "\xC2\x9F";
}

// Every control character ends with the byte of its number.
string escaped(const string& control) {
  const char* const digits = "0123456789abcdef";
  const auto number = static_cast<unsigned char>(control.back());
  return string("\\u00") + digits[number / 16] + digits[number % 16];
}

string quoted(const string& text) {
  string all = "\"";
  for (const string& character : charactersOf(repaired(text))) {
    if (character == "\"" || character == "\\")
      all += '\\';
    all += isControl(character) ? escaped(character) : character;
  }
  return all + '"';
}

string quoted(const char* text) { return quoted(string(text != nullptr ? text : "")); }

// ,"name":value
string field(const string& name, const string& value) { return ",\"" + name + "\":" + value; }

string field(const string& name, bool is) { return field(name, string(is ? "true" : "false")); }

// The fields between braces, without the comma before the first one.
string object(const string& fields) { return "{" + fields.substr(1) + "}"; }

string list(const Texts& items) {
  string all;
  for (const string& item : items)
    all += (all.empty() ? "" : ",") + item;
  return "[" + all + "]";
}

// Each object begins a line.
string listOfObjects(Texts objects) {
  for (string& one : objects)
    one.insert(0, "\n");
  return list(objects);
}

template <class Strings>
string listOfTexts(const Strings& texts) {
  Texts items;
  for (const string& text : texts)
    items.push_back(quoted(text));
  return list(items);
}

bool isHidden(const string& section) { return section == "kivo_hidden"; }

string sectionAsJson(const Group& section) {
  return object(field("heading", quoted(section.key)) +
                field("introduction", quoted(section.title)) +
                field("hidden", isHidden(section.key)));
}

bool isModifier(const Option& option) { return !option.isAction && !option.tags.empty(); }

string kindOf(const Option& option) {
  return option.isAction ? "action" : isModifier(option) ? "modifier" : "option";
}

string typeOf(const Option& option) {
  if (option.type == vtNull)
    return "none";
  if (option.type == vtBool)
    return "boolean";
  const string name = typeName(option.type);
  return name.empty() ? "other" : name;
}

string separatorOf(const Option& option) {
  return option.tokenizer == '\0' ? "null" : quoted(string(1, option.tokenizer));
}

// Empty if the value is of a kind that the type of the option cannot read.
string textOf(const Option& option, const variant_t& value) {
  return canBecomeText(option.type, value) ? toText(option.type, value, std::locale::classic())
                                           : "";
}

Texts actionsOf(const Option& modifier, const Options& options) {
  Texts names;
  for (const Option& option : options)
    if (option.isAction && !option.names.empty() && isIntersected(option.tags, modifier.tags))
      names.push_back(option.firstName());
  return names;
}

string allowedOf(const Option& option) {
  Texts values;
  for (const variant_t& value : option.allowedValues)
    if (canBecomeText(option.type, value))
      values.push_back(textOf(option, value));
  return values.empty() ? "" : field("allowed", listOfTexts(values));
}

string deprecatedOf(const Option& option) {
  Texts pairs;
  for (const auto& [value, replacement] : option.deprecatedValues)
    if (canBecomeText(option.type, value))
      pairs.push_back(object(field("value", quoted(textOf(option, value))) +
                             field("replacement", quoted(textOf(option, replacement)))));
  return pairs.empty() ? "" : field("deprecated", listOfObjects(pairs));
}

string defaultOf(const Option& option) {
  const string text = option.hasDefault ? textOf(option, option.defaultsTo) : "";
  if (text.empty())
    return "";
  return option.type == vtBool ? field("default", text == "1") : field("default", quoted(text));
}

// Keys that become equal when they are written are one key. Keys are sorted.
string annotationsOf(std::optional<std::size_t> option, const Annotations& annotations) {
  std::map<string, Texts> texts;
  for (const Annotation& annotation : annotations)
    if (annotation.option == option)
      texts[repaired(annotation.key)].push_back(annotation.text);
  Texts fields;
  for (const auto& [key, ofKey] : texts)
    fields.push_back(quoted(key) + ":" + listOfTexts(ofKey));
  const string all = list(fields);
  return fields.empty() ? "" : field("annotations", "{" + all.substr(1, all.size() - 2) + "}");
}

string optionAsJson(std::size_t index, const Declarations& declarations) {
  const Option& option = declarations.options[index];
  string fields =
      field("names", listOfTexts(option.names)) + field("kind", quoted(kindOf(option))) +
      field("type", quoted(typeOf(option))) + field("description", quoted(option.description)) +
      field("section", quoted(option.groupKey)) + field("hidden", isHidden(option.groupKey)) +
      field("separator", separatorOf(option)) + field("positional", option.isPositional);
  if (isModifier(option))
    fields += field("actions", listOfTexts(actionsOf(option, declarations.options)));
  return object(fields + allowedOf(option) + deprecatedOf(option) + defaultOf(option) +
                annotationsOf(index, declarations.annotations));
}

// Headings that become equal when they are written are one section.
string sectionsAsJson(const std::vector<Group>& sections) {
  std::set<string> written;
  Texts objects;
  for (const Group& section : sections)
    if (written.insert(repaired(section.key)).second)
      objects.push_back(sectionAsJson(section));
  return listOfObjects(objects);
}

string optionsAsJson(const Declarations& declarations) {
  Texts objects;
  for (std::size_t index = 0; index < declarations.options.size(); ++index)
    if (!declarations.options[index].names.empty())
      objects.push_back(optionAsJson(index, declarations));
  return listOfObjects(objects);
}

// Each set is sorted as it is written, and has no name twice.
string togetherAsJson(const ActionGroups& together) {
  Texts sets;
  for (const std::set<string>& actions : together) {
    std::set<string> written;
    for (const string& action : actions)
      written.insert(repaired(action));
    sets.push_back(listOfTexts(written));
  }
  return list(sets);
}

}  // namespace

string fieldsAsJson(const Declarations& declarations) {
  const auto choose = [&](int flag, const char* set, const char* notSet) {
    return quoted((declarations.flags & flag) != 0 ? set : notSet);
  };
  return field("sections", sectionsAsJson(declarations.sections)) +
         field("options", optionsAsJson(declarations)) +
         field("together", togetherAsJson(declarations.together)) +
         field("unknownArguments",
               choose(parserFlags::unknownArgumentIsError, "error", "passed over")) +
         field("dashArguments",
               choose(parserFlags::dashArgumentsAreNeverPositional, "options", "positional")) +
         field("leftoverArguments",
               choose(parserFlags::leftoverArgumentsArePositional, "positional", "kept")) +
         annotationsOf(std::nullopt, declarations.annotations);
}

string commandAsJson(const CommandInfo& command, const string& declarations) {
  return object(field("words", quoted(command.words)) + field("summary", quoted(command.summary)) +
                declarations);
}

string descriptionAsJson(const ToolInfo& tool, const string& declarations,
                         const std::vector<string>& commands) {
  const string about =
      object(field("name", quoted(tool.name)) + field("version", quoted(tool.version)) +
             field("summary", quoted(tool.summary)));
  return object(field("schema", quoted("kivo-description/1")) + field("tool", about) +
                declarations +
                (commands.empty() ? "" : field("commands", listOfObjects(commands))));
}

}  // namespace kivo_3_3::reference
