#include "help/help_generator.h"

#include <kivo/text_layout.h>

#include <algorithm>
#include <map>
#include <unordered_map>

#include "options/name_list.h"

namespace kivo_3_3 {

namespace {

using std::string;
using Selection = HelpGenerator::Selection;

constexpr const char* hiddenKey = "kivo_hidden";
constexpr unsigned int bodyColumn = 30;
constexpr unsigned int bodyWidth = 50;
constexpr unsigned int introductionColumn = 1;
constexpr unsigned int introductionWidth = 80;
constexpr std::size_t topicIndent = 4;
constexpr std::size_t topicGap = 3;

string textOf(const OptionDescription& option, const variant_t& value) {
  const char* text = option.toString(option.m_garbage, value);
  return text != nullptr ? text : "";
}

// "-level, -l"
string namesOf(const OptionDescription& option) {
  string names = "-" + option.firstName();
  for (std::size_t i = 1; i < option.m_names.size(); ++i)
    names += ", -" + option.m_names[i];
  return names;
}

// " | -no-color", with " (default)" behind the form that is the default.
string booleanSyntax(const OptionDescription& option) {
  string positive;
  string negative;
  if (option.m_hasDefault)
    (option.getDefaultValue().get<bool>() ? positive : negative) = " (default)";
  return positive + " | -no-" + option.firstName() + negative;
}

// "=fast | slow (fast)" or "=<integer> (3)"
string valueSyntax(const OptionDescription& option) {
  string syntax;
  for (const variant_t& value : option.m_allowedValues)
    syntax += (syntax.empty() ? "=" : " | ") + textOf(option, value);
  if (syntax.empty())
    syntax = "=<" + option.getTypeName() + ">";
  const string defaultText = option.m_hasDefault ? option.getDefaultValueAsText() : "";
  return defaultText.empty() ? syntax : syntax + " (" + defaultText + ")";
}

string headOf(const OptionDescription& option) {
  if (option.m_type == vtBool)
    return namesOf(option) + booleanSyntax(option);
  return option.m_type == vtNull ? namesOf(option) : namesOf(option) + valueSyntax(option);
}

// A head that would run into the column of the descriptions has a line of its own.
string entryOf(const OptionDescription& option) {
  const string head = headOf(option);
  if (head.size() < bodyColumn)
    return paragraphString(option.m_description, head, bodyColumn, bodyWidth);
  return head + '\n' + paragraphString(option.m_description, "", bodyColumn, bodyWidth);
}

// The options of each section, by name within it. Positional ones are not listed.
std::unordered_map<string, Selection> bySection(Selection options) {
  std::sort(options.begin(), options.end(),
            [](const auto* left, const auto* right) { return *left < *right; });
  std::unordered_map<string, Selection> sections;
  for (const OptionDescription* option : options)
    if (!option->m_positional)
      sections[option->m_groupKey].push_back(option);
  return sections;
}

}  // namespace

string HelpGenerator::describe(Selection selection, bool hidden) const {
  std::unordered_map<string, Selection> optionsOf = bySection(std::move(selection));
  string help;
  for (const auto& [key, introduction] : m_sections) {
    if ((key == hiddenKey) != hidden)
      continue;
    if (!key.empty())
      help += key + '\n';
    if (!introduction.empty())
      help += paragraphString(introduction, "", introductionColumn, introductionWidth) + '\n';
    for (const OptionDescription* option : optionsOf[key])
      help += entryOf(*option);
  }
  return help;
}

string HelpGenerator::describeTool(bool hidden) const {
  std::map<string, string> topics;
  std::size_t longest = 0;
  for (const OptionDescription* action : getGlobalActions()) {
    if ((action->m_groupKey == hiddenKey) != hidden)
      continue;
    topics[action->firstName()] = action->m_description;
    longest = std::max(longest, action->firstName().size());
  }
  if (topics.empty()) {
    Selection all;
    for (const OptionDescription& option : m_options)
      all.push_back(&option);
    return describe(std::move(all), hidden);
  }
  string help;
  for (const auto& [name, description] : topics) {
    help.append(topicIndent, ' ').append(name).append(longest + topicGap - name.size(), ' ');
    help.append(description) += '\n';
  }
  return help;
}

string HelpGenerator::describeOption(unsigned int index, bool hidden) const {
  return describe({&m_options.at(index)}, hidden);
}

string HelpGenerator::describeActionModifiers(unsigned int index, bool hidden) const {
  Selection modifiers;
  findActionModifiers(index, modifiers);
  return describe(std::move(modifiers), hidden);
}

string HelpGenerator::describeGlobalModifiers(bool hidden) const {
  return describe(getGlobalModifiers(), hidden);
}

Selection HelpGenerator::getGlobalActions() const {
  Selection actions;
  for (const OptionDescription& option : m_options)
    if (option.isAction())
      actions.push_back(&option);
  return actions;
}

Selection HelpGenerator::getGlobalModifiers() const {
  Selection modifiers;
  for (const OptionDescription& option : m_options)
    if (!option.isAction() && option.m_tags.empty())
      modifiers.push_back(&option);
  return modifiers;
}

void HelpGenerator::findActionModifiers(unsigned int index, Selection& modifiers) const {
  const OptionDescription& action = m_options.at(index);
  for (const OptionDescription& option : m_options)
    if (&option != &action && !option.isAction() && isIntersected(action.m_tags, option.m_tags))
      modifiers.push_back(&option);
}

}  // namespace kivo_3_3
