// Declarations and builder calls.

#include "reference/scenarios/step_maker.h"
#include "reference/scenarios/step_text.h"
#include "reference/scenarios/vocabulary.h"

namespace kivo_3_3::scenarios {

using std::string;

string StepMaker::name() {
  if (m_random.chance(3))
    return m_random.chance(50) ? "" : "<null>";
  if (m_hasFiles && m_random.chance(10))
    return "option-file";
  return m_random.oneOf(m_names);
}

string StepMaker::declaredName(int parser) {
  const Model& model = modelOf(parser);
  if (model.empty() || m_random.chance(10))
    return name();
  const Declared& option = m_random.oneOf(model);
  return option.names.empty() ? "" : m_random.oneOf(option.names);
}

std::vector<string> StepMaker::nameList() {
  const int kind = m_random.below(100);
  if (kind < 2)
    return {};
  std::vector<string> list = {m_random.oneOf(m_names)};
  if (kind < 4)
    list.push_back(list.front());
  else if (kind < 36)
    list.emplace_back(m_random.oneOf(m_names));
  if (kind < 14)
    list.emplace_back(m_random.oneOf(vocabulary::shortNames));
  if (kind < 6)
    list.emplace_back(m_random.chance(50) ? "" : m_random.oneOf(vocabulary::names));
  return list;
}

string StepMaker::type() {
  return m_random.chance(3) ? m_random.oneOf(vocabulary::strangeTypes)
                            : m_random.oneOf(vocabulary::types);
}

// A list of action names or tags: mostly declared names.
string StepMaker::actions(int parser) {
  string list;
  const int count = m_random.below(4);
  for (int i = 0; i < count; ++i) {
    list += i == 0 ? "" : ",";
    list += declaredName(parser);
  }
  return list.empty() && m_random.chance(50) ? "<null>" : list;
}

string StepMaker::declaration(int parser) {
  const int kind = m_random.below(m_hasActions ? 100 : 400);
  Declared made;
  made.names = nameList();
  made.isAction = kind < 30;
  made.type = made.isAction && m_random.chance(70) ? "null" : type();
  string names = m_random.chance(1) ? "<null>" : "";
  for (const string& one : made.names)
    names += (&one == &made.names.front() ? "" : ",") + one;
  const bool isModifier = kind >= 30 && kind < 55;
  StepText step(isModifier ? "modifier" : made.isAction ? "action" : "option");
  step << orAtHand(parser) << names;
  if (isModifier)
    step << actions(parser);
  step << string(m_random.oneOf(vocabulary::descriptions)) << made.type;
  if (m_random.chance(50))
    step << string(m_random.oneOf(vocabulary::groups));
  modelOf(parser).push_back(made);
  return step.line();
}

string StepMaker::optionFile(int parser) {
  modelOf(parser).push_back({{"option-file"}, "string", {"a", "b", "c", "args", "missing"}});
  return (StepText("files") << orAtHand(parser) << string(m_random.oneOf(vocabulary::descriptions))
                            << string(m_random.oneOf(vocabulary::groups)))
      .line();
}

string StepMaker::simultaneousActions(int parser) {
  return (StepText("together") << orAtHand(parser) << actions(parser)).line();
}

// Boolean options and those without values seldom get allowed values.
string StepMaker::amendment(int parser) {
  static constexpr Choice ofValues[] = {{30, &StepMaker::allowedValue},
                                        {12, &StepMaker::deprecatedValue}};
  static constexpr Choice others[] = {{20, &StepMaker::defaultValue},
                                      {12, &StepMaker::synonym},
                                      {18, &StepMaker::positional},
                                      {10, &StepMaker::tag},
                                      {8, &StepMaker::tokenizer}};
  const string type = typeOfLast(parser);
  const bool takesValues = type != "null" && type != "bool";
  return m_random.chance(takesValues ? 40 : 8) ? choose(ofValues, parser) : choose(others, parser);
}

string StepMaker::typeOfLast(int parser) {
  const Model& model = modelOf(parser);
  return model.empty() ? "s32" : model.back().type;
}

string StepMaker::valueText(const string& kind) {
  if (kind == "reference")
    return std::to_string(m_random.below(4));
  if (kind == "string")
    return m_random.oneOf(vocabulary::allowedWords);
  if (kind == "bool")
    return m_random.chance(50) ? "1" : "0";
  if (kind == "double" || kind == "float")
    return m_random.chance(50) ? m_random.oneOf(vocabulary::smallNumbers) : "1234567.5";
  return m_random.chance(75) ? m_random.oneOf(vocabulary::smallNumbers) : "1234567";
}

// Kind and text of a value; most suit the type.
std::vector<string> StepMaker::value(const string& type) {
  string kind = type == "null" || type == "wide" || type == "strange" ? "s32" : type;
  if (m_random.chance(12))
    kind = m_random.oneOf(vocabulary::kinds);
  else if (kind == "string" && m_random.chance(15))
    kind = "reference";
  const string text = valueText(kind);
  return {kind, text};
}

string StepMaker::allowedValue(int parser) {
  const std::vector<string> allowed = value(typeOfLast(parser));
  if (!modelOf(parser).empty())
    modelOf(parser).back().allowed.push_back(allowed.back());
  return (StepText("allow") << orAtHand(parser) << allowed).line();
}

string StepMaker::similarValues(int parser) {
  string steps;
  for (const char* const text : {"fast", "faster"}) {
    modelOf(parser).back().allowed.emplace_back(text);
    steps += (StepText("allow") << parser << "string" << text).line() + "\n";
  }
  steps.pop_back();
  return steps;
}

string StepMaker::deprecatedValue(int parser) {
  const string type = typeOfLast(parser);
  return (StepText("deprecate") << orAtHand(parser) << value(type) << value(type)).line();
}

string StepMaker::defaultValue(int parser) {
  return (StepText("default") << orAtHand(parser) << value(typeOfLast(parser))).line();
}

string StepMaker::synonym(int parser) {
  const string added = m_random.chance(20) ? misspelt(declaredName(parser)) : name();
  if (!modelOf(parser).empty())
    modelOf(parser).back().names.push_back(added);
  return (StepText("synonym") << orAtHand(parser) << added).line();
}

string StepMaker::positional(int parser) {
  if (!modelOf(parser).empty())
    modelOf(parser).back().isPositional = true;
  return (StepText("positional") << orAtHand(parser)).line();
}

string StepMaker::tag(int parser) {
  return (StepText("tag") << orAtHand(parser) << actions(parser)).line();
}

string StepMaker::tokenizer(int parser) {
  const char* const separators[] = {",", "", ":", " ", "x"};
  return (StepText("tokenize") << orAtHand(parser) << string(m_random.oneOf(separators))).line();
}

}  // namespace kivo_3_3::scenarios
