// Parses. A handler may overwrite the arguments during the parse.

#include <algorithm>

#include "reference/scenarios/scene.h"

namespace kivo_3_3::scenarios {

using std::string;

// Field 1 is the result: "foreign", null, or one of the scene's.
template <class Parse>
void Scene::runParse(const Command& command, Handed& handed, Parse call) {
  ParserSlot* const slot = parserOf(command);
  if (slot == nullptr)
    return;
  RunningParse parse = {none, &handed};
  IParseResult* result = command.is(1, "foreign") ? &m_foreign : nullptr;
  if (result == nullptr && !command.isNull(1)) {
    parse.result = resultIndex(command, 1);
    result = m_results.at(static_cast<std::size_t>(parse.result)).result;
    if (result == nullptr)
      return skip();
  }
  const Restored<const RunningParse*> running(m_parse, &parse);
  const long long before = m_world.positionCounter();
  const int status = call(*slot->parser, result);
  const string error = status != 0 ? " " + slot->texts.shown(slot->parser->getErrorDesc()) : "";
  const long long drawn = m_world.positionCounter() - before;
  m_isOver = m_isOver || drawn > mostDrawn;
  m_transcript.line("status ", status, error, ", drew ", drawn,
                    m_world.traceSwitch() ? ", traced" : "");
}

void Scene::parse(const Command& command) {
  Handed handed = handedFrom(command, 2);
  handed.argv.insert(handed.argv.begin(), "tool");
  const int argc = static_cast<int>(handed.argv.size()) - 1;
  runParse(command, handed, [&](IParser& parser, IParseResult* result) {
    return parser.parseArgsVector(argc, handed.argv.data(), result);
  });
}

// Without arguments argv is null; argc is at most the number of arguments.
void Scene::vector(const Command& command) {
  Handed handed = handedFrom(command, 3);
  const bool isNull = handed.texts.empty();
  const int most = static_cast<int>(handed.texts.size());
  const int argc = isNull ? command.number(2) : std::min(command.number(2), most);
  runParse(command, handed, [&](IParser& parser, IParseResult* result) {
    return parser.parseArgsVector(argc, isNull ? nullptr : handed.argv.data(), result);
  });
}

void Scene::stream(const Command& command) {
  Handed handed = handedFrom(command, 2);
  runParse(command, handed, [&](IParser& parser, IParseResult* result) {
    return parser.parseStream(handed.argv.front(), result);
  });
}

// The fields from `field` on, with a null pointer after the last one.
Scene::Handed Scene::handedFrom(const Command& command, std::size_t field) {
  Handed handed;
  const std::size_t end = command.fields();
  for (std::size_t i = field; i < end; ++i)
    handed.texts.push_back(command.text(i));
  for (std::size_t i = field; i < end; ++i)
    handed.argv.push_back(command.isNull(i) ? nullptr : handed.texts[i - field].c_str());
  handed.argv.push_back(nullptr);
  return handed;
}

// A parser with handlers copies the arguments, so this changes nothing.
void Scene::spoil(const Command&) {
  if (m_parse == nullptr)
    return skip();
  for (string& text : m_parse->handed->texts)
    std::fill(text.begin(), text.end(), 'Z');
  std::fill(m_parse->handed->argv.begin(), m_parse->handed->argv.end(), nullptr);
}

}  // namespace kivo_3_3::scenarios
