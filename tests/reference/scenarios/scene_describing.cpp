// What parsers say about their declarations and about names.

#include <vector>

#include "reference/scenarios/given.h"
#include "reference/scenarios/scene.h"

namespace kivo_3_3::scenarios {

// Remembers the text, to find out whether it lives as long as its parser.
const char* Scene::handedOut(ParserSlot& slot, const char* text) {
  if (text != nullptr)
    slot.handedOut.emplace(text, text);
  return text;
}

void Scene::checkHandedOut(const ParserSlot& slot) {
  for (const auto& [text, before] : slot.handedOut)
    if (text != before)
      m_transcript.line(quoted(before.c_str()), " has become ", quoted(text));
}

void Scene::resolve(const Command& command) {
  if (ParserSlot* const slot = parserOf(command))
    m_transcript.line(
        "means ",
        quoted(handedOut(*slot, m_world.resolveName(*slot->parser, Given(command, 1).get()))));
}

void Scene::nearest(const Command& command) {
  if (ParserSlot* const slot = parserOf(command))
    m_transcript.line(
        "near ",
        quoted(handedOut(*slot, m_world.nearestName(*slot->parser, Given(command, 1).get()))));
}

void Scene::annotate(const Command& command) {
  if (const ParserSlot* const slot = parserOf(command))
    m_transcript.line("answers ",
                      m_world.annotate(*slot->parser, Given(command, 1).get(),
                                       Given(command, 2).get(), Given(command, 3).get()));
}

// The empty text belongs to no parser.
void Scene::describe(const Command& command) {
  ParserSlot* const slot = parserOf(command);
  if (slot == nullptr)
    return;
  constexpr std::size_t firstCommand = 4;
  const std::size_t fields = command.fields();
  std::vector<Given> given;
  for (std::size_t field = 0; field < fields + firstCommand; ++field)
    given.emplace_back(command, field);
  std::vector<CommandInfo> commands;
  for (std::size_t field = firstCommand; field + 2 < fields; field += 3) {
    const auto parser = static_cast<std::size_t>(parserIndex(command, field + 2));
    commands.push_back({given[field].get(), given[field + 1].get(), m_parsers.at(parser).parser});
  }
  const char* const text =
      m_world.describe(*slot->parser, {given[1].get(), given[2].get(), given[3].get()},
                       commands.data(), static_cast<unsigned int>(commands.size()));
  if (*text != '\0')
    m_transcript.line("#", slot->texts.numberOf(text));
  m_transcript.lines(handedOut(*slot, text));
}

}  // namespace kivo_3_3::scenarios
