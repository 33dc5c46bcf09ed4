// Whatever a tool says of itself, its completion scripts are fixed lines and quoted words, and the
// words are its texts. For some of the inputs, the shells are asked too: they have nothing to say
// to the scripts, and when they read them nothing in them runs.
//
// The input is a script, as in describer.h. For texts that would run, ": >ran" is a command that
// leaves a file behind and takes no program.

#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <regex>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "bash_completion.h"
#include "completion.h"
#include "description_reader.h"
#include "fish_completion.h"
#include "fuzz/describer.h"
#include "fuzz/fuzz.h"
#include "fuzz/shell_words.h"
#include "zsh_completion.h"

namespace kivo_3_3::fuzzing {
namespace {

using kivo_describe::Completion;
using std::string;
using Lines = std::vector<string>;
using TextSet = std::set<string>;

// Starting the shells takes some hundred times as long as all else.
constexpr std::size_t firstInputs = 100;
constexpr std::size_t rate = 500;

struct Format {
  Shell shell;
  const char* name;
  string (*write)(const Completion& completion);
  std::regex option;  // the shape of an option's line
  std::regex other;   // the shapes of all other lines
};

const std::vector<Format>& allFormats() {
  static const std::vector<Format> formats = {
      {Shell::bash, "bash", kivo_describe::bashCompletion, std::regex("  Q Q Q Q Q Q Q"),
       std::regex("|\\)|  Q Q Q Q Q Q|declare -ga _kivo_fx_2dtool_(options|scopes)=\\("
                  "|declare -g _kivo_fx_2dtool_(dashes|lone_dash)=Q")},
      {Shell::zsh, "zsh", kivo_describe::zshCompletion,
       std::regex(
           "  _kivo:fx-tool:option (option|operand) [a-z]+ Q ([0-9]+|Q) Q Q [0-9]+ [0-9]+( Q)*"),
       std::regex(
           "|\\}|_kivo:fx-tool:(tool|scope_[0-9]+)\\(\\) \\{|  two_dashes=[01] lone_dash=[01]"
           "|  command_words\\+=\\(Q\\) command_summaries\\+=\\(Q\\)|  together\\+=\\(Q\\)")},
      {Shell::fish, "fish", kivo_describe::fishCompletion,
       std::regex("_kivo_fx_2dtool_option [0-9]+ [a-z]+ (@[0-9]+|Q) Q Q( Q)* =( Q)*"),
       std::regex(
           "|set -g _kivo_fx_2dtool_(dashes (one|two)|lone_dash (option|operand)|commands|summaries"
           "|options)|_kivo_fx_2dtool_scope [0-9]+ Q Q (operands|files) ([0-9]+|Q)( Q)*")},
  };
  return formats;
}

// Lines of data that are the same for every tool, and more than words.
bool isFixed(const string& line) {
  static const std::regex fixed(
      "# shellcheck disable=SC1003,SC2016,SC2088  # the texts are meant as they stand"
      "|# The tool( and its commands)?\\.|# A command\\.|# The options of the tool\\."
      "|# The options of its command number [0-9]+\\.|  leftovers=\\$\\{leftovers:-[01]\\}");
  return std::regex_match(line, fixed);
}

Lines linesOfScript(const string& script) {
  Lines lines(1);
  for (const char character : script) {
    if (character == '\n')
      lines.emplace_back();
    else
      lines.back() += character;
  }
  return lines;
}

Completion completionOf(const string& description) {
  return makeCompletion(kivo_describe::readDescription(description));
}

// The lines that the script of a tool without any text does not have at its beginning and end.
Lines dataLines(const Format& format, const string& script) {
  const Lines plain = linesOfScript(format.write(completionOf(Describer().text())));
  const Lines lines = linesOfScript(script);
  const auto begin = std::mismatch(lines.begin(), lines.end(), plain.begin(), plain.end()).first;
  const auto end =
      std::mismatch(lines.rbegin(), std::make_reverse_iterator(begin), plain.rbegin(), plain.rend())
          .first.base();
  return Lines(begin, end);
}

// Control characters are written in several ways, and bash separates the texts of a list by them.
void addTexts(TextSet& texts, const string& text) {
  string part;
  for (const char character : text + '\n') {
    if (static_cast<unsigned char>(character) >= 0x20 && character != '\x7F') {
      part += character;
    } else {
      texts.insert(part);
      part.clear();
    }
  }
}

TextSet textsOf(const Completion& completion, Shell shell) {
  TextSet texts;
  std::vector<kivo_describe::CompletedScope> scopes = completion.commands;
  scopes.push_back(completion.own);
  for (const kivo_describe::CompletedScope& scope : scopes) {
    addTexts(texts, scope.words);
    if (shell != Shell::bash)
      addTexts(texts, scope.summary);
    for (const kivo_describe::CompletedOption& option : scope.options) {
      for (const kivo_describe::Texts& list : {option.names, option.values})
        for (const string& text : list)
          addTexts(texts, text);
      addTexts(texts, option.separator);
      if (shell != Shell::bash)
        addTexts(texts, option.description);
    }
  }
  texts.erase("");
  return texts;
}

// The words of data lines. Names of fish have a mark before them, up to the word "=".
void addWords(TextSet& words, const Format& format, const ShellLine& line) {
  const std::size_t end = line.shape.find(" =");
  std::size_t place = 0;
  for (std::size_t i = 0; i < line.words.size(); ++i) {
    place = line.shape.find('Q', place) + 1;
    const string& word = line.words[i];
    const bool isMarked = format.shell == Shell::fish && place <= end && end != string::npos &&
                          !word.empty() && (word[0] == '+' || word[0] == '.');
    addTexts(words, word);
    if (isMarked)
      addTexts(words, word.substr(1));
  }
}

void checkScript(const Format& format, const Completion& completion, const string& script) {
  TextSet words;
  std::size_t options = 0;
  for (const string& line : dataLines(format, script)) {
    if (isFixed(line))
      continue;
    const auto read = ShellLineReader(format.shell, line).read();
    expect(read.has_value(), "a line is plain characters and quoted words", line);
    const bool isOption = std::regex_match(read->shape, format.option);
    expect(isOption || std::regex_match(read->shape, format.other), "a line has a known shape",
           line);
    options += isOption ? 1 : 0;
    addWords(words, format, *read);
  }
  std::size_t expected = completion.own.options.size();
  for (const kivo_describe::CompletedScope& command : completion.commands)
    expected += command.options.size();
  expect(options == expected, "each option has a line", script);
  for (const string& text : textsOf(completion, format.shell))
    expect(words.count(text) != 0, "each text is a word", text + "\n" + script);
}

// Reads the scripts in the folder "empty" without a PATH. zsh runs the data only in a completion.
constexpr const char* askShells = R"(
bash -n ../script.bash; bash --posix -n ../script.bash
zsh -n ../script.zsh; fish --no-config -n ../script.fish
bash --norc --noprofile -c 'PATH=; . ../script.bash'
zsh -f -c 'PATH=; compdef() { : }; . ../script.zsh
for data in ${(k)functions[(I)_kivo:*:(tool|scope_*)]}; do $data; done'
fish --no-config -c 'set PATH; source ../script.fish'
for file in * .[!.]*; do [ ! -e "$file" ] || echo "left behind: $file"; done
)";

string outputOf(const string& command) {
  std::FILE* const pipe = popen(command.c_str(), "r");
  expect(pipe != nullptr, "the command starts", command);
  string output;
  for (int character = 0; (character = std::fgetc(pipe)) != EOF;)
    output += static_cast<char>(character);
  if (pclose(pipe) != 0)
    output += "[failed]";
  return output;
}

void checkInShells(const std::vector<string>& scripts) {
  const char* const given = std::getenv("TMPDIR");
  const string folder =
      string(given != nullptr ? given : "/tmp") + "/kivo-scripts-" + std::to_string(getpid());
  std::filesystem::create_directories(folder + "/empty");
  for (std::size_t i = 0; i < allFormats().size(); ++i)
    std::ofstream(folder + "/script." + allFormats()[i].name, std::ios::binary) << scripts[i];
  std::ofstream(folder + "/ask") << "exec 2>&1\nset -e\n" << askShells;
  const string output = outputOf("cd '" + folder + "/empty' && HOME=$PWD/.. sh ../ask");
  std::filesystem::remove_all(folder);
  expectEqual("the shells read the scripts, and nothing runs", "", output);
}

}  // namespace
}  // namespace kivo_3_3::fuzzing

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace kivo_3_3::fuzzing;
  static std::size_t inputs = 0;
  Describer describer;
  for (const Step& step : scriptOf(data, size))
    describer.run(step);
  const auto completion = completionOf(describer.text());
  std::vector<std::string> scripts;
  for (const Format& format : allFormats()) {
    scripts.push_back(format.write(completion));
    checkScript(format, completion, scripts.back());
  }
  if (++inputs <= firstInputs || inputs % rate == 0)
    checkInShells(scripts);
  return 0;
}
