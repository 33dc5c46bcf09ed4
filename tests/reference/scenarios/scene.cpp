// Runs the steps; creates and destroys parsers and results; sets locale, counter and files.

#include "reference/scenarios/scene.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "bedrock/assertion.h"
#include "reference/scenarios/scratch_folder.h"
#include "reference/scenarios/values.h"
#include "support/global_locale.h"

namespace kivo_3_3::scenarios {

using std::string;

namespace {

constexpr int locales = 3;

const std::locale& localeAt(int index) {
  static const std::locale all[locales] = {std::locale::classic(),
                                           testing::localeWithDecimalComma(),
                                           testing::localeWithUnderscoreAsSpace()};
  return all[index];
}

// Installs an assertion handler for its lifetime.
class AssertionHandler {
 public:
  explicit AssertionHandler(BEDROCK::assertion_handler_t handler)
      : m_previous(BEDROCK::set_assertion_handler(handler)) {}
  AssertionHandler(const AssertionHandler&) = delete;
  AssertionHandler& operator=(const AssertionHandler&) = delete;
  ~AssertionHandler() { BEDROCK::set_assertion_handler(m_previous); }

 private:
  BEDROCK::assertion_handler_t m_previous;
};

// The scene that is running: the assertion handler, a plain function, has no other way to reach it.
Scene* running = nullptr;

}  // namespace

Scene::Scene(const World& world, const Scenario& scenario) : m_world(world), m_scenario(scenario) {
  for (int handler = 0; handler < handlerCount; ++handler)
    for (int parser = 0; parser < parserCount; ++parser)
      m_listeners[static_cast<std::size_t>(handler)][static_cast<std::size_t>(parser)].belongTo(
          *this, handler, parser);
}

string Scene::run() {
  const ConsoleTap tap(m_transcript, [this] { interrupt(); });
  const testing::GlobalLocale classic(localeAt(0));
  const AssertionHandler recording(recordAssertion);
  const std::optional<ScratchFolder::Visit> folder =
      m_scenario.hasFiles() ? std::optional<ScratchFolder::Visit>(std::in_place) : std::nullopt;
  running = this;
  m_world.positionCounter() = m_base;
  m_world.traceSwitch() = false;
  for (const Command& command : m_scenario.commands())
    runOne(command);
  endEverything();
  m_transcript.line("the next position is ", shownAt(m_world.positionCounter()));
  running = nullptr;
  return m_transcript.take();
}

void Scene::endEverything() {
  m_assertionsThrow = false;
  for (ParserSlot& slot : m_parsers)
    if (slot.parser != nullptr) {
      checkHandedOut(slot);
      slot.parser->destroy();
    }
  for (ResultSlot& slot : m_results)
    if (slot.result != nullptr)
      slot.result->destroy();
}

void Scene::runOne(const Command& command) {
  if (m_transcript.isFull() || m_isOver)
    return;
  m_transcript.line(command.line());
  const Transcript::Deeper deeper(m_transcript);
  guarded([&] { (this->*command.operation())(command); });
}

// Tools can rely on the kind of an exception, not on its text.
template <class Body>
void Scene::guarded(Body body) {
  try {
    body();
  } catch (const std::out_of_range&) {
    m_transcript.line("out of range");
  } catch (const std::exception&) {
    m_transcript.line("standard exception");
  } catch (int thrown) {
    m_transcript.line("exception ", thrown);
  }
}

void Scene::skip() { m_transcript.line("skipped"); }

void Scene::recordAssertion(const char* expression, const char*, int) {
  running->m_transcript.line("assertion ", string(expression));
  if (std::string_view(expression) == "!RunningCall::isInUse(*this)")
    ++running->m_refusals;
  if (running->m_assertionsThrow)
    throw std::runtime_error("assertion");
}

int Scene::wrapped(int index, int count) { return (index % count + count) % count; }

int Scene::parserIndex(const Command& command, std::size_t field) const {
  if (m_hearing != nullptr && command.is(field, "@"))
    return m_hearing->event.parser;
  return wrapped(command.number(field), parserCount);
}

int Scene::resultIndex(const Command& command, std::size_t field) const {
  if (m_parse != nullptr && m_parse->result != none && command.is(field, "@"))
    return m_parse->result;
  return wrapped(command.number(field), resultCount);
}

Scene::ParserSlot* Scene::parserOf(const Command& command) {
  ParserSlot& slot = m_parsers.at(static_cast<std::size_t>(parserIndex(command, 0)));
  if (slot.parser != nullptr)
    return &slot;
  skip();
  return nullptr;
}

Scene::ResultSlot* Scene::resultOf(const Command& command) {
  ResultSlot& slot = m_results.at(static_cast<std::size_t>(resultIndex(command, 0)));
  if (slot.result != nullptr)
    return &slot;
  skip();
  return nullptr;
}

void Scene::parser(const Command& command) {
  ParserSlot& slot = m_parsers.at(static_cast<std::size_t>(parserIndex(command, 0)));
  if (slot.parser != nullptr)
    return skip();
  const int status = m_world.createParser(&slot.parser, command.number(1));
  m_transcript.line("status ", status, slot.parser != nullptr ? "" : " without a parser");
}

void Scene::result(const Command& command) {
  ResultSlot& slot = m_results.at(static_cast<std::size_t>(resultIndex(command, 0)));
  const ParserSlot& maker = m_parsers.at(static_cast<std::size_t>(parserIndex(command, 1)));
  if (slot.result != nullptr || maker.parser == nullptr)
    return skip();
  const int status = maker.parser->createResult(&slot.result);
  m_transcript.line("status ", status, slot.result != nullptr ? "" : " without a result");
}

void Scene::endparser(const Command& command) {
  ParserSlot* const slot = parserOf(command);
  if (slot == nullptr)
    return;
  unregister(parserIndex(command, 0));
  checkHandedOut(*slot);
  const std::size_t before = m_refusals;
  slot->parser->destroy();
  if (m_refusals == before)
    *slot = {};
}

void Scene::endresult(const Command& command) {
  ResultSlot* const slot = resultOf(command);
  if (slot == nullptr)
    return;
  const std::size_t before = m_refusals;
  slot->result->destroy();
  if (m_refusals == before)
    *slot = {};
}

void Scene::nowhere(const Command& command) {
  m_transcript.line("status ", m_world.createParser(nullptr, 0));
  if (const ParserSlot* const slot = parserOf(command))
    m_transcript.line("status ", slot->parser->createResult(nullptr));
}

void Scene::locale(const Command& command) {
  std::locale::global(localeAt(wrapped(command.number(0), locales)));
}

void Scene::assertions(const Command& command) { m_assertionsThrow = command.number(0) != 0; }

// The console cannot do more: whatever is written then is written in the middle of a line.
void Scene::console(const Command& command) {
  const Operation does = command.reaction()->operation();
  if (does != &Scene::locale && does != &Scene::buffer)
    return skip();
  m_interruption = {command.number(0), command.reaction()};
}

void Scene::interrupt() {
  if (m_interruption.lines == 0 || --m_interruption.lines != 0)
    return;
  const Command& step = *m_interruption.step;
  m_transcript.line("meanwhile ", step.line());
  (this->*step.operation())(step);
}

// Positions may repeat from here on, so those of earlier events are forgotten.
void Scene::counter(const Command& command) {
  if (m_hearing != nullptr)
    return skip();
  m_base = command.is(0, "end") ? lastPosition - wrapped(command.number(1), 1000000)
                                : std::max(command.number(0), -1000);
  m_world.positionCounter() = m_base;
  m_valueTexts.clear();
}

void Scene::buffer(const Command& command) {
  auto& written = m_buffers.at(static_cast<std::size_t>(wrapped(command.number(0), bufferCount)));
  written = {};
  command.text(1).copy(written.data(), bufferSize - 1);
}

const char* Scene::bufferAt(int index) const {
  return m_buffers.at(static_cast<std::size_t>(wrapped(index, bufferCount))).data();
}

variant_t Scene::valueIn(const Command& command, std::size_t field) const {
  return valueOf(command.text(field), command.text(field + 1), bufferAt(command.number(field + 1)));
}

void Scene::budget(const Command& command) {
  m_budget = std::min(std::max(command.number(0), 0), mostReactions);
}

void Scene::file(const Command& command) { ScratchFolder::write(command.text(0), command.text(1)); }

void Scene::folder(const Command& command) { ScratchFolder::makeFolder(command.text(0)); }

}  // namespace kivo_3_3::scenarios
