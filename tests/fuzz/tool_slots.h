#pragma once

// Variables of every type that a tool can declare, behind one interface.

#include <kivo/tool.h>

#include <algorithm>
#include <cstdio>
#include <limits>
#include <map>
#include <memory>
#include <new>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "fuzz/script.h"

namespace kivo_3_3::fuzzing {

enum class Tone { low, middle, high };

// A type of the tool's own: a text that begins with an "o".
struct Own {
  std::string text;
};
inline const char* parseValue(const char* text, Own& own) {
  own.text = text;
  return *text == 'o' ? nullptr : "a text that begins with an o";
}
inline std::string formatValue(const Own& own) {
  if (own.text == "throw")
    throw std::runtime_error("no text");
  return own.text;
}

// 1: an exception with a text; 2: another one; 3: lack of memory.
inline void throwIfAsked(int what) {
  if (what == 1)
    throw std::runtime_error("thrown");
  if (what == 2)
    throw what;
  if (what == 3)
    throw std::bad_alloc();
}

// A number in a script: one of the limits of the type, or one that fits. Allocates nothing.
template <class T>
T numberIn(const Step& step, std::size_t field) {
  const char* const text = step.textOrNull(field);
  const std::string_view word = text != nullptr ? text : "";
  if (word == "least")
    return std::numeric_limits<T>::lowest();
  if (word == "most")
    return std::numeric_limits<T>::max();
  return static_cast<T>(step.number(field) % 100);
}

template <class T>
T valueIn(const Step& step, std::size_t field) {
  if constexpr (std::is_enum_v<T>)
    return static_cast<T>(static_cast<unsigned int>(step.number(field)) % 3);
  else if constexpr (std::is_same_v<T, bool>)
    return step.number(field) != 0;
  else if constexpr (std::is_same_v<T, char>)
    return step.textOrNull(field) != nullptr ? *step.textOrNull(field) : '\0';
  else if constexpr (std::is_arithmetic_v<T>)
    return numberIn<T>(step, field);
  else if constexpr (std::is_same_v<T, Own>)
    return Own{step.text(field)};
  else
    return step.textOrNull(field) != nullptr ? T(step.textOrNull(field)) : T();
}

// Exact.
template <class T>
std::string textOf(const T& value) {
  if constexpr (std::is_same_v<T, Own>)
    return value.text;
  else if constexpr (std::is_constructible_v<std::string, const T&>)
    return std::string(value);
  else if constexpr (std::is_enum_v<T>)
    return std::to_string(static_cast<int>(value));
  else if constexpr (std::is_floating_point_v<T>) {
    char hexadecimal[64];
    std::snprintf(hexadecimal, sizeof hexadecimal, "%La", static_cast<long double>(value));
    return hexadecimal;
  } else
    return std::to_string(value);
}
inline std::string textOf(const char* value) { return value != nullptr ? value : "(null)"; }

// Calls `visit` with each value of a variable.
template <class T, class Visit>
void eachOf(const T& value, Visit visit) {
  visit(value);
}
template <class T, class Visit>
void eachOf(const std::optional<T>& value, Visit visit) {
  if (value)
    visit(*value);
}
template <class T, class Visit>
void eachOf(const std::vector<T>& values, Visit visit) {
  for (const T& value : values)
    visit(value);
}

template <class T>
constexpr bool hasRange =
    std::is_arithmetic_v<T> && !std::is_same_v<T, bool> && !std::is_same_v<T, char>;

// A declaration of a script, with the steps that amend it.
class Slot {
 public:
  Slot(const Step& step, bool isOperand) : m_step(step), m_isOperand(isOperand) {}
  Slot(const Slot&) = delete;
  Slot& operator=(const Slot&) = delete;
  virtual ~Slot() = default;

  void amend(const Step& step) { m_amendments.push_back(&step); }
  bool has(const char* verb) const {
    return std::any_of(m_amendments.begin(), m_amendments.end(),
                       [&](const Step* step) { return step->is(verb); });
  }
  const Step& step() const { return m_step; }
  bool isOperand() const { return m_isOperand; }

  // Allocates nothing itself.
  virtual void declare(Tool& tool) = 0;
  // Keeps how often it was given, which the tool forgets when it is destroyed.
  void noteGiven() { m_given = countGiven(); }
  unsigned int given() const { return m_given; }
  virtual std::string value() const = 0;
  // Why the tool should not have accepted the value that it was given; empty if it may.
  virtual std::string objection() const = 0;

 protected:
  virtual unsigned int countGiven() const = 0;
  template <class Option>
  void amendAll(Option& option) const {
    for (const Step* step : m_amendments) {
      amendWithTexts(option, *step);
      amendWithValues(option, *step);
    }
  }
  const std::vector<const Step*>& amendments() const { return m_amendments; }

 private:
  template <class Option>
  static void amendWithTexts(Option& option, const Step& step) {
    const char* const text = step.textOrNull(0);
    if (step.is("required"))
      option.required();
    else if (step.is("hidden"))
      option.hidden();
    else if (step.is("env"))
      option.env(text);
    else if (step.is("placeholder"))
      option.placeholder(text);
    else if (step.is("split"))
      option.split(text != nullptr ? *text : '\0');
    else if (step.is("only"))
      option.only(text);
    else if (step.is("deprecated"))
      option.deprecated(text);
    else if (step.is("shown"))
      option.shownDefault(text);
    else if (step.is("former"))
      option.deprecatedChoice(text, step.textOrNull(1));
  }

  template <class Option>
  static void amendWithValues(Option& option, const Step& step) {
    using T = typename Option::Value;
    if constexpr (hasRange<T>) {
      if (step.is("range"))
        option.range(numberIn<T>(step, 0), numberIn<T>(step, 1));
    }
    if (step.is("choice")) {
      if constexpr (tool_glue::kindOf<T>() != tool_glue::Kind::object) {
        if (step.textOrNull(1) != nullptr) {
          option.choices({Choice<T>{step.textOrNull(0), valueIn<T>(step, 1)}});
          return;
        }
      }
      option.choices(std::initializer_list<const char*>{step.textOrNull(0)});
    } else if (step.is("check")) {
      option.check([step = &step](const T& value) { return refusal(value, *step); });
    }
  }

  // check MODE: 1 to 3 throw; 4 refuses everything; others refuse nothing.
  template <class T>
  static const char* refusal(const T&, const Step& step) {
    throwIfAsked(step.number(0));
    return step.number(0) == 4 ? "nothing at all" : nullptr;
  }

  const Step& m_step;
  const bool m_isOperand;
  std::vector<const Step*> m_amendments;
  unsigned int m_given = 0;
};

template <class Variable>
class VariableSlot final : public Slot {
  using T = typename Option<Variable>::Value;

 public:
  VariableSlot(const Step& step, bool isOperand) : Slot(step, isOperand) {
    if (step.textOrNull(2) == nullptr)
      return;
    if constexpr (std::is_same_v<Variable, std::vector<T>>)
      m_value.push_back(valueIn<T>(step, 2));
    else
      m_value = valueIn<T>(step, 2);
  }

  void declare(Tool& tool) override {
    const char* const names = step().textOrNull(0);
    const char* const help = step().textOrNull(3);
    m_option.reset();  // a command may declare several times
    if constexpr (std::is_same_v<Variable, std::vector<T>>) {
      if (step().is("rest"))
        m_option.emplace(tool.rest(names, m_value, help));
    }
    if (step().is("operand"))
      m_option.emplace(tool.operand(names, m_value, help));
    else if (!m_option && step().number(4) != 0)
      m_option.emplace(tool.option(names, m_value, help, [](const char* text, T& value) {
        value = T{};
        return *text == 'w' ? "another word" : "";
      }));
    else if (!m_option)
      m_option.emplace(tool.option(names, m_value, help));
    amendAll(*m_option);
  }

  std::string value() const override {
    std::string all;
    eachOf(m_value, [&](const T& value) { all += '[' + textOf(value) + ']'; });
    return all;
  }

  std::string objection() const override {
    std::string all;
    unsigned int count = 0;
    eachOf(m_value, [&](const T& value) {
      ++count;
      all += rangeObjection(value) + choiceObjection(value);
    });
    constexpr bool isList = std::is_same_v<Variable, std::vector<T>>;
    const bool isCounted = isList && !has("split") && count != given();
    return all + (count == 0 ? "no value; " : "") + (isCounted ? "not as many as given; " : "");
  }

 private:
  unsigned int countGiven() const override { return m_option->given(); }

  std::string rangeObjection([[maybe_unused]] const T& value) const {
    std::string all;
    if constexpr (hasRange<T>) {
      for (const Step* step : amendments()) {
        if (step->is("range"))  // the last one counts
          all = numberIn<T>(*step, 0) <= value && value <= numberIn<T>(*step, 1)
                    ? ""
                    : "outside of the range; ";
      }
    }
    return step().number(4) == 0 ? all : "";
  }

  // Of texts and of values that choices stand for.
  std::string choiceObjection(const T& value) const {
    if (!has("choice") || step().number(4) != 0)
      return "";
    bool isKnown = false;
    for (const Step* step : amendments()) {
      if (step->is("choice") && step->textOrNull(1) != nullptr && std::is_enum_v<T>)
        isKnown |= textOf(value) == textOf(valueIn<T>(*step, 1));
      else if (step->is("choice") || step->is("former"))
        isKnown |= textOf(value) == step->text(step->is("former") ? 1 : 0);
    }
    const bool isText = std::is_enum_v<T> || std::is_same_v<T, std::string>;
    return isKnown || !isText ? "" : "none of the choices; ";
  }

  Variable m_value{};
  std::optional<Option<Variable>> m_option;
};

// A flag, a count, a function, a configuration file.
class OtherSlot final : public Slot {
 public:
  OtherSlot(const Step& step, const std::string& path) : Slot(step, false), m_path(path) {
    m_texts.reserve(1000);  // a call allocates nothing
  }

  void declare(Tool& tool) override {
    const char* const names = step().textOrNull(0);
    const char* const help = step().textOrNull(3);
    if (step().is("flag"))
      amendAll(m_told.emplace(tool.flag(names, m_flag, help)));
    else if (step().is("count"))
      amendAll(m_counted.emplace(tool.count(names, m_count, help)));
    else if (step().is("each"))
      amendAll(m_called.emplace(tool.each(
          names, [this](const char* text) { take(text); }, help)));
    else
      amendAll(m_called.emplace(
          tool.config(names, step().number(1) != 0 ? m_path.c_str() : nullptr, help)));
  }

  std::string value() const override {
    return (m_flag ? "on " : "off ") + std::to_string(m_count) + ' ' + m_texts;
  }
  std::string objection() const override {
    if (step().is("flag") && !m_flag)
      return "given, but not on";
    return step().is("count") && static_cast<unsigned int>(m_count) != given() ? "not as often"
                                                                               : "";
  }

 private:
  unsigned int countGiven() const override {
    if (m_counted)
      return m_counted->given();
    return m_told ? m_told->given() : m_called ? m_called->given() : 0;
  }

  void take(const char* text) {
    throwIfAsked(step().number(1));
    if (m_texts.size() + std::char_traits<char>::length(text) + 2 < m_texts.capacity())
      m_texts.append("<").append(text).append(">");
  }

  const std::string& m_path;
  bool m_flag = false;
  int m_count = 7;
  std::string m_texts;
  std::optional<Option<bool>> m_told;
  std::optional<Option<int>> m_counted;
  std::optional<Option<const char*>> m_called;
};

template <class T>
std::unique_ptr<Slot> slotOf(const Step& step, const std::string& holder) {
  const bool isOperand = step.is("operand") || step.is("rest");
  using Item = std::conditional_t<std::is_same_v<T, bool>, std::string, T>;
  if (step.is("rest") || (holder == "list" && !std::is_same_v<T, bool>))
    return std::make_unique<VariableSlot<std::vector<Item>>>(step, isOperand);
  if (holder == "optional")
    return std::make_unique<VariableSlot<std::optional<T>>>(step, isOperand);
  return std::make_unique<VariableSlot<T>>(step, isOperand);
}

// option NAMES|TYPE HOLDER|DEFAULT|HELP|OWN PARSER
inline std::unique_ptr<Slot> variableSlot(const Step& step) {
  using Make = std::unique_ptr<Slot> (*)(const Step&, const std::string&);
  static const std::map<std::string, Make> types = {
      {"bool", slotOf<bool>},        {"char", slotOf<char>},
      {"s8", slotOf<signed char>},   {"u16", slotOf<unsigned short>},
      {"s32", slotOf<int>},          {"u32", slotOf<unsigned int>},
      {"s64", slotOf<long long>},    {"u64", slotOf<unsigned long long>},
      {"float", slotOf<float>},      {"double", slotOf<double>},
      {"long", slotOf<long double>}, {"tone", slotOf<Tone>},
      {"own", slotOf<Own>}};
  const std::string typed = step.text(1);
  const std::string type = typed.substr(0, typed.find(' '));
  const std::string holder = typed.substr(std::min(type.size() + 1, typed.size()));
  const auto found = types.find(type);
  return found != types.end() ? found->second(step, holder) : slotOf<std::string>(step, holder);
}

}  // namespace kivo_3_3::fuzzing
