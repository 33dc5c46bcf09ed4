#include "option_entry.h"

#include "text.h"

// What a page says about one option. Everything that a user has to know of the declaration is here;
// names of hidden actions are not.

namespace kivo_describe {
namespace {

// The placeholder of an option, unless its allowed values say more.
std::optional<std::string> placeholderOf(const Option& option) {
  return option.allowed.empty() ? firstText(option.annotations, "placeholder") : std::nullopt;
}

// What stands for the value of an option; empty if nothing has to.
std::string valueName(const Option& option) {
  const bool isTyped = option.type != "none" && option.type != "boolean";
  return squeezed(placeholderOf(option).value_or(isTyped ? option.type : ""));
}

Line allowedValues(const Option& option) {
  std::set<std::string> deprecated;
  for (const DeprecatedValue& one : option.deprecated)
    deprecated.insert(one.value);
  std::vector<Span> values;
  for (const std::string& value : option.allowed) {
    if (deprecated.count(value) == 0)
      values.push_back(literal(value));
  }
  return listOf(values);
}

Line deprecatedValues(const Option& option) {
  Line line;
  for (const auto& [value, replacement] : option.deprecated) {
    if (!line.empty())
      line.push_back(own(", "));
    for (const Span& span : {literal(value), own(" (now "), literal(replacement), own(")")})
      line.push_back(span);
  }
  return line;
}

// A text of the tool in one of the styles; no line at all if there is nothing to show.
Line optionalLine(const std::optional<std::string>& text, Span (*style)(const std::string&)) {
  return text && !squeezed(*text).empty() ? Line{style(*text)} : Line{};
}

// A default of blanks alone is shown; a blank text that stands for a default says: show none.
Line shownDefault(const Option& option) {
  if (const auto shown = firstText(option.annotations, "shownDefault"))
    return optionalLine(shown, literal);
  return option.defaultValue.value_or("").empty() ? Line{} : Line{literal(*option.defaultValue)};
}

// The visible actions that a modifier goes with.
Line actionsOf(const Option& option, const std::set<std::string>& actions, Dashes dashes) {
  std::vector<Span> shown;
  for (const std::string& name : option.actions) {
    if (actions.count(name) != 0)
      shown.push_back(shownName(name, dashes));
  }
  return listOf(shown);
}

// All facts in one line.
Line facts(const Option& option, const std::set<std::string>& actions, Dashes dashes) {
  Line all;
  const auto add = [&](const Line& sentence) {
    all = (all.empty() ? all : all + Line{own(" ")}) + sentence;
  };
  const auto addFact = [&](const char* label, const Line& line) {
    if (!line.empty())
      add(fact(label, line));
  };
  const auto annotation = [&](const char* key) { return firstText(option.annotations, key); };

  if (annotation("required"))
    add({own("This is required.")});
  addFact("Allowed values", allowedValues(option));
  addFact("Out of use", deprecatedValues(option));
  addFact("Range", optionalLine(annotation("range"), plain));
  addFact("Default", shownDefault(option));
  addFact("Environment variable", optionalLine(annotation("environment"), literal));
  addFact("Only with", actionsOf(option, actions, dashes));
  return all;
}

}  // namespace

bool isVisible(const Option& option) { return !option.hidden; }
bool isOperand(const Option& option) { return !option.hidden && option.positional; }
bool isListed(const Option& option) { return !option.hidden && !option.positional; }
bool isAction(const Option& option) { return isListed(option) && option.kind == "action"; }
bool isNoAction(const Option& option) { return isListed(option) && option.kind != "action"; }

Span shownName(const std::string& name, Dashes dashes) {
  const bool hasTwo = dashes == Dashes::two && countOfCharacters(name) > 1;
  return literal((hasTwo ? "--" : "-") + name);
}

Span operandName(const Option& operand) {
  return variable(placeholderOf(operand).value_or(operand.names.front()));
}

Line entryLabel(const Option& option, Dashes dashes) {
  if (option.positional)
    return {operandName(option)};
  std::vector<Span> names;
  for (const std::string& name : option.names)
    names.push_back(shownName(name, dashes));
  if (option.type == "boolean")
    names.push_back(shownName("no-" + option.names.front(), dashes));
  const std::string value = valueName(option);
  return value.empty() ? listOf(names) : listOf(names) + Line{own(" "), variable(value)};
}

std::vector<Line> entryText(const Option& option, const std::set<std::string>& actions,
                            Dashes dashes) {
  const auto reason = firstText(option.annotations, "deprecated");
  const Line all[] = {
      optionalLine(option.description, plain),
      facts(option, actions, dashes),
      reason ? Line{own("Deprecated: "), plain(*reason)} : Line{},
  };
  std::vector<Line> lines;
  for (const Line& line : all) {
    if (!line.empty())
      lines.push_back(line);
  }
  return lines;
}

}  // namespace kivo_describe
