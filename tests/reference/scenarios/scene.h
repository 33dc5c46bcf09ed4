#pragma once

// Runs a scenario in one world: owns its parsers, results and handlers, and has one operation
// for each verb. Everything that a tool or a handler can observe goes into the transcript.
//
// A step that would break the contract of the interfaces (use after destroy(), an outdated
// builder) is skipped, so that every text can be run.

#include <kivo/kivo.h>

#include <array>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "reference/scenarios/scenario.h"
#include "reference/scenarios/transcript.h"
#include "reference/scenarios/world.h"
#include "support/recording_handler.h"

namespace kivo_3_3::scenarios {

enum class EventKind { option, value, unknown };

// An event as a handler receives it.
struct Event {
  EventKind kind;
  int parser;
  const char* name;    // the unknown argument for EventKind::unknown
  const Value* value;  // null unless EventKind::value
};

// Registered with one parser for one handler of the scenario. Each pair has an object of its
// own, so that the handler knows which parser passes the event on.
class Listener final : public testing::TestHandler {
 public:
  void belongTo(Scene& scene, int handler, int parser);

  bool onOptionParse(const char* name) override;
  bool onValueParse(const char* name, const Value& value) override;
  bool onUknownArgument(const char* argument) override;

 private:
  Scene* m_scene = nullptr;
  int m_handler = 0;
  int m_parser = 0;
};

// An IParseResult that no parser has made.
class ForeignResult final : public IParseResult {
 public:
  explicit ForeignResult(Transcript& transcript) : m_transcript(transcript) {}

  void destroy() override { m_transcript.line("foreign result: destroy"); }
  bool present(const char* name, int from, int to) override;
  Value get(const char* name, int from, int to) override;
  Value next(const char* name) override;
  int nextPosition() override;
  int getFirstArgument(const char** text) override;
  int getNextArgument(const char** text) override;

 private:
  Transcript& m_transcript;
};

class Scene {
 public:
  Scene(const World& world, const Scenario& scenario);
  Scene(const Scene&) = delete;
  Scene& operator=(const Scene&) = delete;

  // Runs all steps and returns the transcript. Call it once.
  std::string run();

  // The operation of a verb; null for an unknown one.
  static Operation operation(std::string_view verb);

  // One operation for each verb, by the name of the verb.
  void parser(const Command& command);
  void result(const Command& command);
  void endparser(const Command& command);
  void endresult(const Command& command);
  void nowhere(const Command& command);

  void option(const Command& command);
  void action(const Command& command);
  void modifier(const Command& command);
  void files(const Command& command);
  void together(const Command& command);
  void declared(const Command& command);
  void synonym(const Command& command);
  void allow(const Command& command);
  void deprecate(const Command& command);
  void defaults(const Command& command);
  void tokenize(const Command& command);
  void positional(const Command& command);
  void tag(const Command& command);

  void resolve(const Command& command);
  void nearest(const Command& command);
  void annotate(const Command& command);
  void describe(const Command& command);

  void add(const Command& command);
  void remove(const Command& command);
  void direct(const Command& command);
  void undirect(const Command& command);
  void forward(const Command& command);
  void react(const Command& command);
  void answer(const Command& command);
  void throws(const Command& command);
  void send(const Command& command);
  void resend(const Command& command);

  void parse(const Command& command);
  void vector(const Command& command);
  void stream(const Command& command);
  void spoil(const Command& command);

  void present(const Command& command);
  void get(const Command& command);
  void next(const Command& command);
  void position(const Command& command);
  void last(const Command& command);
  void first(const Command& command);
  void nextargument(const Command& command);
  void read(const Command& command);

  void error(const Command& command);
  void help(const Command& command);
  void paragraph(const Command& command);
  void dash(const Command& command);
  void split(const Command& command);

  void locale(const Command& command);
  void assertions(const Command& command);
  void console(const Command& command);
  void counter(const Command& command);
  void buffer(const Command& command);
  void budget(const Command& command);
  void file(const Command& command);
  void folder(const Command& command);

 private:
  friend class Listener;

  static constexpr int parserCount = 4;
  static constexpr int resultCount = 4;
  static constexpr int handlerCount = 8;
  static constexpr int bufferCount = 4;
  static constexpr std::size_t bufferSize = 64;
  static constexpr int none = -1;
  static constexpr int mostReactions = 120;
  static constexpr int usualReactions = 30;
  // The limit of positions that one parse may draw before the scenario ends. Each parse into a
  // result reads all option files again that the result names, and these name more: without a limit
  // that could take a minute.
  static constexpr long long mostDrawn = 5000;
  static constexpr int deepestEvents = 1000;

  struct ParserSlot {
    IParser* parser = nullptr;
    Addresses texts;
    std::map<const char*, std::string> handedOut;  // by the functions of kivo/describe.h
    IOption* builder = nullptr;                    // of the last declaration
    bool hasListeners = false;                     // a listener is or was registered
    int direct = none;  // the parser that is or was registered as the handler
  };
  struct ResultSlot {
    IParseResult* result = nullptr;
    Addresses texts;
  };
  struct Reaction {
    int handler;
    std::string event;
    int count;
    std::shared_ptr<const Command> step;
  };
  // What the console does after some more lines.
  struct Interruption {
    int lines = 0;
    std::shared_ptr<const Command> step;
  };
  struct Handler {
    int forwardsTo = none;
    std::array<int, 3> heard = {};
  };
  // The arguments of one parse: copies, which a handler may overwrite.
  struct Handed {
    std::vector<std::string> texts;
    std::vector<const char*> argv;
  };
  struct RunningParse {
    int result;
    Handed* handed;
  };
  enum class Throwing { nothing, standard, integer };
  // A handler while it receives an event.
  struct Hearing {
    const Event& event;
    bool answer = true;
    Throwing throwing = Throwing::nothing;
  };

  // Sets a variable for the lifetime of the object.
  template <class T>
  class Restored {
   public:
    Restored(T& variable, T value) : m_variable(variable), m_before(variable) { variable = value; }
    Restored(const Restored&) = delete;
    Restored& operator=(const Restored&) = delete;
    ~Restored() { m_variable = m_before; }

   private:
    T& m_variable;
    T m_before;
  };

  static int wrapped(int index, int count);
  int parserIndex(const Command& command, std::size_t field) const;
  int resultIndex(const Command& command, std::size_t field) const;
  // Null if there is none; then the transcript says "skipped".
  ParserSlot* parserOf(const Command& command);
  ResultSlot* resultOf(const Command& command);
  IOption* builderOf(const Command& command);
  int bound(const Command& command, std::size_t field, int fallback) const;
  const char* bufferAt(int index) const;
  variant_t valueIn(const Command& command, std::size_t field) const;

  void runOne(const Command& command);
  template <class Body>
  void guarded(Body body);
  void skip();
  void endEverything();
  void interrupt();

  void keepBuilder(ParserSlot& slot, IOption* builder);
  void amended(const IOption* builder, const IOption* answer);
  void unregister(int parser);
  static const char* handedOut(ParserSlot& slot, const char* text);
  void checkHandedOut(const ParserSlot& slot);

  bool hear(int handler, const Event& event);
  void record(int handler, const Event& event);
  void reactTo(int handler, EventKind kind);
  bool tell(int parser, const Event& event);
  void sendValue(int parser, const char* name, const Command& command);
  Listener& listenerIn(const Command& command);

  static Handed handedFrom(const Command& command, std::size_t field);
  template <class Parse>
  void runParse(const Command& command, Handed& handed, Parse call);

  std::string shown(const Value& value, Addresses& texts);
  std::string shownTyped(const variant_t& value);
  std::string shownAt(int position) const;
  void readName(ResultSlot& slot, const std::string& name);
  void readArguments(ResultSlot& slot);

  static void recordAssertion(const char* expression, const char* file, int line);

  const World& m_world;
  const Scenario& m_scenario;
  Transcript m_transcript;
  ForeignResult m_foreign{m_transcript};
  std::array<ParserSlot, parserCount> m_parsers;
  std::array<ResultSlot, resultCount> m_results;
  std::array<Handler, handlerCount> m_handlers;
  // One array, because parsers call handlers in the order of their addresses.
  std::array<std::array<Listener, parserCount>, handlerCount> m_listeners;
  std::vector<Reaction> m_reactions;
  Interruption m_interruption;
  int m_budget = usualReactions;
  bool m_isOver = false;  // a parse drew too many positions
  std::array<std::array<char, bufferSize>, bufferCount> m_buffers = {};

  Hearing* m_hearing = nullptr;  // the innermost
  int m_eventDepth = 0;
  const RunningParse* m_parse = nullptr;  // the innermost
  int m_sent = 0;
  std::map<int, const char*> m_valueTexts;  // the text of each value event, by position
  Addresses m_typedTexts;
  std::vector<variant_t> m_kept;  // alive, so that no two typed texts have one address

  int m_base = 1;  // what the position counter was last set to
  bool m_assertionsThrow = false;
  std::size_t m_refusals = 0;  // the number of destroy() calls on objects in use
};

}  // namespace kivo_3_3::scenarios
