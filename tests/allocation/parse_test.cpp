// Memory runs out during a parse: the outcome is complete, or the status is 3 or 4. Afterwards the
// parser works as before.

#include <gtest/gtest.h>

#include <iostream>
#include <iterator>
#include <streambuf>

#include "allocation/failing_memory.h"
#include "support/command.h"
#include "support/console_capture.h"
#include "support/global_locale.h"
#include "support/recording_handler.h"
#include "support/stored.h"
#include "support/temporary_folder.h"

namespace kivo_3_3 {

namespace {

using std::string;
using testing::Command;
using testing::ConsoleCapture;
using testing::failEachAllocation;
using testing::RecordingHandler;
using testing::render;
using testing::TemporaryFolder;
using Arguments = std::vector<string>;

constexpr const char* longText = "a text too long to be kept without memory";

// Declares one option of each kind.
void declareAll(Command& command) {
  command.option("level,l", vtS32)->defaultValue(3);
  command.option("ratio", vtDouble)->tokenize('\0');
  command.option("size", vtU64);
  command.option("quiet", vtBool);
  command.option("flag", vtNull);
  command.option("list", vtString);
  command.option("choice", vtString)->allowValue("red")->allowValue("green")->allowValue("grey");
  command.option("older", vtString)
      ->allowValue("new-name")
      ->allowDeprecatedValue("old", "new-name");
  command.option("input,i", vtString)->positional();
  command.action("run");
  command.action("walk");
  command.modifier("speed", "run", vtU32);
  command.optionFiles();
}

struct Parsing {
  explicit Parsing(int flags = 0) : command(flags) { declareAll(command); }

  ConsoleCapture console;
  Command command;
  RecordingHandler handler;
  int outcome = -1;
};

// The outcome as Command::parsed() returns it.
string answerOf(Parsing& scene) {
  return scene.outcome == 0 ? scene.command.render()
                            : std::to_string(scene.outcome) + ": " + scene.command.error();
}

void expectEqual(const GivenOption& first, const GivenOption& second) {
  EXPECT_EQ(render(first), render(second));
  for (std::size_t i = 0; i < first.values.size(); ++i)
    EXPECT_EQ(first.values[i].value, second.values[i].value);
}

// A parse gives the full answer, or fails with status 3 or 4.
void expectSound(Parsing& scene, const string& answer) {
  const string given = answerOf(scene);
  const bool failed = scene.outcome == 3 || given == "4: Unidentified problem detected.";
  EXPECT_TRUE(given == answer || failed) << given;

  // Whatever was stored is there under both names of its option.
  const StoredOptions& stored = scene.command.result().options();
  for (const char* name : {"level", "input"}) {
    const auto full = stored.find(name);
    const auto shortened = stored.find(std::string_view(name, 1));
    ASSERT_EQ(full.has_value(), shortened.has_value());
    if (full) {
      expectEqual(stored.given(*full), stored.given(*shortened));
    }
  }

  // No typed text was lost.
  for (const std::string_view name : stored.names()) {
    const auto number = stored.find(name);
    if (!number)
      continue;
    for (const GivenValue& value : stored.given(*number).values) {
      if (value.value.type() == vtString) {
        EXPECT_STREQ(value.text, value.value.get<const char*>());
      }
    }
  }
}

// After a failed parse the result can be read, and filled again.
void expectUsable(Parsing& scene, const string& answer, const Arguments& args) {
  IParseResult& result = scene.command.result();
  for (const char* name : {"level", "list", "input", "run", "option-file"}) {
    const bool isThere = result.present(name);
    EXPECT_EQ(isThere, result.get(name).isEmpty == 0);
    EXPECT_EQ(isThere && values(result, name).empty(), isThere && result.get(name).text == nullptr);
  }
  EXPECT_LE(leftovers(result).size(), 2U);
  const int status = answer.substr(1, 2) == ": " ? answer.front() - '0' : 0;
  EXPECT_EQ(status, scene.command.parseMore(args));
}

// Parses with each allocation failing in turn; the next parse after each failure gives the full
// answer.
template <class Scene>
void failEachParse(const Arguments& args, const string& answer) {
  std::vector<const char*> argv = {"tool"};
  for (const string& argument : args)
    argv.push_back(argument.c_str());
  const int argc = static_cast<int>(argv.size());
  failEachAllocation<Scene>(
      [&](Scene& scene) {
        Command& command = scene.command;
        scene.outcome = command.parser().parseArgsVector(argc, argv.data(), &command.result());
      },
      [&](Scene& scene) {
        expectSound(scene, answer);
        expectUsable(scene, answer, args);
        EXPECT_EQ(answer, scene.command.parsed(args));
      });
}

const struct {
  Arguments args;
  string answer;
} commandLines[] = {
    {{}, "level(3)@+1"},
    {{"--run", "--level=17", "-l", "18"}, "level(3)@+1 run@+3 level=17@+4 level=18@+6"},
    {{"--run", "--ratio=0.00000000000000000000000000000000000001e5"},
     "level(3)@+1 run@+3 ratio=0.00000000000000000000000000000000000001e5@+4"},
    {{"--run", "--size=12", "--size=0x1F", "--size=1Fh"},
     "level(3)@+1 run@+3 size=12@+4 size=0x1F@+6 size=1Fh@+8"},
    {{"--run", "--quiet", "--no-quiet", "--fl"},
     "level(3)@+1 run@+3 quiet=1@+4 quiet=0@+6 flag@+8"},
    {{"--run", "--qui", "--no-q"}, "level(3)@+1 run@+3 quiet=1@+4 quiet=0@+6"},
    {{"--run", "--list=a,b,,a text too long to be kept without memory"},
     "level(3)@+1 run@+3 list=a,b,a text too long to be kept without memory@+4"},
    {{"--run", "--choice=re", "--choice=green"},
     "level(3)@+1 run@+3 choice=red@+4 choice=green@+6"},
    {{"--run", "--older=old"}, "level(3)@+1 run@+3 older=old@+4"},
    {{"--run", "a text too long to be kept without memory", "-x"},
     "level(3)@+1 run@+3 input=a text too long to be kept without memory@+4 input=-x@+6"},
    {{"--run", "--speed=4294967295"}, "level(3)@+1 run@+3 speed=4294967295@+4"},
    {{"--run", "--", "a text too long to be kept without memory", "b"},
     "level(3)@+1 run@+3 | a text too long to be kept without memory@+4 b@+5"},
    {{"--level=17"}, "2: No action defined."},
    {{"--run", "--walk"},
     "2: Action '-walk' and action '-run' were defined, but only one action possible."},
    {{"--walk", "--speed=1"}, "2: Action '-walk' doesn't accept option '-speed'"},
    {{"--run", "--level"}, "2: Option 'level' requires a value in argument: '--level'"},
    {{"--run", "--level", ""}, "2: Option 'level' requires a value in argument: '--level'"},
    {{"--run", "--level", "--walk"},
     "2: Option 'level' received value from the next argument: '--walk', but it seems to be an "
     "option. Use '-option=value' declaration form or make sure that value is not missed"},
    {{"--run", "--level=17.5"},
     "2: Value validation problem in argument '--level=17.5': Option 'level' can not parse '17.5' "
     "value, requires a type 'integer' here."},
    {{"--run", "--level=1", "--l=2", "--li"},
     "2: Option 'list' requires a value in argument: '--li'"},
    {{"--run", "--ratio=1e"},
     "2: Value validation problem in argument '--ratio=1e': Option 'ratio' can not parse '1e' "
     "value, requires a type 'double' here."},
    {{"--run", "--quiet=1"},
     "2: Option 'quiet' is boolean and should be declared in form '--option' or '--no-option' in "
     "argument: '--quiet=1'"},
    {{"--run", "--flag=1"}, "2: Option 'flag'does not requires a value in argument: '--flag=1'"},
    {{"--run", "--list=,,"}, "2: No value parsed in argument ',,' for option 'list'"},
    {{"--run", "--choice=gr"},
     "2: Value validation problem in argument '--choice=gr': Ambiguous value for option 'choice'. "
     "Possible values follows: 'red', 'green', 'grey'"},
    {{"--run", "--choice=blue"},
     "2: Value validation problem in argument '--choice=blue': Option 'choice' does not allow "
     "value 'blue'. Possible values follows: 'red', 'green', 'grey'"},
    {{"--run", "--o"},
     "2: Ambiguous option 'o' in argument: '--o', could be: 'older', 'option-file'"},
    {{"--run", "---"}, "level(3)@+1 run@+3 input=---@+4"},
};

const struct {
  const char* text;
  string answer;
} streams[] = {
    {"", ""},
    {"--run\n  --list=a text too long to be kept without memory\n; no\r\n",
     "run@+1 list=a text too long to be kept without memory@+2"},
    {"--run\n--level\n17\n--\na text too long to be kept without memory\n",
     "run@+1 level=17@+2 | a text too long to be kept without memory@+4"},
    {"--run\n--level=a text too long to be kept without memory\n",
     "2: Value validation problem in argument '--level=a text too long to be kept without memory':"
     " Option 'level' can not parse 'a text too long to be kept without memory' value, requires a"
     " type 'integer' here."},
    {"--run\n--option-file=none\n", "6: Error reading option file 'none'"},
};

TEST(MemoryRunsOut, CommandLineIsParsedInFullOrFailsWith3Or4) {
  for (const auto& c : commandLines) {
    SCOPED_TRACE(::testing::PrintToString(c.args));
    failEachParse<Parsing>(c.args, c.answer);
  }
}

TEST(MemoryRunsOut, ArgumentsAfterTheSeparatorAreBoundInFullOrTheParseFailsWith3Or4) {
  struct LeftoversToo : Parsing {
    LeftoversToo() : Parsing(parserFlags::leftoverArgumentsArePositional) {}
  };
  failEachParse<LeftoversToo>({"--run", "--", "a", longText},
                              "level(3)@+1 run@+3 input=a@+5 input=a text too long to be kept"
                              " without memory@+8 | a@+4 a text too long to be kept without"
                              " memory@+7");
}

TEST(MemoryRunsOut, UnknownArgumentIsAnErrorOrTheParseFailsWith3Or4) {
  struct Strict : Parsing {
    Strict()
        : Parsing(parserFlags::unknownArgumentIsError |
                  parserFlags::dashArgumentsAreNeverPositional) {}
  };
  failEachParse<Strict>({"--run", "a", string("--") + longText},
                        string("2: Unknown option: --") + longText);
}

TEST(MemoryRunsOut, OptionFilesAreReadInFullOrTheParseFailsWith3Or4) {
  const TemporaryFolder folder;
  const string inner = folder.write("inner", "--list=inside\n--\nrest\n");
  const string outer = folder.write("outer", "--level=17\n--option-file=" + inner + "\n");
  const string ring = folder.path("ring");
  folder.write("ring", "--option-file=" + ring + "\n");
  failEachParse<Parsing>({"--run", "--option-file=" + outer, "--option-file", inner},
                         "level(3)@+1 run@+3 option-file=" + outer + "@+4 option-file=" + inner +
                             "@+6 level=17@+8 option-file=" + inner +
                             "@+10 list=inside@+12 list=inside@+15 | rest@+14 rest@+17");
  failEachParse<Parsing>({"--run", "--option-file=" + ring},
                         "6: Error reading option file '" + ring + "'");
  failEachParse<Parsing>({"--run", "--option-file=" + folder.path("none")},
                         "6: Error reading option file '" + folder.path("none") + "'");
}

TEST(MemoryRunsOut, StreamIsParsedInFullOrFailsWith3Or4) {
  for (const auto& c : streams) {
    SCOPED_TRACE(c.text);
    failEachAllocation<Parsing>(
        [&](Parsing& scene) {
          scene.outcome = scene.command.parser().parseStream(c.text, &scene.command.result());
        },
        [&](Parsing& scene) {
          expectSound(scene, c.answer);
          scene.outcome = scene.command.parseStream(c.text);
          EXPECT_EQ(c.answer, answerOf(scene));
        });
  }
}

TEST(MemoryRunsOut, TracedParseIsDoneInFullOrFailsWith3Or4) {
  failEachParse<Parsing>({"kivooption=kivologenable=1", "--run", "--list=a,b", "--", "c"},
                         "level(3)@+1 run@+3 list=a,b@+4 | c@+7");
}

TEST(MemoryRunsOut, NumbersOfAnotherLocaleAreReadAndWrittenInFullOrTheParseFailsWith3Or4) {
  struct Limited : Parsing {
    Limited() { command.option("limit", vtU64)->defaultValue(18'446'744'073'709'551'615ULL); }
  };
  const testing::GlobalLocale commas(testing::localeWithDecimalComma());
  failEachParse<Limited>({"--run", "--ratio=17,25", "--level=17", "--size=1Fh"},
                         "level(3)@+1 limit(18.446.744.073.709.551.615)@+3 run@+4 ratio=17,25@+5"
                         " level=17@+7 size=1Fh@+9");
}

// Until the parse fails, handlers receive the same events as otherwise, with whole texts.
TEST(MemoryRunsOut, HandlersReceiveWholeTextsOrTheParseFailsWith3Or4) {
  struct Watched : Parsing {
    Watched() : Parsing(parserFlags::dashArgumentsAreNeverPositional) {
      command.parser().addHandler(&handler);
    }
  };
  const char* const argv[] = {"tool", "--run", "--unknown-by-a-long-name", longText};
  const string events =
      "option run; unknown --unknown-by-a-long-name;"
      " option input; value input=a text too long to be kept without memory";
  failEachAllocation<Watched>(
      [&](Watched& scene) {
        Command& command = scene.command;
        scene.outcome = command.parser().parseArgsVector(4, argv, &command.result());
      },
      [&](Watched& scene) {
        expectSound(scene, "level(3)@+1 run@+3 input=a text too long to be kept without memory@+4");
        EXPECT_EQ(0U, events.find(scene.handler.events)) << scene.handler.events;
        if (scene.outcome == 0) {
          EXPECT_EQ(events, scene.handler.events);
        }
      });
}

TEST(MemoryRunsOut, RefusedValueEndsTheParseWith1Or3Or4) {
  struct Refusing : Parsing {
    Refusing() {
      handler.refusedValues = {longText};
      command.parser().addHandler(&handler);
    }
  };
  failEachParse<Refusing>({"--run", string("--list=") + longText},
                          "1: Value 'a text too long to be kept without memory' is not valid for"
                          " option 'list' in argument '--list=a text too long to be kept without"
                          " memory'");
}

TEST(MemoryRunsOut, WarningIsWrittenWholeOrNotAtAll) {
  // A stream buffer that does not allocate.
  struct Paper : std::streambuf {
    Paper() { setp(std::begin(characters), std::end(characters)); }
    string text() const { return string(pbase(), pptr()); }
    char characters[256];
  };
  struct Warned : Parsing {
    Warned() : previous(std::cerr.rdbuf(&paper)) {}
    ~Warned() { std::cerr.rdbuf(previous); }
    Paper paper;
    std::streambuf* previous;
  };
  const char* const argv[] = {"tool", "--run", "--older=old"};
  failEachAllocation<Warned>(
      [&](Warned& scene) {
        Command& command = scene.command;
        scene.outcome = command.parser().parseArgsVector(3, argv, &command.result());
      },
      [](Warned& scene) {
        const string warning =
            "Warning: 'old' argument is deprecated for the option '-older'. Use the 'new-name'"
            " argument instead.\n";
        const string written = scene.paper.text();
        EXPECT_TRUE(written == warning || (scene.outcome != 0 && written.empty())) << written;
      });
}

// The declarations of the handler make the list of options grow while the parse refers to it.
TEST(MemoryRunsOut, HandlerMayDeclareAndTheNextParseKnowsIt) {
  struct Declaring : Parsing {
    Declaring() {
      command.parser().addHandler(&handler);
      handler.alsoDo = [this] {
        for (int i = 0; i < 10; ++i)
          command.parser().option(("more-" + std::to_string(i)).c_str(), longText, vtS32);
      };
    }
  };
  const Arguments args = {"--run", "--level=17", "--level=18"};
  failEachParse<Declaring>(args, "level(3)@+1 run@+3 level=17@+4 level=18@+6");
}

TEST(MemoryRunsOut, ParseWithoutAResultIsDoneInFullOrFailsWith3Or4) {
  const char* const argv[] = {"tool", "--run", "--level=x"};
  failEachAllocation<Parsing>(
      [&](Parsing& scene) {
        scene.outcome = scene.command.parser().parseArgsVector(3, argv, nullptr);
      },
      [](Parsing& scene) {
        expectSound(scene,
                    "2: Value validation problem in argument '--level=x': Option 'level' can not "
                    "parse 'x' value, requires a type 'integer' here.");
      });
}

}  // namespace

}  // namespace kivo_3_3
