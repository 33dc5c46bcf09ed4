// Handlers that start other parses, or that change the surroundings of a parse: results, parsers,
// help, the locale, the console, the caller's arguments.

#include <iostream>
#include <locale>
#include <memory>

#include "parser/hostile_scene.h"
#include "support/assertion_recorder.h"
#include "support/console_capture.h"
#include "support/global_locale.h"
#include "support/stored.h"

namespace kivo_3_3 {

namespace {

using std::string;
using testing::Command;
using testing::givenTo;
using testing::HostileHandler;
using testing::HostileScene;
using testing::RecordingHandler;
using testing::Road;

using HostileParse = HostileHandler;

INSTANTIATE_TEST_SUITE_P(Roads, HostileParse,
                         ::testing::Values(Road::commandLine, Road::stream, Road::optionFile),
                         testing::roadName);

// Inserts `more` into the events that parse() must return, right after `event`.
string withMore(string expected, int event, const string& more) {
  std::size_t place = expected.find('[');
  for (int i = 0; i < event && place != string::npos; ++i)
    place = expected.find_first_of(";]", place + 1);
  return expected.insert(place, "; " + more);
}

TEST_P(HostileParse, MayUseAnotherParser) {
  makesNoDifference([](HostileScene&) {
    Command other;
    RecordingHandler listener;
    other.parser().addHandler(&listener);
    other.option("depth", vtS32);
    EXPECT_EQ("depth=9@+1 | x@+3", other.parsed({"--depth=9", "--", "x"}));
    EXPECT_EQ("option depth; value depth=9", listener.events);
  });
}

TEST_P(HostileParse, MayUseAnotherParserWithTheSameHandler) {
  atEveryEvent([](HostileScene& scene, int event) {
    Command other;
    other.parser().addHandler(&scene.handler);
    other.option("depth", vtS32);
    scene.at(event, [&] { EXPECT_EQ("depth=9@+1", other.parsed({"--depth=9"})); });
    const string told = "option depth; value depth=9";
    EXPECT_EQ(withMore(HostileScene::undisturbed(), event, told), scene.parse());
    EXPECT_EQ(HostileScene::undisturbed(), scene.parseUndisturbed());
  });
}

TEST_P(HostileParse, MayUseTheSameParserForAnotherResult) {
  atEveryEvent([](HostileScene& scene, int event) {
    const ResultHandle mine = makeResult(scene.parser());
    scene.at(event, [&] {
      EXPECT_EQ(0, scene.parser().parseStream("--level=5\nc", mine.get()));
      EXPECT_EQ("level=5 files=c", HostileScene::contentsOf(*mine));
    });
    const string told = "option level; value level=5; option files; value files=c";
    EXPECT_EQ(withMore(HostileScene::undisturbed(), event, told), scene.parse());
    EXPECT_EQ(HostileScene::undisturbed(), scene.parseUndisturbed());
    EXPECT_EQ("level=5 files=c", HostileScene::contentsOf(*mine));
  });
}

TEST_P(HostileParse, MayAddToTheResultBeingFilled) {
  atEveryEvent([](HostileScene& scene, int event) {
    scene.at(event,
             [&] { EXPECT_EQ(0, scene.parser().parseStream("--level=5", &scene.result())); });
    const string levels = event <= 3 ? "level=5,1,2 x2" : "level=1,2,5 x2";
    const string expected =
        HostileScene::expected(0, levels + " files=a,b x2 | b", HostileScene::events);
    EXPECT_EQ(withMore(expected, event, "option level; value level=5"), scene.parse());
    EXPECT_EQ(HostileScene::undisturbed(), scene.parseUndisturbed());
  });
}

TEST_P(HostileParse, MayFailWhileTheOuterOneSucceeds) {
  const string reason =
      "Value validation problem in argument '--level=z': Option 'level' can not parse 'z' value, "
      "requires a type 'integer' here.";
  atEveryEvent([&](HostileScene& scene, int event) {
    scene.at(event, [&] {
      EXPECT_EQ(2, scene.parser().parseStream("--level=z", &scene.result()));
      EXPECT_EQ(reason, scene.command.error());
    });
    EXPECT_EQ(withMore(HostileScene::undisturbed(), event, "option level"), scene.parse());
    EXPECT_EQ(reason, scene.command.error());  // success does not clear the error text
    EXPECT_EQ(HostileScene::undisturbed(), scene.parseUndisturbed());
  });
}

TEST(HostileParses, OuterFailureTellsItsOwnReason) {
  Command command;
  RecordingHandler handler;
  int inner = 0;
  handler.refusedValues = {"7"};
  handler.alsoDo = [&] {
    if (handler.events == "option level; value level=7")
      inner = command.parser().parseStream("--level=z", nullptr);
  };
  command.parser().addHandler(&handler);
  command.option("level", vtS32);
  EXPECT_EQ("1: Value '7' is not valid for option 'level' in argument '--level=7'",
            command.parsed({"--level=7"}));
  EXPECT_EQ(2, inner);
}

// A handler that treats the argument "@x" as a reference: it parses the arguments in `referred`.
class References : public ::testing::Test {
 protected:
  References() : command(parserFlags::unknownArgumentIsError) {
    command.optionFiles();
    command.option("level", vtS32);
    command.option("depth", vtS32);
    command.parser().addHandler(&handler);
    handler.acceptsUnknown = false;
    handler.alsoDo = [this] {
      const string::size_type last = handler.events.size() - 2;
      if (handler.events.compare(last, 2, "@x") == 0)
        statuses += std::to_string(parseReferred());
    };
  }
  int parseReferred() { return command.parser().parseStream(referred.c_str(), &command.result()); }
  string write(const char* file, const string& text) {
    return "--option-file=" + folder.write(file, text);
  }
  string values(const char* name) {
    string text;
    for (const GivenValue& value : givenTo(command.result(), name).values)
      text += value.text;
    return text;
  }

  Command command;
  RecordingHandler handler;
  testing::TemporaryFolder folder;
  string referred = "--depth=2";
  string statuses;
};

TEST_F(References, StandForTheirArguments) {
  EXPECT_EQ("level=1@+1 depth=2@+3 level=3@+5", command.parsed({"--level=1", "@x", "--level=3"}));
  EXPECT_EQ("0", statuses);
}

TEST_F(References, LeaveOptionFilesToTheOuterParse) {
  const string file = write("a", "--level=1\n@x\n--level=2");
  EXPECT_EQ(0, command.parse({file, "@x"}));
  EXPECT_EQ("00", statuses);
  EXPECT_EQ("12", values("level"));
  EXPECT_EQ("22", values("depth"));
}

TEST_F(References, MayNameOptionFiles) {
  referred = write("a", "--level=1");
  EXPECT_EQ(0, command.parse({"@x", "--level=2"}));
  EXPECT_EQ("0", statuses);
  EXPECT_EQ("21", values("level"));
}

TEST_F(References, ThatLeadAnOptionFileBackToItselfEndTheParse) {
  referred = write("a", "--level=1\n@x");
  EXPECT_EQ(6, command.parse({referred}));
  EXPECT_EQ("Error reading option file '" + folder.path("a") + "'", string(command.error()));
  EXPECT_EQ("0", statuses);
  EXPECT_EQ("1", values("level"));
}

TEST_F(References, LeaveTheRulesForActionsToTheOuterParse) {
  command.action("run");
  command.action("walk");
  EXPECT_EQ("depth=2@+1 run@+3", command.parsed({"@x", "--run"}));
  referred = "--walk";
  EXPECT_EQ("2: Action '-walk' and action '-run' were defined, but only one action possible.",
            command.parsed({"--run", "@x"}));
  EXPECT_EQ("00", statuses);
}

TEST_F(References, ArePartOfTheParseThroughAnotherParserToo) {
  Command other;
  RecordingHandler inner;
  string outcome = "not parsed";
  inner.alsoDo = [this] { statuses = std::to_string(parseReferred()); };
  other.parser().addHandler(&inner);
  handler.alsoDo = [&] {
    if (handler.events == "unknown @x")
      outcome = other.parsed({"-y"});
  };
  command.action("run");
  EXPECT_EQ("depth=2@+1 run@+3", command.parsed({"@x", "--run"}));
  EXPECT_EQ("", outcome);
  EXPECT_EQ("0", statuses);
}

TEST_F(References, InAnotherResultAreAParseOfTheirOwn) {
  const ResultHandle mine = makeResult(command.parser());
  const string lines = write("a", "--level=1") + "\n--depth=2";
  handler.alsoDo = [&] {
    if (handler.events == "unknown @x")
      statuses = std::to_string(command.parser().parseStream(lines.c_str(), mine.get()));
  };
  EXPECT_EQ("level=3@+7", command.parsed({"@x", "--level=3"}));
  EXPECT_EQ("0", statuses);
  EXPECT_STREQ("1", mine->get("level").text);
  command.action("run");
  handler.events.clear();
  EXPECT_EQ("run@+9", command.parsed({"@x", "--run"}));  // `mine` now names the option file twice
  EXPECT_EQ("2", statuses);
  EXPECT_STREQ("No action defined.", command.error());
}

TEST_F(References, OfAnotherParserAreAParseOfTheirOwn) {
  Command other;
  other.option("width", vtS32);
  handler.alsoDo = [&] {
    if (handler.events == "option level; value level=1; unknown @x")
      statuses = std::to_string(other.parser().parseStream("--width=2", &command.result()));
  };
  EXPECT_EQ(1, command.parse({"--level=1", "@x"}));  // neither parser knows the other's options
  EXPECT_EQ("1", statuses);
  EXPECT_STREQ("2", command.result().get("width", 0, lastPosition).text);
}

TEST_F(References, MayUseDefaults) {
  command.option("height", vtS32)->defaultValue(4);
  handler.alsoDo = [this] { EXPECT_EQ(0, command.parseMore({})); };
  EXPECT_EQ("level=1@+3 height(4)@+5", command.parsed({"--level=1"}));
}

TEST(HostileParses, SwitchTheTraceForTheRestOfTheOuterParse) {
  const testing::ConsoleCapture console;
  Command command;
  RecordingHandler handler;
  handler.alsoDo = [&] { command.parser().parseStream("", nullptr); };
  command.parser().addHandler(&handler);
  EXPECT_EQ(0, command.parse({"kivooption=kivologenable=1", "-x", "-y"}));
  EXPECT_EQ(
      "PositionalOptionsParser: recognizing argument '-x'\n"
      "AbbreviationParser: recognizing argument '-x'\n",
      console.out());
}

// The parse finds the option files with the same cursor that handlers read with.
TEST(HostileParses, ReadingOptionFilesMovesTheCursor) {
  const testing::TemporaryFolder folder;
  const string file = "--option-file=" + folder.write("a", "-x\n-y\n--level=3\n-z");
  Command command;
  RecordingHandler handler;
  string seen;
  handler.alsoDo = [&] {
    if (handler.events.find("option-file") == string::npos)
      return;
    const Value value = seen.empty() ? command.result().get("level", 0, lastPosition)
                                     : command.result().next("level");
    seen += value.isEmpty == 0 ? value.text : "-";
  };
  command.option("level", vtS32);
  command.optionFiles();
  command.parser().addHandler(&handler);
  EXPECT_EQ(0, command.parse({"--level=1,2", file}));
  EXPECT_EQ("12-----", seen);
}

TEST_P(HostileParse, MayBeAskedForHelp) {
  makesNoDifference([](HostileScene& scene) {
    IParser& parser = scene.parser();
    parser.option("quiet,q", "Say nothing.", vtNull);  // rejected if already declared
    const string quiet = paragraphString("Say nothing.", "-quiet, -q", 30, 50);
    EXPECT_EQ(quiet, parser.getDescription("quiet", false));
    EXPECT_STREQ("", parser.getDescription(true));
    EXPECT_STREQ("", parser.getActionModifiersDescription("quiet", false));
    EXPECT_EQ(quiet, parser.getGlobalModifiersDescription(false));
    EXPECT_EQ("Help for x not available.Please use one of the following topics:\n" + quiet,
              parser.getDescription("x", false));
  });
}

// The assertion handler of this test returns, so destroy() has no effect and the parse goes on.
TEST_P(HostileParse, MustNotDestroyWhatTakesPartInIt) {
  const string inUse = "!RunningCall::isInUse(*this)";
  atEveryEvent([&](HostileScene& scene, int event) {
    const testing::AssertionRecorder assertions;
    ParserHandle listening = makeParser();
    testing::RecordingHandler ending;
    ending.alsoDo = [&] { listening->destroy(); };
    listening->addHandler(&ending);
    scene.at(event, [&] {
      scene.result().destroy();
      scene.parser().destroy();
      listening->onUknownArgument("passed on");
    });
    EXPECT_EQ(HostileScene::undisturbed(), scene.parse());
    EXPECT_EQ(inUse + "; " + inUse + "; " + inUse, assertions.expressions());
    EXPECT_EQ(HostileScene::undisturbed(), scene.parseUndisturbed());
  });
}

TEST(HostileParses, AllEndOnceNestedTooDeep) {
  Command command;
  command.option("level", vtS32);
  RecordingHandler handler;
  int parses = 0;
  handler.alsoDo = [&] {
    ++parses;
    const int inner = command.parser().parseStream("--level=1\n--level=2", nullptr);
    EXPECT_EQ(4, inner);
  };
  command.parser().addHandler(&handler);
  EXPECT_EQ(4, command.parse({"--level=3"}));
  EXPECT_STREQ("Unidentified problem detected.", command.error());
  EXPECT_EQ(100, parses);
  command.parser().removeHandler(&handler);
  EXPECT_EQ("level=3@+1", command.parsed({"--level=3"}));
}

// The event that the tool sends encloses all parses but is none itself, so sending it raises
// nothing.
TEST(HostileParses, EndOnceNestedTooDeepInsideAnEventThatTheToolSends) {
  Command command;
  command.option("level", vtS32);
  RecordingHandler handler;
  int parses = 0;
  int failed = 0;
  handler.alsoDo = [&] {
    if (++parses <= 101)
      failed += command.parser().parseStream("--level=1", nullptr) == 4 ? 1 : 0;
  };
  command.parser().addHandler(&handler);
  EXPECT_TRUE(command.parser().onOptionParse("level"));
  EXPECT_EQ(101, parses);
  EXPECT_EQ(101, failed);
}

// The event that the tool itself sends is no parse, so it does not add to the depth.
TEST(HostileParses, MayNestToADepthOfAHundred) {
  Command command;
  command.option("level", vtS32);
  RecordingHandler handler;
  int depth = 0;
  handler.alsoDo = [&] {
    if (depth == 100 || handler.events.back() == '1')
      return;
    ++depth;
    EXPECT_EQ(0, command.parser().parseStream("--level=1", nullptr));
  };
  command.parser().addHandler(&handler);
  EXPECT_TRUE(command.parser().onOptionParse("level"));
  EXPECT_EQ(100, depth);
}

TEST_P(HostileParse, MayDestroyWhatTakesNoPartInIt) {
  atEveryEvent([](HostileScene& scene, int event) {
    ResultHandle idle = makeResult(scene.parser());
    EXPECT_EQ(0, scene.parser().parseStream("--level=5", idle.get()));
    ParserHandle other = makeParser();
    ResultHandle ofAnother = makeResult(*other);
    ParserHandle listening = makeParser();
    scene.parser().addHandler(listening.get());
    scene.at(event, [&] {
      idle.reset();
      other.reset();
      ofAnother.reset();
      scene.parser().removeHandler(listening.get());
      listening.reset();
    });
    EXPECT_EQ(HostileScene::undisturbed(), scene.parse());
    EXPECT_EQ(HostileScene::undisturbed(), scene.parseUndisturbed());
  });
}

TEST_P(HostileParse, MayChangeTheGlobalLocale) {
  const testing::GlobalLocale restored{std::locale()};
  makesNoDifference([](HostileScene&) {
    std::locale::global(std::locale() == std::locale::classic()
                            ? testing::localeWithDecimalComma()
                            : testing::localeWithUnderscoreAsSpace());
  });
}

TEST(HostileLocale, CountsFromTheNextValueOn) {
  const testing::GlobalLocale restored(std::locale::classic());
  Command command(parserFlags::noTokenizer);
  RecordingHandler handler;
  handler.alsoDo = [] { std::locale::global(testing::localeWithDecimalComma()); };
  command.option("ratio", vtDouble);
  EXPECT_EQ("ratio=0.5@+1", command.parsed({"--ratio=0.5"}));
  command.parser().addHandler(&handler);
  EXPECT_EQ(0, command.parse({"-x", "--ratio=0,25"}));
  EXPECT_EQ(0.25, command.result().get("ratio", 0, lastPosition).value.get<double>());
}

// The console, on a stream buffer of the tool that sets the global locale when `text` is written.
class ConsoleThatSetsTheLocale : public std::streambuf {
 public:
  // In that locale a point separates thousands.
  explicit ConsoleThatSetsTheLocale(string text)
      : m_text(std::move(text)), m_output(std::cout.rdbuf(this)), m_error(std::cerr.rdbuf(this)) {}
  ConsoleThatSetsTheLocale(const ConsoleThatSetsTheLocale&) = delete;
  ConsoleThatSetsTheLocale& operator=(const ConsoleThatSetsTheLocale&) = delete;
  ~ConsoleThatSetsTheLocale() override {
    std::cout.rdbuf(m_output);
    std::cerr.rdbuf(m_error);
  }

 private:
  std::streamsize xsputn(const char* text, std::streamsize count) override {
    if (string(text, static_cast<std::size_t>(count)).find(m_text) != string::npos)
      std::locale::global(testing::localeWithDecimalComma());
    return count;
  }
  int overflow(int character) override { return character; }

  string m_text;
  std::streambuf* m_output;
  std::streambuf* m_error;
};

TEST(HostileConsole, MaySetTheGlobalLocaleAtALineOfTheTrace) {
  const testing::GlobalLocale restored(std::locale::classic());
  const ConsoleThatSetsTheLocale console("stored option");
  Command command(parserFlags::noTokenizer);
  command.option("ratio", vtDouble);
  EXPECT_EQ(0, command.parse({"kivooption=kivologenable=1", "--ratio=0.5", "--ratio=1.234"}));
  EXPECT_EQ(0.5, command.result().get("ratio", 0, lastPosition).value.get<double>());
  EXPECT_EQ(1234, command.result().next("ratio").value.get<double>());
}

TEST(HostileConsole, MaySetTheGlobalLocaleAtAWarning) {
  const testing::GlobalLocale restored(std::locale::classic());
  const ConsoleThatSetsTheLocale console("Warning");
  Command command(parserFlags::noTokenizer);
  command.option("level", vtS32)->allowValue(1)->allowDeprecatedValue(2, 1);
  command.option("ratio", vtDouble);
  EXPECT_EQ(0, command.parse({"--ratio=0.5", "--level=2", "--ratio=1.234"}));
  EXPECT_EQ(0.5, command.result().get("ratio", 0, lastPosition).value.get<double>());
  EXPECT_EQ(1234, command.result().next("ratio").value.get<double>());
}

TEST(HostileConsole, WarningsToAClosedErrorStreamAreLost) {
  const testing::ConsoleCapture console;
  Command command;
  RecordingHandler handler;
  handler.alsoDo = [&] {
    if (handler.events == "option mode; value mode=quick")
      std::cerr.setstate(std::ios::badbit);
  };
  command.parser().addHandler(&handler);
  command.option("mode", vtString)->allowValue("fast")->allowDeprecatedValue("quick", "fast");
  EXPECT_EQ("mode=quick@+1 mode=quick@+3", command.parsed({"--mode=quick", "--mode=quick"}));
  std::cerr.clear();
  EXPECT_EQ(
      "Warning: 'quick' argument is deprecated for the option '-mode'. Use the 'fast' argument "
      "instead.\n",
      console.err());
}

// All the caller's arguments may be overwritten at the first event: the parse has its own copies.
TEST(HostileHandlerOfArguments, MayOverwriteThem) {
  Command command;
  RecordingHandler handler;
  command.option("password", vtString);
  command.option("user", vtString);
  command.parser().addHandler(&handler);
  string arguments[] = {"tool", "--password", "secret", "--user=me"};
  const char* const argv[] = {arguments[0].c_str(), arguments[1].c_str(), arguments[2].c_str(),
                              arguments[3].c_str()};
  handler.alsoDo = [&] {
    for (string& argument : arguments)
      argument.assign(argument.size(), '*');
  };
  EXPECT_EQ(0, command.parser().parseArgsVector(4, argv, &command.result()));
  EXPECT_EQ("option password; value password=secret; option user; value user=me", handler.events);
  EXPECT_EQ("password=secret@+1 user=me@+3", command.render());
}

TEST(HostileHandlerOfArguments, MayDestroyTheText) {
  Command command;
  RecordingHandler handler;
  command.option("level", vtS32);
  command.parser().addHandler(&handler);
  auto text = std::make_unique<string>("--level=1\n--level=2\n--level=x\n");
  handler.alsoDo = [&] { text.reset(); };
  EXPECT_EQ(2, command.parser().parseStream(text->c_str(), &command.result()));
  EXPECT_EQ("option level; value level=1; option level; value level=2; option level",
            handler.events);
  EXPECT_STREQ(
      "Value validation problem in argument '--level=x': Option 'level' can not parse 'x' value,"
      " requires a type 'integer' here.",
      command.error());
}

TEST(HostileHandlerOfArguments, MayChangeWhatIsWhiteSpaceInThemButNotBetweenThem) {
  const testing::GlobalLocale restored{std::locale()};
  Command command;
  RecordingHandler handler;
  command.option("a", vtS32);
  command.option("b", vtS32);
  command.parser().addHandler(&handler);
  handler.alsoDo = [] { std::locale::global(testing::localeWithUnderscoreAsSpace()); };
  EXPECT_EQ("a=1@+1 b=5@+3", command.parsed({"--a=1", "--b_5"}));
  std::locale::global(std::locale::classic());
  handler.events.clear();
  EXPECT_EQ(0, command.parseStream("--a=1\n_--b=5\n"));
  EXPECT_EQ("option a; value a=1; unknown _--b=5", handler.events);
}

// The message quotes the whole value, because the value was split before splitting was turned off.
TEST(HostileHandlerOfArguments, MayTurnOffSplittingWhileItRefuses) {
  Command command;
  RecordingHandler handler;
  IOption* const tone = command.option("tone", vtString)->allowValue("fast")->allowValue("slow");
  command.parser().addHandler(&handler);
  handler.refusedValues = {"slow"};
  handler.alsoDo = [&] {
    if (handler.events == "option tone; value tone=fast; value tone=slow")
      tone->tokenize('\0');
  };
  EXPECT_EQ("1: Value 'fa,sl' is not valid for option 'tone' in argument '--tone=fa,sl'",
            command.parsed({"--tone=fa,sl"}));
}

}  // namespace

}  // namespace kivo_3_3
