// Help for one option and for the whole tool goes through describe(), so both have one layout.

#include "help/help_generator.h"

#include <algorithm>
#include <map>
#include <string_view>

#include "help/paragraph.h"
#include "options/name_list.h"
#include "options/negation.h"
#include "options/value_conversion.h"

namespace kivo_3_3 {

namespace {

using std::string;
using std::string_view;
using Selection = HelpGenerator::Selection;

// Columns, widths and gaps are in bytes.
constexpr unsigned int bodyColumn = 30;
constexpr unsigned int bodyWidth = 50;
constexpr unsigned int introductionColumn = 1;
constexpr unsigned int introductionWidth = 80;
constexpr std::size_t usualEntry = 80;  // bytes to reserve for each option
constexpr std::size_t topicIndent = 4;
constexpr std::size_t topicGap = 3;

// "-level, -l"
void appendNames(string& help, const OptionDescription& option) {
  help.append("-").append(option.firstName());
  for (std::size_t i = 1; i < option.m_names.size(); ++i)
    help.append(", -").append(option.m_names[i]);
}

// " | -no-color", with " (default)" after the form that is the default.
void appendBooleanSyntax(string& help, const OptionDescription& option) {
  constexpr string_view mark = " (default)";
  const bool isOn = option.m_hasDefault && option.getDefaultValue().get<bool>();
  if (isOn)
    help += mark;
  help.append(" | -").append(negation).append(option.firstName());
  if (option.m_hasDefault && !isOn)
    help += mark;
}

// " (3)", or nothing for a default without a text.
void appendDefault(string& help, const OptionDescription& option) {
  const std::size_t end = help.size();
  help += " (";
  const std::size_t text = help.size();
  appendValue(option.m_type, option.getDefaultValue(), help);
  if (help.size() == text)
    help.resize(end);
  else
    help += ')';
}

// "=fast | slow (fast)" or "=<integer> (3)"
void appendValueSyntax(string& help, const OptionDescription& option) {
  string_view separator = "=";
  for (const variant_t& value : option.m_allowedValues) {
    help += separator;
    appendValue(option.m_type, value, help);
    separator = " | ";
  }
  if (option.m_allowedValues.empty())
    help.append("=<").append(typeName(option.m_type)) += '>';
  if (option.m_hasDefault)
    appendDefault(help, option);
}

// A head that would reach the column of the descriptions gets a line of its own.
void appendEntry(string& help, const OptionDescription& option) {
  std::size_t head = help.size();
  appendNames(help, option);
  if (option.m_type == vtBool)
    appendBooleanSyntax(help, option);
  else if (option.m_type != vtNull)
    appendValueSyntax(help, option);
  if (help.size() - head >= bodyColumn) {
    help += '\n';
    head = help.size();
  }
  wrapBehindHead(help, head, option.m_description, bodyColumn, bodyWidth);
}

struct Entry {
  string_view name;  // sort key; empty for an option without names
  const OptionDescription* option;

  bool operator<(const Entry& other) const { return name < other.name; }
};

using Entries = std::vector<Entry>;

// The options of each section, sorted by name. Positional options are left out.
std::map<string_view, Entries> bySection(const Selection& options) {
  std::map<string_view, Entries> sections;
  for (const OptionDescription* option : options)
    if (!option->m_positional)
      sections[option->m_groupKey].push_back(
          {option->m_names.empty() ? string_view() : option->firstName(), option});
  for (auto& [key, entries] : sections)
    if (!std::is_sorted(entries.begin(), entries.end()))
      std::sort(entries.begin(), entries.end());
  return sections;
}

}  // namespace

string HelpGenerator::describe(const Selection& selection, bool hidden) const {
  std::map<string_view, Entries> entriesOf = bySection(selection);
  string help;
  help.reserve(selection.size() * usualEntry);
  for (const auto& [name, introduction] : m_sections) {
    const string_view key = name;
    if ((key == hiddenSection) != hidden)
      continue;
    if (!key.empty())
      help.append(key) += '\n';
    if (!introduction.empty()) {
      wrapBehindHead(help, help.size(), introduction, introductionColumn, introductionWidth);
      help += '\n';
    }
    for (const Entry& entry : entriesOf[key])
      appendEntry(help, *entry.option);
  }
  return help;
}

string HelpGenerator::describeTool(bool hidden) const {
  std::map<string_view, string_view> topics;
  std::size_t longest = 0;
  for (const OptionDescription* action : getGlobalActions()) {
    if (action->isHidden() != hidden)
      continue;
    const string_view name = action->firstName();
    topics[name] = action->m_description;
    longest = std::max(longest, name.size());
  }
  if (topics.empty()) {
    Selection all;
    all.reserve(m_options.size());
    for (const OptionDescription& option : m_options)
      all.push_back(&option);
    return describe(all, hidden);
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
  return describe(modifiers, hidden);
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
    if (!option.isAction() && option.tags().empty())
      modifiers.push_back(&option);
  return modifiers;
}

void HelpGenerator::findActionModifiers(unsigned int index, Selection& modifiers) const {
  const OptionDescription& action = m_options.at(index);
  for (const OptionDescription& option : m_options)
    if (&option != &action && !option.isAction() && isIntersected(action.tags(), option.tags()))
      modifiers.push_back(&option);
}

}  // namespace kivo_3_3
