// Whatever a tool says of itself, mandoc has nothing to say to its manual page, and its page in
// Markdown has no elements but plain ones.
//
// Steps, as in script.h; each one adds to the last option or command before it:
//   tool VERSION|SUMMARY
//   section HEADING|INTRODUCTION      hides its options if the heading is "kivo_hidden"
//   option NAME,NAME|DESCRIPTION|TYPE|KIND
//   positional     allow VALUE     deprecate VALUE|REPLACEMENT     default VALUE
//   annotate KEY|TEXT                 the option, or the tool before the first option
//   together NAME,NAME     command WORDS|SUMMARY

#include <unistd.h>

#include <array>
#include <cstdlib>
#include <fstream>
#include <memory>
#include <nlohmann/json.hpp>
#include <set>
#include <string>

#include "description_reader.h"
#include "fuzz/fuzz.h"
#include "fuzz/script.h"
#include "manual_page.h"
#include "markdown.h"
#include "page.h"
#include "text.h"

namespace kivo_3_3::fuzzing {
namespace {

using json = nlohmann::json;
using std::string;

json declarations() {
  const json section = {{"heading", ""}, {"introduction", ""}, {"hidden", false}};
  return {{"sections", json::array({section})}, {"options", json::array()},
          {"together", json::array()},          {"unknownArguments", "error"},
          {"dashArguments", "options"},         {"leftoverArguments", "kept"}};
}

// One of the texts, picked by the number of another one.
template <std::size_t count>
string oneOf(const std::array<const char*, count>& texts, const string& picked) {
  return texts[picked.size() % count];
}

// A field of a step as UTF-8.
string field(const Step& step, std::size_t number) {
  const json text = step.text(number);
  return json::parse(text.dump(-1, ' ', false, json::error_handler_t::replace));
}

// Makes a valid description of any script.
class Describer {
 public:
  Describer() : m_json(declarations()), m_place(&m_json) {
    m_json["schema"] = "kivo-description/1";
    m_json["tool"] = {{"name", "fx-tool"}, {"version", ""}, {"summary", ""}};
  }

  void run(const Step& step) {
    if (step.is("tool")) {
      m_json["tool"]["version"] = field(step, 0);
      m_json["tool"]["summary"] = field(step, 1);
    } else if (step.is("section")) {
      addSection(step);
    } else if (step.is("option")) {
      addOption(step);
    } else if (step.is("together")) {
      const auto names = wordsOf(field(step, 0));
      (*m_place)["together"].push_back(std::set<string>(names.begin(), names.end()));
    } else if (step.is("command")) {
      addCommand(step);
    } else if (step.is("annotate")) {
      json& owner = (*m_place)["options"].empty() ? *m_place : (*m_place)["options"].back();
      owner["annotations"][field(step, 0)].push_back(field(step, 1));
    } else if (!(*m_place)["options"].empty()) {
      addToOption((*m_place)["options"].back(), step);
    }
  }

  string text() const { return m_json.dump(); }

 private:
  void addSection(const Step& step) {
    m_section = field(step, 0);
    for (const json& section : (*m_place)["sections"]) {
      if (section["heading"] == m_section)
        return;
    }
    (*m_place)["sections"].push_back({{"heading", m_section},
                                      {"introduction", field(step, 1)},
                                      {"hidden", m_section == "kivo_hidden"}});
  }

  void addOption(const Step& step) {
    const auto names = wordsOf(field(step, 0));
    const string kind =
        oneOf(std::array<const char*, 3>{"option", "action", "modifier"}, field(step, 3));
    json option = {
        {"names", names.empty() ? std::vector<string>{""} : names},
        {"kind", kind},
        {"type", oneOf(std::array<const char*, 3>{"string", "none", "boolean"}, field(step, 2))},
        {"description", field(step, 1)},
        {"section", m_section},
        {"hidden", m_section == "kivo_hidden"},
        {"separator", nullptr},
        {"positional", false}};
    if (kind == "modifier")
      option["actions"] = wordsOf(field(step, 4));
    (*m_place)["options"].push_back(option);
  }

  void addCommand(const Step& step) {
    string words;
    for (const string& word : kivo_describe::splitAtBlanks(field(step, 0))) {
      if (kivo_describe::isWord(word) && word.front() != '-')
        words += (words.empty() ? "" : " ") + word;
    }
    if (words.empty() || !m_words.insert(words).second)
      return;
    json command = declarations();
    command["words"] = words;
    command["summary"] = field(step, 1);
    m_json["commands"].push_back(command);
    m_place = &m_json["commands"].back();
    m_section.clear();
  }

  static void addToOption(json& option, const Step& step) {
    if (step.is("positional"))
      option["positional"] = true;
    else if (step.is("allow"))
      option["allowed"].push_back(field(step, 0));
    else if (step.is("deprecate"))
      option["deprecated"].push_back({{"value", field(step, 0)}, {"replacement", field(step, 1)}});
    else if (step.is("default") && option["type"] == "boolean")
      option["default"] = field(step, 0) == "true";
    else if (step.is("default") && !field(step, 0).empty())
      option["default"] = field(step, 0);
  }

  json m_json;
  json* m_place;     // the tool, or its last command
  string m_section;  // of the next option
  std::set<string> m_words;
};

// What a command of the shell prints for an input, and "[failed]" if the command fails.
string outputOf(const string& command, const string& input) {
  const char* const folder = std::getenv("TMPDIR");
  const string file =
      string(folder != nullptr ? folder : "/tmp") + "/kivo-page-" + std::to_string(getpid());
  std::ofstream(file, std::ios::binary) << input;
  std::FILE* const pipe = popen((command + " <" + file + " 2>&1").c_str(), "r");
  expect(pipe != nullptr, "the command starts", command);
  string output;
  for (int character = 0; (character = std::fgetc(pipe)) != EOF;)
    output += static_cast<char>(character);
  if (pclose(pipe) != 0)
    output += "[failed]";
  std::remove(file.c_str());
  return output;
}

void checkCharacters(const string& page) {
  for (std::size_t i = 0; i < page.size(); ++i) {
    const bool isC1 = page[i] == '\xC2' && static_cast<unsigned char>(page[i + 1]) < 0xA0;
    const bool isC0 = static_cast<unsigned char>(page[i]) < 0x20 && page[i] != '\n';
    expect(!isC0 && !isC1 && page[i] != '\x7F', "no control character but the line end", page);
  }
}

// Every element of the rendered page is one of these, without attributes.
void checkElements(const string& html) {
  const std::set<string> plain = {"h1", "h2", "h3", "h4", "p", "ul", "li", "em", "code", "br /"};
  for (std::size_t begin = html.find('<'); begin != string::npos;
       begin = html.find('<', begin + 1)) {
    const std::size_t slash = html[begin + 1] == '/' ? 1 : 0;
    const string element =
        html.substr(begin + 1 + slash, html.find('>', begin) - begin - 1 - slash);
    expect(plain.count(element) != 0, "elements are plain", html);
  }
}

}  // namespace
}  // namespace kivo_3_3::fuzzing

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace kivo_3_3::fuzzing;
  Describer describer;
  for (const Step& step : scriptOf(data, size))
    describer.run(step);
  const auto description = kivo_describe::readDescription(describer.text());
  const kivo_describe::Page page = makePage(description);
  const std::string manual = manualPage(page, "2024-02-29");
  expectEqual(("mandoc has nothing to say to\n" + manual).c_str(), "",
              outputOf("mandoc -T lint -W warning", manual));
  checkCharacters(manual);
  const std::string markdown = kivo_describe::markdown(page);
  checkCharacters(markdown);
  checkElements(outputOf("cmark-gfm --unsafe -e table", markdown));
  return 0;
}
