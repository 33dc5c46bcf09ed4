// Declarations and builder calls.

#include "reference/scenarios/given.h"
#include "reference/scenarios/scene.h"
#include "reference/scenarios/values.h"

namespace kivo_3_3::scenarios {

using std::string;

void Scene::keepBuilder(ParserSlot& slot, IOption* builder) {
  slot.builder = builder;
  if (builder == nullptr)
    m_transcript.line("no builder");
}

void Scene::option(const Command& command) {
  ParserSlot* const slot = parserOf(command);
  if (slot == nullptr)
    return;
  keepBuilder(*slot, slot->parser->option(Given(command, 1).get(), Given(command, 2).get(),
                                          typeOf(command.text(3)), Given(command, 4).get()));
}

void Scene::action(const Command& command) {
  ParserSlot* const slot = parserOf(command);
  if (slot == nullptr)
    return;
  keepBuilder(*slot, slot->parser->action(Given(command, 1).get(), Given(command, 2).get(),
                                          typeOf(command.text(3)), Given(command, 4).get()));
}

void Scene::modifier(const Command& command) {
  ParserSlot* const slot = parserOf(command);
  if (slot == nullptr)
    return;
  keepBuilder(*slot, slot->parser->modifier(Given(command, 1).get(), Given(command, 2).get(),
                                            Given(command, 3).get(), typeOf(command.text(4)),
                                            Given(command, 5).get()));
}

// addOptionFileOption() declares an option, but does not return its builder.
void Scene::files(const Command& command) {
  ParserSlot* const slot = parserOf(command);
  if (slot == nullptr)
    return;
  slot->builder = nullptr;
  const bool isDeclared =
      slot->parser->addOptionFileOption(Given(command, 1).get(), Given(command, 2).get());
  m_transcript.line("answers ", isDeclared);
}

void Scene::together(const Command& command) {
  ParserSlot* const slot = parserOf(command);
  if (slot == nullptr)
    return;
  const std::vector<string> names = fuzzing::wordsOf(command.text(1));
  m_transcript.line("answers ",
                    slot->parser->allowSimultaneousActions({names.begin(), names.end()}));
}

void Scene::declared(const Command& command) {
  if (const ParserSlot* const slot = parserOf(command))
    m_transcript.line(
        "answers ", slot->parser->isOptionDeclared(Given(command, 1).get(), command.number(2) != 0,
                                                   Given(command, 3).get()));
}

// Null if the last declaration gave no builder; then the step is skipped.
IOption* Scene::builderOf(const Command& command) {
  ParserSlot* const slot = parserOf(command);
  if (slot == nullptr || slot->builder != nullptr)
    return slot != nullptr ? slot->builder : nullptr;
  skip();
  return nullptr;
}

// Builder calls return the builder itself.
void Scene::amended(const IOption* builder, const IOption* answer) {
  if (answer != builder)
    m_transcript.line("another builder");
}

void Scene::synonym(const Command& command) {
  if (IOption* const builder = builderOf(command))
    amended(builder, builder->synonym(Given(command, 1).get()));
}

void Scene::allow(const Command& command) {
  if (IOption* const builder = builderOf(command))
    amended(builder, builder->allowValue(valueIn(command, 1)));
}

void Scene::deprecate(const Command& command) {
  if (IOption* const builder = builderOf(command))
    amended(builder, builder->allowDeprecatedValue(valueIn(command, 1), valueIn(command, 3)));
}

void Scene::defaults(const Command& command) {
  if (IOption* const builder = builderOf(command))
    amended(builder, builder->defaultValue(valueIn(command, 1)));
}

void Scene::tokenize(const Command& command) {
  if (IOption* const builder = builderOf(command))
    amended(builder, builder->tokenize(*command.text(1).c_str()));
}

void Scene::positional(const Command& command) {
  if (IOption* const builder = builderOf(command))
    amended(builder, builder->positional());
}

void Scene::tag(const Command& command) {
  if (IOption* const builder = builderOf(command))
    amended(builder, builder->tag(Given(command, 1).get()));
}

}  // namespace kivo_3_3::scenarios
