// One walk over the declarations. It reads them and changes nothing, and it reads no locale.

#include "describe/description.h"

#include <map>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "describe/json_writer.h"
#include "options/value_conversion.h"

namespace kivo_3_3 {

namespace {

using std::string;
using std::string_view;

string_view orEmpty(const char* text) { return text != nullptr ? text : ""; }

bool isModifier(const OptionDescription& option) {
  return !option.isAction() && !option.tags().empty();
}

const char* kindOf(const OptionDescription& option) {
  if (option.isAction())
    return "action";
  return isModifier(option) ? "modifier" : "option";
}

string_view typeOf(const OptionDescription& option) {
  if (option.m_type == vtNull)
    return "none";
  if (option.m_type == vtBool)
    return "boolean";
  const string_view name = typeName(option.m_type);
  return name.empty() ? "other" : name;
}

// The text of a value as users type it. None for a value of a kind that the option's type cannot
// read: nobody can type it.
std::optional<string> textOf(const OptionDescription& option, const variant_t& value) {
  string text;
  const bool hasText =
      canBecomeText(option.m_type, value) && appendClassicValue(option.m_type, value, text);
  return hasText ? std::make_optional(text) : std::nullopt;
}

// The actions of each tag, in the order of declaration.
class ActionsByTag {
 public:
  explicit ActionsByTag(const OptionList& options) {
    for (const OptionDescription& option : options)
      if (option.isAction() && !option.m_names.empty())
        for (const string_view tag : option.tags())
          m_actions[tag].push_back(&option);
  }

  // The first names of the actions that have a tag in common with `modifier`, in the order of
  // declaration, each once.
  std::vector<string_view> of(const OptionDescription& modifier) const {
    std::map<std::uint32_t, string_view> names;
    for (const string_view tag : modifier.tags())
      if (const auto tagged = m_actions.find(tag); tagged != m_actions.end())
        for (const OptionDescription* action : tagged->second)
          names.emplace(action->m_number, action->firstName());
    std::vector<string_view> inOrder;
    inOrder.reserve(names.size());
    for (const auto& [number, name] : names)
      inOrder.push_back(name);
    return inOrder;
  }

 private:
  std::map<string_view, std::vector<const OptionDescription*>> m_actions;
};

class DescriptionWriter {
 public:
  const string& json() const { return m_json.json(); }

  void tool(const ToolInfo& tool, const Declarations& declarations,
            const std::vector<DescribedCommand>& commands) {
    m_json.beginObject();
    member("schema", "kivo-description/1");
    m_json.key("tool");
    m_json.beginObject();
    member("name", orEmpty(tool.name));
    member("version", orEmpty(tool.version));
    member("summary", orEmpty(tool.summary));
    m_json.endObject();
    describe(declarations);
    if (!commands.empty())
      describe(commands);
    m_json.endObject();
  }

 private:
  void member(string_view key, string_view text) {
    m_json.key(key);
    m_json.text(text);
  }
  void member(string_view key, bool value) {
    m_json.key(key);
    m_json.boolean(value);
  }
  // A literal would become a bool rather than a text.
  void member(string_view key, const char* text) { member(key, string_view(text)); }
  template <class Texts>
  void list(string_view key, const Texts& texts) {
    m_json.key(key);
    writeAll(texts);
  }
  template <class Texts>
  void writeAll(const Texts& texts) {
    m_json.beginList();
    for (const auto& text : texts)
      m_json.text(text);
    m_json.endList();
  }

  void describe(const std::vector<DescribedCommand>& commands) {
    m_json.key("commands");
    m_json.beginList();
    for (const DescribedCommand& command : commands) {
      m_json.beginObject();
      member("words", orEmpty(command.words));
      member("summary", orEmpty(command.summary));
      describe(command.declarations);
      m_json.endObject();
    }
    m_json.endList();
  }

  void describe(const Declarations& declarations) {
    sections(declarations);
    options(declarations);
    m_json.key("together");
    m_json.beginList();
    for (const std::set<string>& actions : declarations.together) {
      std::set<string> valid;  // sorted again, without the actions that have become equal
      for (const string& action : actions)
        valid.insert(asUtf8(action));
      writeAll(valid);
    }
    m_json.endList();
    const auto has = [&](int flag) { return (declarations.flags & flag) != 0; };
    member("unknownArguments", has(parserFlags::unknownArgumentIsError) ? "error" : "passed over");
    member("dashArguments",
           has(parserFlags::dashArgumentsAreNeverPositional) ? "options" : "positional");
    member("leftoverArguments",
           has(parserFlags::leftoverArgumentsArePositional) ? "positional" : "kept");
    annotations(declarations.annotations.ofTool());
  }

  void sections(const Declarations& declarations) {
    m_json.key("sections");
    m_json.beginList();
    std::set<string> written;  // headings may become equal when invalid bytes are replaced
    for (const auto& [heading, introduction] : declarations.sections) {
      if (!written.insert(asUtf8(heading.text)).second)
        continue;
      m_json.beginObject();
      member("heading", heading.text);
      member("introduction", introduction);
      member("hidden", heading.text == hiddenSection);
      m_json.endObject();
    }
    m_json.endList();
  }

  void options(const Declarations& declarations) {
    const ActionsByTag actions(declarations.options);
    m_json.key("options");
    m_json.beginList();
    for (const OptionDescription& option : declarations.options) {
      if (option.m_names.empty())
        continue;
      m_json.beginObject();
      declaration(option);
      if (isModifier(option))
        list("actions", actions.of(option));
      values(option);
      annotations(declarations.annotations.ofOption(option.m_number));
      m_json.endObject();
    }
    m_json.endList();
  }

  void declaration(const OptionDescription& option) {
    list("names", option.m_names);
    member("kind", kindOf(option));
    member("type", typeOf(option));
    member("description", option.m_description);
    member("section", option.m_groupKey);
    member("hidden", option.isHidden());
    m_json.key("separator");
    if (option.m_tokenizer != '\0')
      m_json.text(string_view(&option.m_tokenizer, 1));
    else
      m_json.null();
    member("positional", option.m_positional);
  }

  void values(const OptionDescription& option) {
    std::vector<string> allowed;
    for (const variant_t& value : option.m_allowedValues)
      if (auto text = textOf(option, value))
        allowed.push_back(std::move(*text));
    if (!allowed.empty())
      list("allowed", allowed);
    deprecatedValues(option);
    if (option.hasDefault())
      defaultValue(option);
  }

  void deprecatedValues(const OptionDescription& option) {
    std::vector<std::pair<string, string>> typable;
    for (const auto& [deprecated, replacement] : option.m_deprecatedValues)
      if (auto text = textOf(option, deprecated))
        typable.emplace_back(std::move(*text), textOf(option, replacement).value_or(""));
    if (typable.empty())
      return;
    m_json.key("deprecated");
    m_json.beginList();
    for (const auto& [value, replacement] : typable) {
      m_json.beginObject();
      member("value", value);
      member("replacement", replacement);
      m_json.endObject();
    }
    m_json.endList();
  }

  void defaultValue(const OptionDescription& option) {
    const variant_t& value = option.getDefaultValue();
    const string text = textOf(option, value).value_or("");
    if (text.empty())
      return;
    if (option.m_type == vtBool)
      member("default", value.get<bool>());
    else
      member("default", text);
  }

  void annotations(const Annotations::Texts& texts) {
    if (texts.empty())
      return;
    m_json.key("annotations");
    m_json.beginObject();
    for (const auto& [key, all] : texts)
      list(key, all);
    m_json.endObject();
  }

  JsonWriter m_json;
};

}  // namespace

string writeDescription(const ToolInfo& tool, const Declarations& declarations,
                        const std::vector<DescribedCommand>& commands) {
  DescriptionWriter writer;
  writer.tool(tool, declarations, commands);
  return writer.json();
}

}  // namespace kivo_3_3
