#pragma once

// Makes a valid description of any script.
//
// Steps, as in script.h; each one adds to the last option or command before it:
//   tool VERSION|SUMMARY
//   section HEADING|INTRODUCTION      hides its options if the heading is "kivo_hidden"
//   option NAME,NAME|DESCRIPTION|TYPE|KIND
//   positional     allow VALUE     deprecate VALUE|REPLACEMENT     default VALUE
//   annotate KEY|TEXT                 the option, or the tool before the first option
//   separator CHARACTER     together NAME,NAME     command WORDS|SUMMARY

#include <array>
#include <nlohmann/json.hpp>
#include <set>
#include <string>
#include <vector>

#include "fuzz/script.h"
#include "text.h"

namespace kivo_3_3::fuzzing {

using json = nlohmann::json;
using std::string;

inline json declarations() {
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
inline string field(const Step& step, std::size_t number) {
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
    else if (step.is("separator") && step.text(0).size() == 1)
      option["separator"] = field(step, 0);
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

}  // namespace kivo_3_3::fuzzing
