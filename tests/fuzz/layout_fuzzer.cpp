// Paragraphs keep their words and stay in their column, and help contains everything that was
// declared.
//
// Steps in addition to those of declarations.h:
//   paragraph INDENT|WIDTH|HEAD|TEXT

#include <kivo/text_layout.h>

#include <optional>
#include <stdexcept>

#include "fuzz/declarations.h"
#include "fuzz/fuzz.h"
#include "support/assertion_recorder.h"

namespace kivo_3_3::fuzzing {
namespace {

using std::string;

constexpr unsigned int widest = 300;
constexpr std::size_t widestHelp = 80;
constexpr std::size_t bodyColumn = 30;

std::vector<string> wordsIn(const string& text) {
  std::vector<string> words;
  for (std::size_t begin = text.find_first_not_of(" \n"); begin != string::npos;) {
    const std::size_t end = std::min(text.find_first_of(" \n", begin), text.size());
    words.push_back(text.substr(begin, end - begin));
    begin = text.find_first_not_of(" \n", end);
  }
  return words;
}

string withoutBreaks(const string& text) {
  string all;
  for (const string& word : wordsIn(text))
    all += word;
  return all;
}

struct Paragraph {
  string text;
  string head;
  unsigned int indent;
  unsigned int width;

  string shown() const {
    return "indent " + std::to_string(indent) + ", width " + std::to_string(width) + ", head [" +
           head + "], text [" + text + "]";
  }
};

// Nothing if the column has no room for a character.
std::optional<string> wrapped(const Paragraph& p) {
  try {
    return paragraphString(p.text, p.head, p.indent, p.width);
  } catch (const std::out_of_range&) {
    return std::nullopt;
  }
}

void checkLines(const Paragraph& p, const string& paragraph) {
  const std::vector<string> lines = linesOf(paragraph);
  expect(paragraph.empty() || paragraph.back() == '\n', "every line ends", p.shown());
  if (p.width == 0)  // a width of 0 has no limit
    return;
  const std::size_t longest = p.indent + p.width - 1;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    const bool isHead = i == 0 && lines[i] == p.head;
    expect(isHead || lines[i].size() <= longest, "lines keep to the column",
           p.shown() + "\n" + lines[i]);
    const string margin = lines[i].substr(0, p.indent);
    expect(i == 0 || margin.find_first_not_of(' ') == string::npos, "lines are indented",
           p.shown() + "\n" + lines[i]);
  }
}

// A head that ends before the column leaves the first line its full width.
void checkWords(const Paragraph& p, const string& paragraph) {
  const std::size_t room = p.indent == 0 ? p.width - 2 : p.width - 1;
  const std::vector<string> words = wordsIn(p.text);
  const bool allFit = std::all_of(words.begin(), words.end(),
                                  [&](const string& word) { return word.size() <= room; });
  if (allFit && p.width != 0 && (p.head.size() < p.indent || p.head.empty()))
    expect(words == wordsIn(paragraph.substr(p.head.size())), "words that fit stay whole",
           p.shown() + "\n" + paragraph);
}

void checkParagraph(const Paragraph& p) {
  const std::optional<string> paragraph = wrapped(p);
  const bool isNarrow = p.width == 1 || (p.indent == 0 && p.width == 2);
  expect(paragraph.has_value() == (!isNarrow || wordsIn(p.text).empty()),
         "only a column too narrow for a character raises", p.shown());
  if (!paragraph)
    return;
  if (p.text.empty()) {
    expectEqual("a head without a text gives nothing", "", *paragraph);
    return;
  }
  expectEqual("no character is lost", withoutBreaks(p.head + p.text), withoutBreaks(*paragraph));
  if (p.head.find('\n') == string::npos)
    checkLines(p, *paragraph);
  checkWords(p, *paragraph);
  const WordWrappedText text(p.head.c_str(), p.text.c_str(), p.indent, p.indent + p.width);
  expectEqual("both ways to wrap agree", *paragraph, text.getText());
}

bool isHidden(const Declared& declared) { return declared.groupKey == "kivo_hidden"; }

bool hasTopics(const Declarations& declarations, bool hidden) {
  return std::any_of(
      declarations.accepted().begin(), declarations.accepted().end(),
      [&](const Declared& declared) { return declared.isAction && isHidden(declared) == hidden; });
}

bool isNameless(const Declared& declared) { return declared.names.empty(); }

// The help of a tool with actions has one line for each action, in the order of their names.
void checkTopics(const Declarations& declarations, const string& help, bool hidden) {
  std::map<string, string> topics;
  for (const Declared& declared : declarations.accepted())
    if (declared.isAction && isHidden(declared) == hidden)
      topics[declared.names.front()] = declared.description;
  std::size_t longest = 0;
  for (const auto& topic : topics)
    longest = std::max(longest, topic.first.size());
  string expected;
  for (const auto& [name, description] : topics)
    expected += "    " + name + string(longest + 3 - name.size(), ' ') + description + "\n";
  expectEqual("every action is a topic", expected, help);
}

// The head of an option without values has names only. It is before the description, or on a line
// of its own if it is too long.
void checkColumn(const string& head, const string& help) {
  const string begin =
      head.size() < bodyColumn ? head + string(bodyColumn - head.size(), ' ') : head + "\n";
  expect(help.find(begin) != string::npos, "descriptions begin in their column",
         begin + "\n" + help);
}

void checkEntries(const Declarations& declarations, const string& help, bool hidden) {
  const string all = withoutBreaks(help);
  for (const Declared& declared : declarations.accepted()) {
    if (declared.isPositional || declared.description.empty() || isHidden(declared) != hidden)
      continue;
    string head;
    for (const string& name : declared.names)
      head += (head.empty() ? "-" : ", -") + name;
    expect(all.find(withoutBreaks(head)) != string::npos, "every option is described",
           head + "\n" + help);
    if (declared.type == vtNull)
      checkColumn(head, help);
    expect(all.find(withoutBreaks(declared.description)) != string::npos,
           "every description is there in full", declared.description + "\n" + help);
  }
}

// Only group keys and long heads, on lines of their own, may be wider than the help.
void checkHelpLines(const Declarations& declarations, const string& help) {
  for (const string& line : linesOf(help)) {
    const bool isKey = std::any_of(declarations.groupKeys().begin(), declarations.groupKeys().end(),
                                   [&](const string& key) { return key == line; });
    expect(line.size() <= widestHelp || isKey || line.front() == '-', "help keeps to its columns",
           line);
  }
}

void checkHelp(IParser& parser, const Declarations& declarations) {
  const std::vector<Declared>& accepted = declarations.accepted();
  const bool isWhole = std::none_of(accepted.begin(), accepted.end(), isNameless);
  for (const bool hidden : {false, true}) {
    const string help = parser.getDescription(hidden);
    if (!isWhole)
      continue;
    if (hasTopics(declarations, hidden)) {
      checkTopics(declarations, help, hidden);
      continue;
    }
    checkEntries(declarations, help, hidden);
    if (!declarations.tearsLines())
      checkHelpLines(declarations, help);
  }
}

}  // namespace
}  // namespace kivo_3_3::fuzzing

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace kivo_3_3;
  const fuzzing::Script script = fuzzing::scriptOf(data, size);
  for (const fuzzing::Step& step : script)
    if (step.is("paragraph"))
      fuzzing::checkParagraph({step.text(3), step.text(2),
                               static_cast<unsigned int>(step.number(0)) % fuzzing::widest,
                               static_cast<unsigned int>(step.number(1)) % fuzzing::widest});
  const testing::AssertionRecorder assertions;
  const ParserHandle parser = makeParser();
  fuzzing::Declarations declarations(*parser);
  declarations.declare(script);
  fuzzing::checkHelp(*parser, declarations);
  fuzzing::expect(!declarations.valuesSuit() || assertions.records().empty(),
                  "values that suit are written without complaint", assertions.expressions());
  return 0;
}
