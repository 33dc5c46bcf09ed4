// Compares a result and its cursors with a naive result. Storing and reading alternate, and options
// may share names.
//   option NAMES|DEFAULT     declares an option of text values
//   synonym NAME             adds a name to the last option
//   given OPTION|VALUES      stores an occurrence, its values between commas
//   defaults                 applies the defaults that are declared
//   argument TEXT            stores a leftover argument
//   present NAME|FROM|TO   get NAME|FROM|TO   last NAME|FROM|TO
//   next   position   first   following

#include "fuzz/fuzz.h"
#include "fuzz/parsing.h"
#include "fuzz/script.h"
#include "options/declaration_summary.h"
#include "options/make_option.h"
#include "result/parse_result.h"
#include "support/naive_result.h"
#include "support/stored.h"

namespace kivo_3_3::fuzzing {
namespace {

using std::string;

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
    else if (step.is("synonym") && !m_options.empty())
      m_options.back().synonym(step.textOrNull(0));
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
      for (const string& name : namesOf(option)) {
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
  static std::vector<string> namesOf(const OptionDescription& option) {
    return {option.m_names.begin(), option.m_names.end()};
  }

  void declare(const Step& step) {
    const std::vector<string> names = wordsOf(step.text(0));
    if (names.empty())
      return;
    m_options.push_back(testing::makeOption(names, vtString, &m_garbage));
    if (step.textOrNull(1) != nullptr)
      m_options.back().defaultValue(step.textOrNull(1));
  }

  void store(std::size_t option, const string& values) {
    const std::vector<string> texts = wordsOf(values);
    OptionData data;
    data.positions.push_back(draw());
    testing::NaiveResult::Entry entry = {{data.positions.back()}, {}};
    for (const string& text : texts) {
      const int position = draw();
      data.values.push_back(testing::given(text.c_str(), nullptr, position));
      entry.values.push_back({text, position});
    }
    m_result.store(m_options[option], data);
    m_model.store(namesOf(m_options[option]), entry);
  }

  void applyDefaults() {
    if (const auto defaults = m_summary.timelessDefaults())
      m_result.applyDefaults(defaults, IArgumentParser::drawInARow(defaults->count()).value());
    for (const OptionDescription& option : m_options) {
      if (!option.m_hasDefault)
        continue;
      m_model.applyDefault(namesOf(option), option.getDefaultValueAsText(), m_next);
      m_next += static_cast<int>(option.m_names.size());
    }
  }

  void addArgument(const string& text) {
    const int position = draw();
    m_result.addArgument(text, position);
    m_model.addArgument(text, position);
  }

  // The model counts positions on its own.
  int draw() {
    const int position = IArgumentParser::getNewPositionIndex();
    expect(position == m_next++, "every position is drawn once", std::to_string(position));
    return position;
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
      expectEqual("last", m_model.last(name, from, to),
                  told(getLastValue(&m_result, name.c_str(), from, to)));
    else if (step.is("next"))
      next();
    else if (step.is("position"))
      position();
    else if (step.is("first") || step.is("following"))
      argument(step.is("first"));
  }

  void present(const string& name, int from, int to) {
    expectEqual("present", m_model.present(name, from, to) ? "yes" : "no",
                m_result.present(name.c_str(), from, to) ? "yes" : "no");
  }

  void get(const string& name, int from, int to) {
    expectEqual("get", m_model.get(name, from, to), told(m_result.get(name.c_str(), from, to)));
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

  // Returns whether there was one.
  bool argument(bool fromStart) {
    const char* text = "nothing";
    const int end = fromStart ? m_result.getFirstArgument(&text) : m_result.getNextArgument(&text);
    expectEqual("argument", m_model.nextArgument(fromStart), text);
    expect(end == 0 || string(text) == "nothing", "no argument leaves the text alone", text);
    return end == 0;
  }

  Garbage m_garbage;
  OptionList m_options;
  DeclarationSummary m_summary{m_options, &m_garbage.memory()};
  ParseResult m_result;
  testing::NaiveResult m_model;
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
