// Arguments, option files, and steps of handlers.

#include "reference/scenarios/step_maker.h"
#include "reference/scenarios/step_text.h"
#include "reference/scenarios/vocabulary.h"

namespace kivo_3_3::scenarios {

using std::string;

// A name as a user types it: maybe abbreviated or negated, with any kind of dashes.
string StepMaker::typed(const string& name, bool isBoolean) {
  string text = m_random.oneOf(vocabulary::dashes);
  if (m_random.chance(isBoolean ? 40 : 3))
    text += "no-";
  return text + (m_random.chance(25) ? beginningOf(name) : name);
}

// A beginning of the text, which is empty only if the text is.
string StepMaker::beginningOf(const string& text) {
  string beginning = text;
  if (text.size() > 1)
    beginning.resize(static_cast<std::size_t>(m_random.below(static_cast<int>(text.size()) - 1)) +
                     1);
  return beginning;
}

string StepMaker::valueFor(const Declared& option) {
  if (!option.allowed.empty() && m_random.chance(75)) {
    const string allowed = m_random.oneOf(option.allowed);
    if (option.type == "string" && m_random.chance(30))
      return beginningOf(allowed);
    return m_random.chance(10) ? allowed + "," + m_random.oneOf(option.allowed) : allowed;
  }
  const bool isText = option.type == "string" || m_random.chance(4);
  if (isText)
    return m_random.oneOf(vocabulary::words);
  return m_random.chance(80) ? m_random.oneOf(vocabulary::smallNumbers)
                             : m_random.oneOf(vocabulary::numbers);
}

// Prefers the last declared option, because builder calls amend that one.
const StepMaker::Declared& StepMaker::anyOption(const Model& model) {
  return m_random.chance(40) ? model.back() : m_random.oneOf(model);
}

void StepMaker::addOption(int parser, std::vector<string>& arguments) {
  const Model& model = modelOf(parser);
  if (model.empty())
    return arguments.push_back(typed(name(), false));
  const Declared option = anyOption(model);
  const string primary = option.names.empty() ? "" : m_random.oneOf(option.names);
  const bool isBoolean = option.type == "bool";
  string argument = typed(primary, isBoolean);
  const bool takesNone = isBoolean || option.type == "null";
  const int form = takesNone ? (m_random.chance(90) ? 0 : m_random.below(4)) : m_random.below(20);
  if (form == 0)
    return arguments.push_back(argument);
  if (form <= 12)
    return arguments.push_back(argument + "=" + valueFor(option));
  if (form <= 14)
    return arguments.push_back(argument + "  " + valueFor(option));
  if (form == 15)
    argument += "=";
  arguments.push_back(argument);
  arguments.push_back(valueFor(option));
}

// Mostly a value of the positional option, if there is one.
string StepMaker::freeArgument(int parser) {
  for (const Declared& option : modelOf(parser))
    if (option.isPositional && m_random.chance(85))
      return valueFor(option);
  return m_random.oneOf(vocabulary::words);
}

std::vector<string> StepMaker::arguments(int parser) {
  std::vector<string> all;
  if (m_random.chance(10))
    all.emplace_back(vocabulary::traceSwitch);
  const int count = m_random.below(6);
  for (int i = 0; i < count; ++i) {
    const int kind = m_random.below(100);
    if (kind < 77)
      addOption(parser, all);
    else if (kind < 88)
      all.push_back(freeArgument(parser));
    else if (kind < 95)
      all.emplace_back("--");
    else if (kind < 99)
      all.emplace_back(m_random.oneOf(vocabulary::oddArguments));
    else
      all.emplace_back(m_random.chance(50) ? "<null>" : vocabulary::traceSwitch);
  }
  return all;
}

// Arguments one a line, among comments, blank lines and carriage returns.
string StepMaker::lines(int parser) {
  if (m_random.chance(4))
    return m_random.chance(50) ? "-1" : "-1\n";
  string text;
  for (const string& argument : arguments(parser)) {
    const int kind = m_random.below(24);
    if (kind == 0)
      text += "# a comment\n";
    else if (kind == 1)
      text += " \t\n\n; another\n";
    else if (kind == 2)
      text += " _\t";
    text += argument + (kind == 3 ? " \r\n" : kind == 4 ? "\r\r\n" : "\n");
  }
  if (m_random.chance(5))
    text += "<zero>--not-there\n";
  if (!text.empty() && m_random.chance(30))
    text.pop_back();
  return text;
}

string StepMaker::parse(int parser) {
  StepText step("parse");
  step << orAtHand(parser) << resultOrOther();
  return (step << arguments(parser)).line();
}

string StepMaker::argumentVector(int parser) {
  StepText step("vector");
  step << orAtHand(parser) << resultOrOther() << m_random.below(5) - 1;
  if (m_random.chance(60))
    step << "tool" << arguments(parser);
  return step.line();
}

string StepMaker::stream(int parser) {
  StepText step("stream");
  step << orAtHand(parser) << resultOrOther();
  return (step << (m_random.chance(3) ? "<null>" : lines(parser))).line();
}

// In a reaction, the sent event often has the name and the text of the received one.
string StepMaker::send(int parser) {
  const bool isAtHand = m_isReaction && m_random.chance(40);
  const string text = isAtHand ? "@" : declaredName(parser);
  const int kind = m_random.below(10);
  if (kind < 4)
    return (StepText("send") << orAtHand(parser) << "option" << text).line();
  if (kind < 6)
    return (StepText("send") << orAtHand(parser) << "unknown" << text).line();
  const char* const texts[] = {"@", "<null>", "", "1", "x"};
  return (StepText("send") << orAtHand(parser) << "value" << text << string(m_random.oneOf(texts))
                           << value("string"))
      .line();
}

// Writes any file of vocabulary::fileNames but the last, so that one file is missing.
string StepMaker::file(int parser) {
  if (!m_hasFiles)
    return readAny(parser);
  const bool isFolder = m_random.chance(5);
  const string name = vocabulary::fileNames[m_random.below(4)];
  if (isFolder)
    return (StepText("folder") << name).line();
  return (StepText("file") << name << lines(parser)).line();
}

string StepMaker::registration(int parser) {
  const int kind = m_random.below(100);
  if (kind < 70)
    return (StepText("add") << orAtHand(parser) << m_random.below(5)).line();
  if (kind < 82)
    return (StepText("remove") << orAtHand(parser) << m_random.below(5)).line();
  if (kind < 92)
    return (StepText("forward") << m_random.below(5) << anyParser()).line();
  if (kind < 97)
    return (StepText("direct") << orAtHand(parser) << anyParser()).line();
  return kind < 99 ? (StepText("add") << orAtHand(parser) << "<null>").line()
                   : (StepText("undirect") << orAtHand(parser) << anyParser()).line();
}

string StepMaker::answer(int) {
  return (StepText("answer") << (m_random.chance(85) ? 0 : 1)).line();
}

string StepMaker::throwing(int) { return m_random.chance(70) ? "throw" : "throw int"; }

string StepMaker::spoiling(int) { return "spoil"; }

string StepMaker::resending(int parser) { return (StepText("resend") << orAtHand(parser)).line(); }

}  // namespace kivo_3_3::scenarios
