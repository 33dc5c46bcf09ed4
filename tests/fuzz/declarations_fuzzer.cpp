// Declarations of every kind, and arguments for them. A parse must end with a documented status and
// must not change the outcome of the next one. Its result must be readable after the parser is
// destroyed.
//
// Steps in addition to those of declarations.h:
//   flags NUMBER   argument TEXT   refuse VALUE   tolerate

#include <utility>

#include "fuzz/declarations.h"
#include "fuzz/parsing.h"
#include "support/assertion_recorder.h"
#include "support/console_capture.h"
#include "support/recording_handler.h"

namespace kivo_3_3::fuzzing {
namespace {

using std::string;

struct Outcome {
  ResultHandle result;
  int base = 0;  // the last position before the parse
  int status = 0;
  string error;  // empty on success
  string rendered;
  string events;
};

class Scene {
 public:
  explicit Scene(const Script& script)
      : m_parser(makeParser(numberIn(script, "flags", 0))), m_declarations(*m_parser) {
    m_declarations.declare(script);
    bool isHandled = false;
    for (const Step& step : script) {
      if (step.is("argument"))
        m_args.push_back(step.text(0));
      if (step.is("refuse"))
        m_handler.refusedValues.insert(step.text(0));
      if (step.is("tolerate"))
        m_handler.acceptsUnknown = false;
      isHandled |= step.is("refuse") || step.is("tolerate");
    }
    if (isHandled)
      m_parser->addHandler(&m_handler);
  }

  void run() {
    checkDeclared();
    Outcome first = outcome();
    checkStatus(first);
    checkTexts(*first.result);
    const Outcome second = outcome();
    expectEqual("a second parse does as the first", told(first), told(second));
    parse(*m_parser, m_args, nullptr);
    checkHelp();
    m_parser.reset();
    expectEqual("a result outlives its parser", first.rendered, render(first));
  }

  bool valuesSuit() const { return m_declarations.valuesSuit(); }

 private:
  Outcome outcome() {
    Outcome made;
    made.result = makeResult(*m_parser);
    made.base = IArgumentParser::m_idx - 1;
    m_handler.events.clear();
    made.status = parse(*m_parser, m_args, made.result.get());
    made.error = made.status != 0 ? m_parser->getErrorDesc() : "";
    made.rendered = render(made);
    made.events = m_handler.events;
    return made;
  }

  string render(const Outcome& of) const {
    return rendered(*of.result, m_declarations.names(), of.base, m_declarations.namesRepeat());
  }

  static string told(const Outcome& of) {
    return std::to_string(of.status) + " " + of.error + "\n" + of.events + "\n" + of.rendered;
  }

  // An exception inside the library would show as a status. Only an option without a name may raise
  // one.
  void checkStatus(const Outcome& of) const {
    const std::set<int> expected = {status::success, status::valueRefused, status::usageError};
    const std::set<int> raised = {status::exceptionCaught, status::unidentifiedProblem};
    const bool isFine = expected.count(of.status) != 0 ||
                        (raised.count(of.status) != 0 && m_declarations.someHasNoName());
    expect(isFine, "a parse ends in a documented status", told(of));
    const bool tellsReason = of.status != status::success && of.status != status::exceptionCaught;
    expect(!tellsReason || !of.error.empty(), "a failure has a reason", told(of));
  }

  // A typed text is equal to the text of its value, even if the user has abbreviated the value.
  void checkTexts(IParseResult& result) {
    if (!m_declarations.valuesSuit())
      return;
    for (const string& name : m_declarations.names())
      for (const Value& value : values(result, name.c_str()))
        if (value.value.can_get<const char*>())
          expectEqual("a text is its own value", value.value.get<const char*>(), value.text);
  }

  void checkDeclared() {
    for (const Declared& declared : m_declarations.accepted()) {
      for (const string& name : declared.names) {
        expect(m_parser->isOptionDeclared(name.c_str(), declared.isAction, nullptr),
               "what was accepted is declared", name);
        expect(
            m_parser->isOptionDeclared(name.c_str(), declared.isAction, declared.groupKey.c_str()),
            "what was accepted is declared in its group", name);
      }
    }
  }

  void checkHelp() {
    for (const bool hidden : {false, true}) {
      keptTwice(m_parser->getDescription(hidden), m_parser->getDescription(nullptr, hidden));
      keptTwice(m_parser->getGlobalModifiersDescription(hidden),
                m_parser->getGlobalModifiersDescription(hidden));
      for (const string& name : m_declarations.names()) {
        keptTwice(m_parser->getDescription(name.c_str(), hidden),
                  m_parser->getDescription(name.c_str(), hidden));
        keptTwice(m_parser->getActionModifiersDescription(name.c_str(), hidden),
                  m_parser->getActionModifiersDescription(name.c_str(), hidden));
      }
    }
  }

  static void keptTwice(const char* first, const char* second) {
    expect(first == second, "equal help is kept once", string(first) + "\n" + second);
  }

  testing::RecordingHandler m_handler;
  ParserHandle m_parser;
  Declarations m_declarations;
  std::vector<string> m_args;
};

}  // namespace
}  // namespace kivo_3_3::fuzzing

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace kivo_3_3;
  fuzzing::startAfresh();
  const testing::ConsoleCapture console;
  const testing::AssertionRecorder assertions;
  fuzzing::Scene scene(fuzzing::scriptOf(data, size));
  scene.run();
  fuzzing::expect(!scene.valuesSuit() || assertions.records().empty(),
                  "values that suit are read without complaint", assertions.expressions());
  return 0;
}
