// Handlers, their reactions, and events that the scenario sends itself.

#include <stdexcept>

#include "reference/scenarios/scene.h"

namespace kivo_3_3::scenarios {

using std::string;

namespace {

constexpr const char* kindWords[] = {"option", "value", "unknown"};

const char* wordOf(EventKind kind) { return kindWords[static_cast<int>(kind)]; }

}  // namespace

void Listener::belongTo(Scene& scene, int handler, int parser) {
  m_scene = &scene;
  m_handler = handler;
  m_parser = parser;
}

bool Listener::onOptionParse(const char* name) {
  return m_scene->hear(m_handler, {EventKind::option, m_parser, name, nullptr});
}

bool Listener::onValueParse(const char* name, const Value& value) {
  return m_scene->hear(m_handler, {EventKind::value, m_parser, name, &value});
}

bool Listener::onUknownArgument(const char* argument) {
  return m_scene->hear(m_handler, {EventKind::unknown, m_parser, argument, nullptr});
}

// Rings that parsers cut do not nest this deep; a ring that is not cut ends here.
bool Scene::hear(int handler, const Event& event) {
  if (m_transcript.isFull() || m_eventDepth > deepestEvents)
    return true;
  Hearing hearing{event};
  const Restored<Hearing*> outer(m_hearing, &hearing);
  const Restored<int> depth(m_eventDepth, m_eventDepth + 1);
  record(handler, event);
  const Transcript::Deeper deeper(m_transcript);
  reactTo(handler, event.kind);
  if (hearing.throwing == Throwing::standard)
    throw std::runtime_error("thrown by a handler");
  if (hearing.throwing == Throwing::integer)
    throw 7;
  const int target = m_handlers.at(static_cast<std::size_t>(handler)).forwardsTo;
  if (target == none || m_parsers.at(static_cast<std::size_t>(target)).parser == nullptr)
    return hearing.answer;
  const bool isAccepted = tell(target, event);
  m_transcript.line("P", target, " answers ", isAccepted);
  return isAccepted && hearing.answer;
}

// Anybody may own a value's text, but all handlers of one event see the same pointer.
void Scene::record(int handler, const Event& event) {
  Addresses& texts = m_parsers.at(static_cast<std::size_t>(event.parser)).texts;
  const string head = "H" + std::to_string(handler) + " of P" + std::to_string(event.parser) +
                      ": " + wordOf(event.kind) + " " + texts.shown(event.name);
  if (event.kind != EventKind::value)
    return m_transcript.line(head);
  const Value& value = *event.value;
  const auto [first, isFirst] = m_valueTexts.emplace(value.position, value.text);
  const char* const sameness = isFirst                       ? ""
                               : first->second == value.text ? " same text"
                                                             : " other text";
  m_transcript.line(head, " ", quoted(value.text), " ", shownTyped(value.value), " ",
                    shownAt(value.position), value.isEmpty != 0 ? " empty" : "", sameness);
}

// Walks the reactions by index, because a reaction may add reactions.
void Scene::reactTo(int handler, EventKind kind) {
  std::array<int, 3>& heard = m_handlers.at(static_cast<std::size_t>(handler)).heard;
  const int ofKind = ++heard.at(static_cast<std::size_t>(kind));
  const int ofAll = heard[0] + heard[1] + heard[2];
  for (std::size_t i = 0; i < m_reactions.size(); ++i) {
    const Reaction reaction = m_reactions[i];
    const bool isAny = reaction.event == "any";
    const int count = isAny ? ofAll : ofKind;
    if (reaction.handler != handler || (!isAny && reaction.event != wordOf(kind)) ||
        (reaction.count != 0 && reaction.count != count) || m_budget == 0)
      continue;
    --m_budget;
    runOne(*reaction.step);
  }
}

bool Scene::tell(int parser, const Event& event) {
  IParser& told = *m_parsers.at(static_cast<std::size_t>(parser)).parser;
  switch (event.kind) {
    case EventKind::option:
      return told.onOptionParse(event.name);
    case EventKind::value:
      return told.onValueParse(event.name, *event.value);
    default:
      return told.onUknownArgument(event.name);
  }
}

void Scene::add(const Command& command) {
  ParserSlot* const slot = parserOf(command);
  if (slot == nullptr)
    return;
  if (command.isNull(1))
    return slot->parser->addHandler(nullptr);
  if (slot->direct != none)
    return skip();
  slot->hasListeners = true;
  slot->parser->addHandler(&listenerIn(command));
}

void Scene::remove(const Command& command) {
  ParserSlot* const slot = parserOf(command);
  if (slot != nullptr)
    slot->parser->removeHandler(command.isNull(1) ? nullptr : &listenerIn(command));
}

Listener& Scene::listenerIn(const Command& command) {
  const int handler = wrapped(command.number(1), handlerCount);
  return m_listeners.at(static_cast<std::size_t>(handler))
      .at(static_cast<std::size_t>(parserIndex(command, 0)));
}

// Handlers are called in the order of their addresses, which for parsers differs between worlds. So
// a parser is registered only if it is the only handler. A parser ignores itself as a handler.
void Scene::direct(const Command& command) {
  ParserSlot* const slot = parserOf(command);
  if (slot == nullptr)
    return;
  const int handler = parserIndex(command, 1);
  const ParserSlot& registered = m_parsers.at(static_cast<std::size_t>(handler));
  const bool isItself = &registered == slot;
  const bool isAlone = !slot->hasListeners && (slot->direct == none || slot->direct == handler);
  if (registered.parser == nullptr || (!isItself && !isAlone))
    return skip();
  if (!isItself)
    slot->direct = handler;
  slot->parser->addHandler(registered.parser);
}

void Scene::undirect(const Command& command) {
  ParserSlot* const slot = parserOf(command);
  if (slot != nullptr)
    slot->parser->removeHandler(
        m_parsers.at(static_cast<std::size_t>(parserIndex(command, 1))).parser);
}

// A handler must be removed before it is destroyed.
void Scene::unregister(int parser) {
  for (const ParserSlot& slot : m_parsers)
    if (slot.parser != nullptr && slot.direct == parser)
      slot.parser->removeHandler(m_parsers.at(static_cast<std::size_t>(parser)).parser);
}

void Scene::forward(const Command& command) {
  const int handler = wrapped(command.number(0), handlerCount);
  m_handlers.at(static_cast<std::size_t>(handler)).forwardsTo =
      command.isNull(1) ? none : parserIndex(command, 1);
}

void Scene::react(const Command& command) {
  m_reactions.push_back({wrapped(command.number(0), handlerCount), command.text(1),
                         command.number(2), command.reaction()});
}

void Scene::answer(const Command& command) {
  if (m_hearing == nullptr)
    return skip();
  m_hearing->answer = command.number(0) != 0;
}

void Scene::throws(const Command& command) {
  if (m_hearing == nullptr)
    return skip();
  m_hearing->throwing = command.is(0, "int") ? Throwing::integer : Throwing::standard;
}

void Scene::resend(const Command& command) {
  if (m_hearing == nullptr)
    return skip();
  if (parserOf(command) != nullptr)
    m_transcript.line("answers ", tell(parserIndex(command, 0), m_hearing->event));
}

// The name "@" is that of the event that the handler receives.
void Scene::send(const Command& command) {
  if (parserOf(command) == nullptr)
    return;
  const string text = command.text(2);
  const bool isAtHand = m_hearing != nullptr && text == "@";
  const char* const given = command.isNull(2) ? nullptr : text.c_str();
  const char* const name = isAtHand ? m_hearing->event.name : given;
  const int parser = parserIndex(command, 0);
  if (command.is(1, "value"))
    return sendValue(parser, name, command);
  const EventKind kind = command.is(1, "option") ? EventKind::option : EventKind::unknown;
  m_transcript.line("answers ", tell(parser, {kind, parser, name, nullptr}));
}

// Each sent value has a position of its own, lower than any that a parse draws.
void Scene::sendValue(int parser, const char* name, const Command& command) {
  const string text = command.text(3);
  const bool isAtHand = m_hearing != nullptr && m_hearing->event.value != nullptr && text == "@";
  const char* const given = command.isNull(3) ? nullptr : text.c_str();
  const Value value(isAtHand ? m_hearing->event.value->text : given, valueIn(command, 4),
                    m_base - ++m_sent);
  m_transcript.line("answers ", tell(parser, {EventKind::value, parser, name, &value}));
}

}  // namespace kivo_3_3::scenarios
