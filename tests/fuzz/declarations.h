#pragma once

// Makes the declarations in the steps of a script, and records which ones the parser accepted.
//   option NAMES|DESCRIPTION|TYPE|GROUP       action NAMES|DESCRIPTION|TYPE|GROUP
//   modifier NAMES|ACTIONS|DESCRIPTION|TYPE|GROUP
//   synonym NAME   allow TYPE|VALUE   deprecate TYPE|OLD|TYPE|NEW   default TYPE|VALUE
//   tokenize CHARACTER   positional   tag TAGS   together ACTIONS

#include <kivo/kivo.h>

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "fuzz/script.h"
#include "options/option_description.h"
#include "options/value_conversion.h"

namespace kivo_3_3::fuzzing {

inline variant_type_t typeOf(const std::string& word) {
  static const std::map<std::string, variant_type_t> types = {
      {"bool", vtBool},     {"s32", vtS32},         {"u32", vtU32},
      {"s64", vtS64},       {"u64", vtU64},         {"double", vtDouble},
      {"string", vtString}, {"wide", vtWideString}, {"strange", static_cast<variant_type_t>(99)}};
  const auto known = types.find(word);
  return known != types.end() ? known->second : vtNull;
}

inline variant_t valueOf(const std::string& type, const std::string& text) {
  switch (typeOf(type)) {
    case vtBool:
      return text == "1";
    case vtS32:
      return static_cast<s32_t>(std::strtoll(text.c_str(), nullptr, 0));
    case vtU32:
      return static_cast<u32_t>(std::strtoull(text.c_str(), nullptr, 0));
    case vtS64:
      return std::strtoll(text.c_str(), nullptr, 0);
    case vtU64:
      return std::strtoull(text.c_str(), nullptr, 0);
    case vtDouble:
      return std::strtod(text.c_str(), nullptr);
    case vtString:
      return text.c_str();
    default:
      return {};
  }
}

struct Declared {
  std::vector<std::string> names;
  std::string description;
  std::string groupKey;
  variant_type_t type = vtNull;
  bool isAction = false;
  bool isPositional = false;
};

class Declarations {
 public:
  explicit Declarations(IParser& parser) : m_parser(parser) {}

  void declare(const Script& script) {
    for (const Step& step : script)
      if (!declareOne(step))
        amend(step);
  }

  // In declaration order, without the rejected declarations.
  const std::vector<Declared>& accepted() const { return m_accepted; }

  // Every name that may be in a result, and one that is not.
  std::set<std::string> names() const {
    std::set<std::string> all = {"no such name"};
    for (const Declared& declared : m_accepted)
      all.insert(declared.names.begin(), declared.names.end());
    return all;
  }

  // Whether some option has one name twice.
  bool namesRepeat() const {
    return std::any_of(m_accepted.begin(), m_accepted.end(), [](const Declared& declared) {
      const std::set<std::string> distinct(declared.names.begin(), declared.names.end());
      return distinct.size() != declared.names.size();
    });
  }

  bool someHasNoName() const {
    return std::any_of(m_accepted.begin(), m_accepted.end(),
                       [](const Declared& declared) { return declared.names.empty(); });
  }

  // The groups of rejected declarations too, because help has sections for them.
  const std::set<std::string>& groupKeys() const { return m_groupKeys; }

  // Whether all values match the types of their options, as the interface demands.
  bool valuesSuit() const { return m_valuesSuit; }
  // Whether there is a newline that breaks a line of the help in two.
  bool tearsLines() const { return m_tearsLines; }

 private:
  bool declareOne(const Step& step) {
    if (step.is("option"))
      keep(step, 0,
           m_parser.option(step.textOrNull(0), step.textOrNull(1), typeOf(step.text(2)),
                           step.textOrNull(3)));
    else if (step.is("action"))
      keep(step, 0,
           m_parser.action(step.textOrNull(0), step.textOrNull(1), typeOf(step.text(2)),
                           step.textOrNull(3)));
    else if (step.is("modifier"))
      keep(step, 1,
           m_parser.modifier(step.textOrNull(0), step.textOrNull(1), step.textOrNull(2),
                             typeOf(step.text(3)), step.textOrNull(4)));
    else
      return false;
    return true;
  }

  // The description is the field after the first `skipped` + 1 fields; type and group follow it.
  void keep(const Step& step, std::size_t skipped, IOption* builder) {
    const std::string group = step.text(skipped + 3);
    const std::string key = group.substr(0, group.find(':'));
    m_builder = static_cast<OptionDescription*>(builder);
    m_rejected = Declared();
    m_groupKeys.insert(key);
    m_tearsLines |= (step.text(0) + group).find('\n') != std::string::npos;
    if (m_builder->m_status != OptionDescription::stored)
      return;
    m_accepted.push_back({wordsOf(step.text(0)), step.text(skipped + 1), key,
                          typeOf(step.text(skipped + 2)), step.is("action"), false});
  }

  Declared& last() {
    return m_builder->m_status == OptionDescription::stored ? m_accepted.back() : m_rejected;
  }

  void amend(const Step& step) {
    if (step.is("together")) {
      const std::vector<std::string> actions = wordsOf(step.text(0));
      m_parser.allowSimultaneousActions({actions.begin(), actions.end()});
    }
    if (m_builder == nullptr)
      return;
    if (step.is("synonym") && m_builder->synonym(step.textOrNull(0)) && step.textOrNull(0)) {
      last().names.push_back(step.text(0));
      m_tearsLines |= step.text(0).find('\n') != std::string::npos;
    } else if (step.is("tokenize")) {
      m_builder->tokenize(*step.text(0).c_str());
    } else if (step.is("positional")) {
      m_builder->positional();
      last().isPositional = true;
    } else if (step.is("tag")) {
      m_builder->tag(step.textOrNull(0));
    } else {
      amendValues(step);
    }
  }

  void amendValues(const Step& step) {
    if (step.is("allow"))
      m_builder->allowValue(checked(step));
    else if (step.is("default"))
      m_builder->defaultValue(checked(step));
    else if (step.is("deprecate"))
      m_builder->allowDeprecatedValue(valueOf(step.text(0), step.text(1)),
                                      valueOf(step.text(2), step.text(3)));
  }

  variant_t checked(const Step& step) {
    const variant_t value = valueOf(step.text(0), step.text(1));
    m_valuesSuit &= canBecomeText(m_builder->m_type, value);
    m_tearsLines |= step.text(1).find('\n') != std::string::npos;
    return value;
  }

  IParser& m_parser;
  OptionDescription* m_builder = nullptr;  // of the last declaration
  std::vector<Declared> m_accepted;
  Declared m_rejected;
  std::set<std::string> m_groupKeys;
  bool m_valuesSuit = true;
  bool m_tearsLines = false;
};

}  // namespace kivo_3_3::fuzzing
