#include "page.h"

#include <algorithm>
#include <map>
#include <set>
#include <utility>

#include "exit_statuses.h"
#include "option_entry.h"
#include "text.h"

// Decides what the page of a tool says and in which order, for every markup language alike.
//
// Nothing hidden gets into a page: only visible options are listed or named, and a section appears
// only with a visible option of its own.

namespace kivo_describe {
namespace {

using Choice = bool (*)(const Option&);

std::vector<Line> linesOf(const std::string& text) {
  if (text.empty())
    return {};
  return {{plain(text)}};
}

std::set<std::string> firstNamesOfActions(const Declarations& declarations) {
  std::set<std::string> names;
  for (const Option& option : declarations.options) {
    if (isAction(option))
      names.insert(option.names.front());
  }
  return names;
}

// Makes the blocks of one page.
class PageMaker {
 public:
  explicit PageMaker(const Description& description)
      : m_description(description),
        m_own(description.declarations),
        m_dashes(firstText(m_own.annotations, "dashes") == "two" ? Dashes::two : Dashes::one) {}

  std::vector<Block> blocks() {
    addSynopsis();
    addDescription();
    addCommands();
    addChapter("ACTIONS", isAction);
    addTogether();
    addChapter("OPTIONS", isNoAction);
    addChapter("OPERANDS", isOperand);
    addExitStatus();
    addParagraph(firstText(m_own.annotations, "footer").value_or(""));
    return std::move(m_blocks);
  }

 private:
  void addSynopsis() {
    addHeading(1, "SYNOPSIS");
    Paragraph synopsis;
    for (const Command& command : m_description.commands)
      synopsis.lines.push_back(
          usage(m_description.name + ' ' + command.words, {&command.declarations, &m_own}));
    if (synopsis.lines.empty())
      synopsis.lines.push_back(usage(m_description.name, {&m_own}));
    m_blocks.emplace_back(std::move(synopsis));
  }

  static Line usage(const std::string& words, const std::vector<const Declarations*>& all) {
    const auto haveOptions = [](const Declarations* declarations) {
      const auto& options = declarations->options;
      return std::any_of(options.begin(), options.end(), isListed);
    };
    Line line = {literal(words)};
    if (std::any_of(all.begin(), all.end(), haveOptions))
      line = line + Line{own(" ["), variable("option"), own(" ...]")};
    for (const Option* const operand : operandsOf(all)) {
      if (isOperand(*operand))
        line = line + operandUsage(*operand);
    }
    return line;
  }

  // The positional options of the first declarations that have one: all of them if the tool tells
  // what each takes, otherwise the first one, which takes every operand.
  static std::vector<const Option*> operandsOf(const std::vector<const Declarations*>& all) {
    std::vector<const Option*> operands;
    for (const Declarations* const declarations : all) {
      for (const Option& option : declarations->options) {
        if (option.positional && (operands.empty() || firstText(option.annotations, "takes")))
          operands.push_back(&option);
      }
      if (!operands.empty())
        break;
    }
    const bool isToldOfEach = !operands.empty() && firstText(operands[0]->annotations, "takes");
    operands.resize(isToldOfEach ? operands.size() : std::min<std::size_t>(operands.size(), 1));
    return operands;
  }

  static Line operandUsage(const Option& operand) {
    const bool isRequired = firstText(operand.annotations, "required").has_value();
    const bool isOne = firstText(operand.annotations, "takes") == "one";
    return Line{own(isRequired ? " " : " ["), operandName(operand), own(isOne ? "" : " ..."),
                own(isRequired ? "" : "]")};
  }

  void addDescription() {
    addHeading(1, "DESCRIPTION");
    addParagraph(m_description.summary);
    if (!squeezed(m_description.version).empty())
      m_blocks.emplace_back(Paragraph{{fact("Version", {plain(m_description.version)})}});
    addParagraph(
        "The name of an option may be cut short if no other name begins that way. The value of an "
        "option follows after a blank or an equals sign.");
  }

  void addCommands() {
    if (!m_description.commands.empty())
      addHeading(1, "COMMANDS");
    for (const Command& command : m_description.commands) {
      m_blocks.emplace_back(Heading{2, literal(command.words).text});
      addParagraph(command.summary);
      addSections(3, command.declarations, isVisible);
    }
  }

  void addChapter(const char* heading, Choice choice) {
    if (std::none_of(m_own.options.begin(), m_own.options.end(), choice))
      return;
    addHeading(1, heading);
    addSections(2, m_own, choice);
  }

  // Lists the chosen options section by section, operands first. Sections without a heading come
  // first, because their options would seem to belong to the section before them.
  void addSections(int level, const Declarations& declarations, Choice choice) {
    std::map<std::string, std::vector<const Option*>> bySection;
    for (const bool isForOperands : {true, false}) {
      for (const Option& option : declarations.options) {
        if (choice(option) && option.positional == isForOperands)
          bySection[option.section].push_back(&option);
      }
    }
    const std::set<std::string> actions = firstNamesOfActions(declarations);
    for (const bool hasHeading : {false, true}) {
      for (const Section& section : declarations.sections) {
        const auto found = bySection.find(section.heading);
        if (found != bySection.end() && hasHeading != squeezed(section.heading).empty())
          addSection(level, section, found->second, actions);
      }
    }
  }

  void addSection(int level, const Section& section, const std::vector<const Option*>& options,
                  const std::set<std::string>& actions) {
    addHeading(level, section.heading);
    addParagraph(section.introduction);
    for (const Option* const option : options)
      m_blocks.emplace_back(
          Item{entryLabel(*option, m_dashes), entryText(*option, actions, m_dashes)});
  }

  void addTogether() {
    std::set<std::string> known;
    for (const Option& option : m_own.options) {
      if (isAction(option))
        known.insert(option.names.begin(), option.names.end());
    }
    for (const Texts& set : m_own.together) {
      std::vector<Span> actions;
      for (const std::string& name : set) {
        if (known.count(name) != 0)
          actions.push_back(shownName(name, m_dashes));
      }
      if (actions.size() > 1)
        m_blocks.emplace_back(Paragraph{{fact("May be given together", listOf(actions))}});
    }
  }

  void addExitStatus() {
    addHeading(1, "EXIT STATUS");
    const auto added = m_own.annotations.find("exitStatus");
    for (const auto& [number, meaning] :
         exitStatuses(added == m_own.annotations.end() ? Texts() : added->second)) {
      if (number.empty())
        addParagraph(meaning);
      else
        m_blocks.emplace_back(Item{{literal(number)}, linesOf(meaning)});
    }
  }

  void addHeading(int level, const std::string& text) {
    if (const std::string shown = squeezed(text); !shown.empty())
      m_blocks.emplace_back(Heading{level, shown});
  }

  void addParagraph(const std::string& text) {
    if (const Span shown = plain(text); !shown.text.empty())
      m_blocks.emplace_back(Paragraph{{{shown}}});
  }

  const Description& m_description;
  const Declarations& m_own;  // of the tool itself
  Dashes m_dashes;
  std::vector<Block> m_blocks;
};

}  // namespace

Page makePage(const Description& description) {
  return {description.name, squeezed(description.summary), PageMaker(description).blocks()};
}

}  // namespace kivo_describe
