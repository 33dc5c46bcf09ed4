#include "reference/help.h"

#include <algorithm>
#include <map>

#include "reference/action_rules.h"
#include "reference/conversion.h"
#include "reference/text_layout.h"

namespace kivo_3_3::reference {

namespace {

constexpr const char* hiddenGroup = "kivo_hidden";
constexpr unsigned int descriptionColumn = 30;
constexpr unsigned int descriptionWidth = 50;
constexpr unsigned int lineWidth = 80;
constexpr std::size_t topicGap = 3;

bool isShown(const std::string& groupKey, bool hidden) {
  return (groupKey == hiddenGroup) == hidden;
}

// " | -no-verbose (default)"
std::string negation(const Option& option) {
  std::string negated = " | -no-" + option.firstName();
  if (!option.hasDefault)
    return negated;
  return option.defaultsTo.get<bool>() ? " (default)" + negated : negated + " (default)";
}

// "=fast | slow" or "=<integer>", and perhaps " (3)" for the default.
std::string valueSyntax(const Option& option) {
  std::string syntax;
  for (const variant_t& value : option.allowedValues)
    syntax += (syntax.empty() ? "=" : " | ") + toText(option.type, value);
  if (option.allowedValues.empty())
    syntax = "=<" + typeName(option.type) + ">";
  const std::string byDefault = option.hasDefault ? option.defaultAsText() : "";
  return byDefault.empty() ? syntax : syntax + " (" + byDefault + ")";
}

std::string headOf(const Option& option) {
  std::string head = "-" + option.firstName();
  for (std::size_t index = 1; index < option.names.size(); ++index)
    head += ", -" + option.names[index];
  if (option.type == vtBool)
    return head + negation(option);
  return option.type == vtNull ? head : head + valueSyntax(option);
}

// A head that reaches the column of the description is on a line of its own.
std::string entryOf(const Option& option) {
  const std::string head = headOf(option);
  if (head.size() < descriptionColumn)
    return paragraphString(option.description, head, descriptionColumn, descriptionWidth);
  return head + '\n' + paragraphString(option.description, "", descriptionColumn, descriptionWidth);
}

}  // namespace

std::string formatHelp(const std::vector<Group>& sections, std::vector<Option> options,
                       bool hidden) {
  std::stable_sort(options.begin(), options.end());
  std::string help;
  for (const Group& section : sections) {
    if (!isShown(section.key, hidden))
      continue;
    if (!section.key.empty())
      help += section.key + '\n';
    if (!section.title.empty())
      help += paragraphString(section.title, "", 1, lineWidth) + '\n';
    for (const Option& option : options)
      if (!option.isPositional && option.groupKey == section.key)
        help += entryOf(option);
  }
  return help;
}

std::optional<std::string> topicList(const Options& options, bool hidden) {
  std::map<std::string, std::string> topics;
  std::size_t longest = 0;
  for (const Option& option : options)
    if (option.isAction && isShown(option.groupKey, hidden)) {
      topics[option.firstName()] = option.description;
      longest = std::max(longest, option.firstName().size());
    }
  if (topics.empty())
    return std::nullopt;
  std::string list;
  for (const auto& [name, description] : topics)
    list.append("    " + name)
        .append(longest + topicGap - name.size(), ' ')
        .append(description + '\n');
  return list;
}

std::vector<Option> globalModifiers(const Options& options) {
  std::vector<Option> modifiers;
  for (const Option& option : options)
    if (!option.isAction && option.tags.empty())
      modifiers.push_back(option);
  return modifiers;
}

std::vector<Option> actionModifiers(const Options& options, std::size_t index) {
  const std::set<std::string>& actionTags = options.at(index).tags;
  std::vector<Option> modifiers;
  for (std::size_t other = 0; other < options.size(); ++other)
    if (other != index && !options[other].isAction &&
        isIntersected(actionTags, options[other].tags))
      modifiers.push_back(options[other]);
  return modifiers;
}

}  // namespace kivo_3_3::reference
