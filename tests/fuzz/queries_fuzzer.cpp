// A result and its cursors against a plain list of everything that was stored, walked
// anew for each query; storing and reading take turns.
//   option NAMES|DEFAULT     declares an option of text values
//   given OPTION|VALUES      stores an occurrence, its values between commas
//   defaults                 applies the defaults that are declared
//   argument TEXT            stores a leftover argument
//   present NAME|FROM|TO   get NAME|FROM|TO   last NAME|FROM|TO
//   next   position   first   following

#include <optional>
#include <set>

#include "fuzz/fuzz.h"
#include "fuzz/parsing.h"
#include "fuzz/script.h"
#include "options/make_option.h"
#include "result/parse_result.h"

namespace kivo_3_3::fuzzing {
namespace {

using std::string;

// Everything stored, in the order of storing.
struct Stored {
  enum Kind { occurrence, value, defaultValue, argument };
  Kind kind;
  std::size_t option;
  string name;  // of a default, which has a position under each name
  string text;
  int position;
};

// The queries as they are documented, each a walk over the list.
class Model {
 public:
  void add(const Stored& stored) { m_list.push_back(stored); }

  string get(std::optional<std::size_t> option, const string& name, int from, int to) {
    if (!select(option, name, from, to))
      return "nothing";
    if (const Stored* onlyDefault = defaultOfSelected())
      return told(*onlyDefault);
    return next();
  }

  bool present(std::optional<std::size_t> option, const string& name, int from, int to) {
    if (!select(option, name, from, to))
      return false;
    if (defaultOfSelected() != nullptr)
      m_from = m_to = lastPosition;
    return true;
  }

  string next() {
    if (!m_option)
      return "nothing";
    if (const Stored* onlyDefault = defaultOfSelected()) {
      if (m_from != lastPosition || m_to != lastPosition)
        return "nothing";
      m_from = firstPosition;  // once is enough
      return told(*onlyDefault);
    }
    if (all(Stored::value).empty()) {
      const int position = nextPosition();
      return position != lastPosition ? "-@" + std::to_string(position) : "nothing";
    }
    for (; m_value < all(Stored::value).size(); ++m_value) {
      const Stored& candidate = *all(Stored::value)[m_value];
      if (candidate.position > m_to)
        break;
      if (candidate.position >= m_from) {
        ++m_value;
        return told(candidate);
      }
    }
    return "nothing";
  }

  int nextPosition() {
    if (!m_option || m_occurrence == all(Stored::occurrence).size())
      return lastPosition;
    return all(Stored::occurrence)[m_occurrence++]->position;
  }

  string last(std::optional<std::size_t> option, const string& name, int from, int to) {
    string kept = "nothing";
    for (string value = get(option, name, from, to); value != "nothing"; value = next())
      kept = value;
    return kept;
  }

  string nextArgument(bool fromStart) {
    m_argument = fromStart ? 0 : m_argument;
    std::size_t passed = 0;
    for (const Stored& stored : m_list)
      if (stored.kind == Stored::argument && passed++ == m_argument) {
        ++m_argument;
        return stored.text;
      }
    return "nothing";
  }

 private:
  // Whether the option was given in the range or has nothing but a default.
  bool select(std::optional<std::size_t> option, const string& name, int from, int to) {
    m_option = option;
    m_name = name;
    m_from = from;
    m_to = to;
    m_value = m_occurrence = 0;
    if (!isStored())
      m_option.reset();
    if (!m_option || defaultOfSelected() != nullptr)
      return m_option.has_value();
    const std::vector<const Stored*> given = all(Stored::occurrence);
    while (m_occurrence < given.size() &&
           (given[m_occurrence]->position < from || given[m_occurrence]->position >= to))
      ++m_occurrence;
    return m_occurrence < given.size();
  }

  bool isStored() const {
    return m_option && !(all(Stored::occurrence).empty() && all(Stored::defaultValue).empty());
  }

  std::vector<const Stored*> all(Stored::Kind kind) const {
    std::vector<const Stored*> found;
    for (const Stored& stored : m_list)
      if (stored.kind == kind && stored.option == *m_option)
        found.push_back(&stored);
    return found;
  }

  // The default of an option that was not given, null for none and for an empty one.
  const Stored* defaultOfSelected() const {
    const Stored* latest = nullptr;
    for (const Stored* stored : all(Stored::defaultValue))
      if (stored->name == m_name)
        latest = stored;
    return all(Stored::occurrence).empty() && latest != nullptr && !latest->text.empty() ? latest
                                                                                         : nullptr;
  }

  static string told(const Stored& stored) {
    return stored.text + "@" + std::to_string(stored.position);
  }

  std::vector<Stored> m_list;
  std::optional<std::size_t> m_option;  // the selected one
  string m_name;                        // by which it was selected
  int m_from = firstPosition;
  int m_to = lastPosition;
  std::size_t m_value = 0;
  std::size_t m_occurrence = 0;
  std::size_t m_argument = 0;
};

string told(const Value& value) {
  if (value.isEmpty != 0)
    return "nothing";
  if (value.text != nullptr && value.value.can_get<const char*>())
    expectEqual("a value has its text", value.text, value.value.get<const char*>());
  return (value.text != nullptr ? value.text : "-") + ("@" + std::to_string(value.position));
}

class Comparison {
 public:
  void take(const Step& step) {
    if (step.is("option"))
      declare(step);
    else if (step.is("given") && !m_options.empty())
      store(static_cast<std::size_t>(step.number(0)) % m_options.size(), step.text(1));
    else if (step.is("defaults"))
      applyDefaults();
    else if (step.is("argument"))
      addArgument(step.text(0));
    else
      query(step);
  }

  void walkAll() {
    for (const auto& option : m_options)
      for (const string& name : option.m_names) {
        present(name, firstPosition, lastPosition);
        while (position() != lastPosition)
          continue;
        get(name, firstPosition, lastPosition);
        while (next().isEmpty == 0)
          continue;
      }
    for (bool isLeft = argument(true); isLeft;)
      isLeft = argument(false);
  }

 private:
  // A name belongs to one option, as with a parser that declares, and once.
  void declare(const Step& step) {
    std::vector<string> names = wordsOf(step.text(0));
    for (const string& name : names)
      if (optionNamed(name))
        return;
    if (names.empty() || std::set<string>(names.begin(), names.end()).size() != names.size())
      return;
    m_options.push_back(testing::makeOption(std::move(names), vtString, &m_garbage));
    if (step.textOrNull(1) != nullptr)
      m_options.back().defaultValue(step.textOrNull(1));
  }

  std::optional<std::size_t> optionNamed(const string& name) const {
    for (std::size_t i = 0; i < m_options.size(); ++i)
      for (const string& candidate : m_options[i].m_names)
        if (candidate == name)
          return i;
    return std::nullopt;
  }

  void store(std::size_t option, const string& values) {
    OptionData data;
    data.positions.push_back(IArgumentParser::getNewPositionIndex());
    add({Stored::occurrence, option, "", "", data.positions.back()});
    for (const string& text : wordsOf(values)) {
      const int position = IArgumentParser::getNewPositionIndex();
      data.values.push_back({{text, text.c_str()}, position});
      add({Stored::value, option, "", text, position});
    }
    m_result.store(m_options[option], data);
  }

  void applyDefaults() {
    for (std::size_t i = 0; i < m_options.size(); ++i) {
      m_result.applyDefault(m_options[i]);
      for (const string& name : m_options[i].m_names)
        if (m_options[i].m_hasDefault)
          add({Stored::defaultValue, i, name, m_options[i].getDefaultValueAsText(), m_next});
    }
  }

  void addArgument(const string& text) {
    const int position = IArgumentParser::getNewPositionIndex();
    m_result.addArgument(text, position);
    add({Stored::argument, 0, "", text, position});
  }

  // The model counts positions on its own.
  void add(const Stored& stored) {
    expect(stored.position == m_next++, "every position is drawn once", stored.text);
    m_model.add(stored);
  }

  void query(const Step& step) {
    const string name = step.text(0);
    const int from = step.number(1, firstPosition);
    const int to = step.number(2, lastPosition);
    if (step.is("present"))
      present(name, from, to);
    else if (step.is("get"))
      get(name, from, to);
    else if (step.is("last"))
      expectEqual("last", m_model.last(optionNamed(name), name, from, to),
                  told(getLastValue(&m_result, name.c_str(), from, to)));
    else if (step.is("next"))
      next();
    else if (step.is("position"))
      position();
    else if (step.is("first") || step.is("following"))
      argument(step.is("first"));
  }

  void present(const string& name, int from, int to) {
    expectEqual("present", m_model.present(optionNamed(name), name, from, to) ? "yes" : "no",
                m_result.present(name.c_str(), from, to) ? "yes" : "no");
  }

  void get(const string& name, int from, int to) {
    expectEqual("get", m_model.get(optionNamed(name), name, from, to),
                told(m_result.get(name.c_str(), from, to)));
  }

  Value next() {
    const Value value = m_result.next(nullptr);
    expectEqual("next", m_model.next(), told(value));
    return value;
  }

  int position() {
    const int position = m_result.nextPosition();
    expectEqual("position", std::to_string(m_model.nextPosition()), std::to_string(position));
    return position;
  }

  // Whether there was one.
  bool argument(bool fromStart) {
    const char* text = "nothing";
    const int end = fromStart ? m_result.getFirstArgument(&text) : m_result.getNextArgument(&text);
    expectEqual("argument", m_model.nextArgument(fromStart), text);
    expect(end == 0 || string(text) == "nothing", "no argument leaves the text alone", text);
    return end == 0;
  }

  Garbage m_garbage;
  std::vector<OptionDescription> m_options;
  ParseResult m_result;
  Model m_model;
  int m_next = 1;
};

}  // namespace
}  // namespace kivo_3_3::fuzzing

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  kivo_3_3::fuzzing::startAfresh();
  kivo_3_3::fuzzing::Comparison comparison;
  for (const auto& step : kivo_3_3::fuzzing::scriptOf(data, size))
    comparison.take(step);
  comparison.walkAll();
  return 0;
}
