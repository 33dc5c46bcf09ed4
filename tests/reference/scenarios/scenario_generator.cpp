// The shape of a scenario: the environment, parsers with declarations, results, handlers; then
// parses, queries and other steps in random order; at the end every result is read.

#include "reference/scenarios/scenario_generator.h"

#include "reference/scenarios/step_maker.h"
#include "reference/scenarios/step_text.h"

namespace kivo_3_3::scenarios {

using std::string;

namespace {

class Generator {
 public:
  explicit Generator(std::uint64_t seed) : m_make(seed), m_random(m_make.random()) {}

  string scenario() {
    begin();
    for (int parser = 0; parser < m_make.parserCount(); ++parser)
      declare(parser);
    for (int result = 0; result < m_make.resultCount(); ++result)
      write(m_make.newResult(result));
    if (m_random.chance(55))
      listen();
    if (m_make.parserCount() > 1 && m_random.chance(30))
      ring();
    if (m_random.chance(1))
      nest();
    act();
    end();
    return m_text;
  }

 private:
  void write(const string& line) { m_text += line + "\n"; }

  void begin() {
    if (m_random.chance(4))
      write((StepText("counter") << "end" << m_random.below(12)).line());
    if (m_random.chance(1))
      write("counter -1");
    if (m_random.chance(12))
      write((StepText("locale") << m_random.below(3)).line());
    if (m_random.chance(6))
      write("assertions 1");
    for (int buffer = 0; m_random.chance(40) && buffer < 4; ++buffer)
      write((StepText("buffer") << buffer << (m_random.chance(50) ? "fast" : "x")).line());
    if (m_random.chance(15))
      m_make.haveFiles();
  }

  void declare(int parser) {
    write(m_make.newParser(parser));
    if (m_make.hasFiles() && m_random.chance(85))
      write(m_make.optionFile(parser));
    const int declarations = 1 + m_random.below(6);
    for (int i = 0; i < declarations; ++i) {
      write(m_make.declaration(parser));
      if (m_random.chance(8))
        write(m_make.similarValues(parser));
      while (m_random.chance(55))
        write(m_make.amendment(parser));
    }
    while (m_random.chance(m_make.hasActions() ? 55 : 5))
      write(m_make.simultaneousActions(parser));
    while (m_random.chance(20))
      write(m_make.annotation(parser));
    const int files = m_make.hasFiles() && parser == 0 ? 1 + m_random.below(4) : 0;
    for (int i = 0; i < files; ++i)
      write(m_make.file(parser));
  }

  void listen() {
    const int handlers = 1 + m_random.below(3);
    for (int i = 0; i < handlers; ++i)
      write((StepText("add") << m_make.anyParser() << m_random.below(4)).line());
    while (m_random.chance(40))
      write(m_make.registration(m_make.anyParser()));
    while (m_random.chance(65))
      write(m_make.reaction());
  }

  // Parsers that are each other's handlers, directly or through a forwarding handler.
  void ring() {
    const int parsers = m_make.parserCount();
    const bool isWhole = m_random.chance(30);
    for (int parser = 0; parser < parsers; ++parser) {
      const int following = (parser + 1) % parsers;
      if (isWhole || m_random.chance(40)) {
        write((StepText("direct") << parser << following).line());
      } else {
        const int handler = 4 + m_random.below(4);
        write((StepText("add") << parser << handler).line());
        write((StepText("forward") << handler << following).line());
      }
    }
    write(m_make.send(m_make.anyParser()));
  }

  // A handler that starts a parse at every event, up to the nesting limit.
  void nest() {
    write("budget 120");
    write("add 0|1");
    write((StepText("react") << 1 << "any" << 0 << "parse"
                             << "@" << (m_random.chance(50) ? "@" : "<null>") << "x")
              .line());
  }

  void act() {
    const int steps = 2 + m_random.below(9);
    for (int i = 0; i < steps; ++i) {
      if (m_random.chance(8))
        write(m_make.interruption());
      if (i % 3 == 0)
        write(m_make.parse(m_make.anyParser()));
      write(m_make.any(m_make.anyParser()));
      if (m_random.chance(20))
        write(m_make.readAll(m_make.anyResult()));
    }
  }

  // Half of the scenarios read results after their parsers are destroyed.
  void end() {
    if (m_random.chance(50))
      for (int parser = 0; parser < m_make.parserCount(); ++parser)
        write((StepText("endparser") << parser).line());
    for (int result = 0; result < m_make.resultCount(); ++result)
      write(m_make.readAll(result));
  }

  StepMaker m_make;
  Random& m_random;
  string m_text;
};

}  // namespace

string generatedScenario(std::uint64_t seed) { return Generator(seed).scenario(); }

}  // namespace kivo_3_3::scenarios
