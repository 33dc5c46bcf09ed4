// The frequencies of steps, and the steps that are neither declarations nor parses.

#include "reference/scenarios/step_maker.h"

#include "reference/scenarios/step_text.h"
#include "reference/scenarios/vocabulary.h"

namespace kivo_3_3::scenarios {

using std::string;

// Most scenarios have one parser and one result. Some names differ in few characters only.
StepMaker::StepMaker(std::uint64_t seed) : m_random(seed) {
  m_parserCount = m_random.chance(65) ? 1 : 1 + m_random.below(4);
  m_resultCount = m_random.chance(60) ? 1 : 1 + m_random.below(3);
  m_hasActions = m_random.chance(35);
  const int names = 3 + m_random.below(7);
  for (int i = 0; i < names; ++i) {
    m_names.emplace_back(m_random.oneOf(vocabulary::names));
    if (m_random.chance(20))
      m_names.push_back(misspelt(m_names.back()));
  }
}

string StepMaker::any(int parser) {
  static constexpr Choice choices[] = {{26, &StepMaker::parse},
                                       {5, &StepMaker::stream},
                                       {2, &StepMaker::argumentVector},
                                       {20, &StepMaker::query},
                                       {1, &StepMaker::error},
                                       {1, &StepMaker::declared},
                                       {2, &StepMaker::resolve},
                                       {4, &StepMaker::nearest},
                                       {3, &StepMaker::annotation},
                                       {6, &StepMaker::description},
                                       {4, &StepMaker::help},
                                       {4, &StepMaker::helpOfTopic},
                                       {1, &StepMaker::nowhere},
                                       {2, &StepMaker::paragraph},
                                       {3, &StepMaker::argumentSyntax},
                                       {2, &StepMaker::locale},
                                       {2, &StepMaker::buffer},
                                       {1, &StepMaker::assertions},
                                       {8, &StepMaker::declarationOrAmendment},
                                       {5, &StepMaker::registration},
                                       {3, &StepMaker::send},
                                       {2, &StepMaker::ending},
                                       {1, &StepMaker::newParser},
                                       {1, &StepMaker::newResult},
                                       {2, &StepMaker::simultaneousActions},
                                       {1, &StepMaker::readAny},
                                       {3, &StepMaker::file}};
  return choose(choices, parser);
}

string StepMaker::reaction() {
  static constexpr Choice choices[] = {
      {18, &StepMaker::answer},      {5, &StepMaker::throwing},
      {3, &StepMaker::spoiling},     {20, &StepMaker::declarationOrAmendment},
      {9, &StepMaker::registration}, {13, &StepMaker::query},
      {1, &StepMaker::readAny},      {6, &StepMaker::parse},
      {4, &StepMaker::stream},       {8, &StepMaker::send},
      {1, &StepMaker::resending},    {1, &StepMaker::error},
      {1, &StepMaker::help},         {2, &StepMaker::helpOfTopic},
      {2, &StepMaker::locale},       {2, &StepMaker::buffer},
      {1, &StepMaker::assertions},   {4, &StepMaker::ending},
      {1, &StepMaker::resolve},      {1, &StepMaker::nearest},
      {2, &StepMaker::annotation},   {2, &StepMaker::description}};
  const char* const events[] = {"option", "value", "value", "unknown", "any", "any"};
  StepText head("react");
  head << m_random.below(5) << string(m_random.oneOf(events)) << m_random.below(4);
  m_isReaction = true;
  string step = choose(choices, anyParser());
  m_isReaction = false;
  const std::size_t blank = step.find(' ');
  if (blank != string::npos)
    step[blank] = '|';
  return head.line() + "|" + step;
}

string StepMaker::declarationOrAmendment(int parser) {
  return m_random.chance(30) ? declaration(parser) : amendment(parser);
}

// In a reaction, mostly "@": the parser or result that the event is about. Otherwise the index.
string StepMaker::orAtHand(int index) {
  return m_isReaction && m_random.chance(60) ? "@" : std::to_string(index);
}

string StepMaker::resultOrOther() {
  const int kind = m_random.below(100);
  if (kind < 4)
    return kind == 0 ? "foreign" : "<null>";
  return orAtHand(anyResult());
}

string StepMaker::newParser(int parser) {
  int flags = 0;
  for (const int flag : {2, 4, 8, 32})
    if (m_random.chance(35))
      flags |= flag;
  if (m_random.chance(3))
    flags = m_random.chance(50) ? -1 : flags | 1 | 16 | 64;
  modelOf(parser).clear();
  return (StepText("parser") << parser << flags).line();
}

string StepMaker::newResult(int result) {
  return (StepText("result") << result << anyParser()).line();
}

string StepMaker::ending(int parser) {
  return m_random.chance(50) ? (StepText("endparser") << orAtHand(parser)).line()
                             : (StepText("endresult") << orAtHand(anyResult())).line();
}

string StepMaker::nowhere(int parser) { return (StepText("nowhere") << parser).line(); }

string StepMaker::readAll(int result) { return (StepText("read") << result).line(); }

string StepMaker::readAny(int) { return (StepText("read") << orAtHand(anyResult())).line(); }

string StepMaker::bound() {
  switch (m_random.below(6)) {
    case 0:
      return "0";
    case 1:
      return "end";
    case 2:
      return m_random.chance(10) ? "-1" : "";
    default:
      return "+" + std::to_string(m_random.below(16));
  }
}

string StepMaker::query(int parser) {
  const char* const verbs[] = {"present",  "get",  "next",  "next",        "position",
                               "position", "last", "first", "nextargument"};
  const string verb = m_random.oneOf(verbs);
  const bool hasRange = verb == "present" || verb == "get" || verb == "last";
  StepText step(verb);
  step << (verb == "last" && m_random.chance(3) ? "<null>" : orAtHand(anyResult()));
  if (hasRange || verb == "next")
    step << declaredName(parser);
  if (hasRange && m_random.chance(50))
    step << bound() << bound();
  return step.line();
}

string StepMaker::error(int parser) { return (StepText("error") << orAtHand(parser)).line(); }

string StepMaker::declared(int parser) {
  return (StepText("declared") << orAtHand(parser) << declaredName(parser) << m_random.below(2)
                               << string(m_random.oneOf(vocabulary::groups)))
      .line();
}

string StepMaker::help(int parser) {
  return (StepText("help") << orAtHand(parser) << (m_random.chance(50) ? "tool" : "global")
                           << m_random.below(2))
      .line();
}

string StepMaker::helpOfTopic(int parser) {
  return (StepText("help") << orAtHand(parser) << (m_random.chance(50) ? "topic" : "modifiers")
                           << m_random.below(2)
                           << (m_random.chance(80) ? declaredName(parser) : "no such topic"))
      .line();
}

string StepMaker::paragraph(int) {
  const int indents[] = {0, 1, 2, 3, 5, 10, 30};
  const int widths[] = {0, 1, 2, 3, 4, 5, 8, 20, 50};
  return (StepText("paragraph") << string(m_random.oneOf(vocabulary::descriptions))
                                << string(m_random.oneOf(vocabulary::words))
                                << m_random.oneOf(indents) << m_random.oneOf(widths))
      .line();
}

string StepMaker::argumentSyntax(int) {
  string text =
      m_random.chance(50) ? m_random.oneOf(vocabulary::oddArguments) : typed(name(), true);
  if (m_random.chance(50))
    text += "=" + valueText("string");
  if (m_random.chance(50))
    return (StepText("dash") << text << m_random.below(5)).line();
  return (StepText("split") << text << m_random.below(4) << m_random.below(4)).line();
}

string StepMaker::interruption() {
  string step = m_random.chance(60) ? locale(0) : buffer(0);
  step[step.find(' ')] = '|';
  return (StepText("console") << 1 + m_random.below(30)).line() + "|" + step;
}

string StepMaker::locale(int) { return (StepText("locale") << m_random.below(3)).line(); }

string StepMaker::buffer(int) {
  return (StepText("buffer") << m_random.below(4)
                             << string(m_random.oneOf(vocabulary::allowedWords)))
      .line();
}

string StepMaker::assertions(int) { return (StepText("assertions") << m_random.below(2)).line(); }

}  // namespace kivo_3_3::scenarios
