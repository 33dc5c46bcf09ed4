#include "tool/help_page.h"

#include <algorithm>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "tool/messages.h"
#include "tool/value_text.h"

namespace kivo_3_3::tool_glue {
namespace {

constexpr std::size_t indent = 2;        // of an entry
constexpr std::size_t widestEntry = 28;  // beside which the text begins; longer ones get a line
constexpr std::size_t gap = 2;           // between an entry and its text

struct Entry {
  std::string name;
  std::string text;
};

// Each character counts as one column. Where the characters of a word end that fit, from `begin`
// on.
std::size_t endOfColumns(const std::string& word, std::size_t begin, std::size_t columns) {
  for (; begin < word.size() && (columns != 0 || !beginsCharacter(word[begin])); ++begin)
    columns -= beginsCharacter(word[begin]) ? 1U : 0U;
  return begin;
}

// Breaks a text at blanks, and a word that is too long between two of its characters.
class Paragraph {
 public:
  Paragraph(std::size_t indented, std::size_t width)
      : m_indent(indented), m_room(width > indented + 1 ? width - indented : 1) {}

  std::string laidOut(const std::string& text) {
    std::string word;
    for (const char character : text + ' ') {
      if (character != ' ' && character != '\n')
        word += character;
      else if (!word.empty())
        add(std::exchange(word, ""));
    }
    flush();
    return std::move(m_result);
  }

 private:
  void add(const std::string& word) {
    std::size_t columns = countOfCharacters(word);
    if (m_used != 0 && m_used + 1 + columns > m_room)
      flush();
    if (m_used != 0) {
      m_line += ' ';
      ++m_used;
    }
    std::size_t begin = 0;
    for (; columns > m_room; columns -= m_room) {
      const std::size_t end = endOfColumns(word, begin, m_room);
      m_line += word.substr(begin, end - begin);
      begin = end;
      flush();
    }
    m_line += word.substr(begin);
    m_used += columns;
  }
  void flush() {
    if (m_line.empty())
      return;
    m_result += std::string(m_indent, ' ') + m_line + '\n';
    m_line.clear();
    m_used = 0;
  }

  std::size_t m_indent;
  std::size_t m_room;
  std::size_t m_used = 0;  // columns
  std::string m_line;
  std::string m_result;
};

std::string laidOut(const std::vector<Entry>& entries, std::size_t width) {
  std::size_t widest = 0;
  for (const Entry& entry : entries) {
    const std::size_t columns = countOfCharacters(entry.name);
    widest = columns <= widestEntry ? std::max(widest, columns) : widest;
  }
  const std::size_t begin = indent + (widest != 0 ? widest : widestEntry) + gap;
  std::string result;
  for (const Entry& entry : entries) {
    std::string text = Paragraph(begin, width).laidOut(entry.text);
    const std::size_t used = indent + countOfCharacters(entry.name);
    result += std::string(indent, ' ') + entry.name;
    if (used + gap <= begin && !text.empty())
      result += text.substr(used);
    else
      result += '\n' + text;
  }
  return result;
}

std::string upper(std::string text) {
  for (char& character : text) {
    if (character >= 'a' && character <= 'z')
      character = static_cast<char>(character - 'a' + 'A');
  }
  return text;
}

std::string placeholderOf(const Declaration& declaration) {
  if (!declaration.placeholder.empty())
    return std::string(declaration.placeholder);
  return upper(declaration.firstName());
}

// A dash and one character.
bool isShort(const std::string& shown) { return countOfCharacters(shown) == 2; }

// "-s, --size=SIZE", "--[no-]color"
std::string optionName(const Declaration& declaration, const std::vector<std::string>& names) {
  std::vector<std::string> shown(names.size());
  std::transform(names.begin(), names.end(), shown.begin(), shownName);
  std::stable_sort(shown.begin(), shown.end(),
                   [](const std::string& left, const std::string& right) {
                     return isShort(left) && !isShort(right);
                   });
  std::string text = isShort(shown.front()) ? "" : "    ";
  for (std::string& name : shown) {
    if (parserType(declaration) == vtBool && !isShort(name))
      name.insert(2, "[no-]");
    text += (&name == &shown.front() ? "" : ", ") + name;
  }
  if (declaration.takesValue())
    text += '=' + placeholderOf(declaration);
  return text;
}

std::string choicesText(const Declaration& declaration) {
  std::string text;
  for (const DeclaredChoice& choice : declaration.choices) {
    text += text.empty() ? " One of: " : ", ";
    text += choice.text;
  }
  if (!text.empty())
    text += '.';
  return text;
}

void addRemark(std::string& text, const char* before, std::string_view remark) {
  if (!remark.empty())
    text.append(before).append(remark).append(1, '.');
}

// The actions that an option goes with, as far as the help shows them.
std::string shownActions(const Declaration& declaration, const Scope& scope) {
  std::vector<std::string> names = splitAt(std::string(declaration.only), ',');
  const auto isHidden = [&](const std::string& name) {
    const Declaration* const action = scope.withFirstName(name);
    return action != nullptr && action->isHidden;
  };
  names.erase(std::remove_if(names.begin(), names.end(), isHidden), names.end());
  return joined(names, ',');
}

std::string described(const Declaration& declaration, const Scope& scope) {
  std::string text = declaration.help;
  text += choicesText(declaration);
  addRemark(text, " From ", rangeText(declaration));
  addRemark(text, " Default: ", defaultText(declaration));
  addRemark(text, " Environment: ", declaration.environment);
  addRemark(text, " Only with: ", shownActions(declaration, scope));
  text += declaration.isRequired && !declaration.isOperand() ? " Required." : "";
  addRemark(text, " Deprecated: ", declaration.deprecated);
  return text;
}

std::string operandName(const Declaration& declaration) {
  std::string name = placeholderOf(declaration);
  if (declaration.use == Use::rest)
    name += "...";
  return name;
}

std::string usage(const ToolData& tool, const Scope& scope) {
  const auto isShown = [](const Declaration* option) { return !option->isHidden; };
  std::string text = "Usage: " + tool.calledName();
  if (std::any_of(scope.options().begin(), scope.options().end(), isShown))
    text += " [OPTION]...";
  if (!tool.commands.empty())
    text += " COMMAND ...";
  for (const Declaration* operand : scope.operands()) {
    if (operand->isHidden)
      continue;
    text += operand->isRequired ? " " : " [";
    text += operandName(*operand);
    text += operand->isRequired ? "" : "]";
  }
  return text;
}

struct Section {
  std::string heading;
  std::string introduction;
  std::vector<Entry> entries;
};

// Sections in the order of their first declaration.
class Sections {
 public:
  // A section keeps the introduction of its first declaration.
  void add(const std::string& declared, Entry entry) {
    const std::size_t colon = std::min(declared.find(':'), declared.size());
    const std::string heading = declared.substr(0, colon);
    const auto [place, isNew] = m_places.emplace(heading, m_sections.size());
    if (isNew)
      m_sections.push_back({heading, declared.substr(std::min(colon + 1, declared.size())), {}});
    m_sections[place->second].entries.push_back(std::move(entry));
  }
  std::string laidOut(std::size_t width) const {
    std::string text;
    for (const Section& section : m_sections)
      text += '\n' + section.heading + ":\n" +
              Paragraph(indent, width).laidOut(section.introduction) +
              tool_glue::laidOut(section.entries, width);
    return text;
  }

 private:
  std::map<std::string, std::size_t> m_places;  // of the headings in:
  std::vector<Section> m_sections;
};

std::vector<Entry> commandsOf(const ToolData& tool, const std::string& words) {
  std::vector<Entry> entries;
  for (const Command& command : tool.commands) {
    if (words.empty() || (command.words + ' ').compare(0, words.size() + 1, words + ' ') == 0)
      entries.push_back({command.words, command.help});
  }
  return entries;
}

}  // namespace

std::string commandList(const ToolData& tool, const std::string& words, unsigned int width) {
  return laidOut(commandsOf(tool, words), width);
}

std::string helpPage(const ToolData& tool, const Scope& scope, unsigned int width) {
  const std::string& summary = tool.command != nullptr ? tool.command->help : tool.summary;
  std::string text = Paragraph(0, width).laidOut(usage(tool, scope));
  if (!summary.empty())
    text += '\n' + Paragraph(0, width).laidOut(summary);
  Sections sections;
  for (const Declaration* operand : scope.operands()) {
    if (!operand->isHidden && *operand->help != '\0')
      sections.add("Operands", {operandName(*operand), described(*operand, scope)});
  }
  for (Entry& command : commandsOf(tool, ""))
    sections.add("Commands", std::move(command));
  for (const bool isAction : {true, false}) {
    for (const Declaration* option : scope.options()) {
      const std::vector<std::string> names = scope.typedNames(*option);
      const std::string section = *option->section == '\0' ? "Options" : option->section;
      if (!option->isHidden && (option->use == Use::action) == isAction && !names.empty())
        sections.add(isAction ? "Actions" : section,
                     {optionName(*option, names), described(*option, scope)});
    }
  }
  text += sections.laidOut(width);
  for (const std::string& footer : tool.footers)
    text += '\n' + Paragraph(0, width).laidOut(footer);
  return text;
}

}  // namespace kivo_3_3::tool_glue
