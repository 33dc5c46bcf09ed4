// Handlers that throw, declare options, add and remove handlers, or read the result being filled,
// at every event of a parse.

#include <memory>
#include <new>
#include <stdexcept>

#include "parser/hostile_scene.h"

namespace kivo_3_3 {

namespace {

using std::string;
using testing::Command;
using testing::HostileHandler;
using testing::HostileScene;
using testing::RecordingHandler;
using testing::Road;
using testing::TestHandler;

constexpr int events = HostileScene::events;

INSTANTIATE_TEST_SUITE_P(Roads, HostileHandler,
                         ::testing::Values(Road::commandLine, Road::stream, Road::optionFile),
                         testing::roadName);

// An exception without a reason, or with an empty one.
class Wordless : public std::exception {
 public:
  explicit Wordless(const char* reason) : m_reason(reason) {}
  const char* what() const noexcept override { return m_reason; }

 private:
  const char* m_reason;
};

TEST_P(HostileHandler, StandardExceptionEndsTheParse) {
  const std::function<void()> throwers[] = {
      [] { throw std::runtime_error("from a handler"); },
      [] { throw std::bad_alloc(); },
      [] { throw Wordless(nullptr); },
      [] { throw Wordless(""); },
  };
  for (const auto& thrower : throwers)
    atEveryEvent([&](HostileScene& scene, int event) {
      scene.at(event, thrower);
      EXPECT_EQ(HostileScene::expected(4, HostileScene::storedAt(event), event), scene.parse());
      EXPECT_STREQ("Unidentified problem detected.", scene.command.error());
      EXPECT_EQ(HostileScene::undisturbed(), scene.parseUndisturbed());
    });
}

TEST_P(HostileHandler, OtherExceptionLeavesTheParseOperation) {
  atEveryEvent([](HostileScene& scene, int event) {
    scene.at(event, [] { throw 7; });
    EXPECT_THROW(scene.parse(), int);
    EXPECT_EQ(HostileScene::storedAt(event), scene.stored());
    EXPECT_EQ(event, scene.countTold(scene.handler));
    EXPECT_STREQ("", scene.command.error());
    EXPECT_EQ(HostileScene::undisturbed(), scene.parseUndisturbed());
  });
}

TEST_P(HostileHandler, ThatThrowsIsTheLastToBeNotified) {
  atEveryEvent([](HostileScene& scene, int event) {
    scene.parser().addHandler(&scene.handlers[0]);
    scene.parser().addHandler(&scene.handlers[2]);
    scene.at(event, [] { throw std::runtime_error("from a handler"); });
    EXPECT_EQ(HostileScene::expected(4, HostileScene::storedAt(event), event), scene.parse());
    EXPECT_EQ(event, scene.countTold(scene.handlers[0]));
    EXPECT_EQ(event - 1, scene.countTold(scene.handlers[2]));
  });
}

void declareHundreds(IParser& parser) {
  for (int i = 0; i < 300; ++i) {
    const string name = "one-of-many-declared-in-a-handler-" + std::to_string(i);
    parser.option(name.c_str(), name.c_str(), vtString, (name + ":" + name).c_str())
        ->allowValue("fast")
        ->allowDeprecatedValue("quick", "fast")
        ->defaultValue("fast");
    parser.modifier(("m" + name).c_str(), "run,walk", "", vtBool)->synonym(("s" + name).c_str());
  }
}

TEST_P(HostileHandler, MayDeclareHundredsOfOptions) {
  atEveryEvent([](HostileScene& scene, int event) {
    scene.at(event, [&] { declareHundreds(scene.parser()); });
    EXPECT_EQ(HostileScene::undisturbed(), scene.parse());
    const char* name = "one-of-many-declared-in-a-handler-299";
    EXPECT_FALSE(scene.result().present(name));  // its default is not applied in this parse
    EXPECT_EQ(0, scene.command.parse({"--level=3", "--no-mone-of-many-declared-in-a-handler-7"}));
    EXPECT_STREQ("fast", scene.result().get(name).text);
    EXPECT_STREQ("0", scene.result().get("sone-of-many-declared-in-a-handler-7").text);
  });
}

TEST_P(HostileHandler, MayAmendTheOptionBeingBound) {
  atEveryEvent([](HostileScene& scene, int event) {
    scene.at(event, [&] {
      for (int i = 0; i < 300; ++i)
        scene.lastDeclared->synonym(("another-name-for-it-" + std::to_string(i)).c_str());
    });
    EXPECT_EQ(HostileScene::undisturbed(), scene.parse());
    IParseResult& result = scene.result();
    // A new name counts from the occurrence after the one that is being bound.
    const char* const expected = event <= 4 ? "a" : event <= 6 ? "b" : nullptr;
    EXPECT_STREQ(expected, result.get("another-name-for-it-299").text);
    EXPECT_EQ(HostileScene::undisturbed(), scene.parseUndisturbed());
  });
}

TEST_P(HostileHandler, MayRestrictTheOptionBeingBoundFromItsNextOccurrenceOn) {
  atEveryEvent([](HostileScene& scene, int event) {
    scene.at(event, [&] { scene.lastDeclared->allowValue("a"); });
    const bool isInTime = event <= 6;  // before the second occurrence begins
    EXPECT_EQ(isInTime ? HostileScene::expected(2, "level=1,2 files=a | b", events - 1)
                       : HostileScene::undisturbed(),
              scene.parse());
    EXPECT_STREQ(isInTime ? "Value validation problem in argument 'b': Option 'files' does not "
                            "allow value 'b'. Possible values follows: 'a'"
                          : "",
                 scene.command.error());
  });
}

TEST_P(HostileHandler, DeclaredActionCountsAtOnce) {
  atEveryEvent([](HostileScene& scene, int event) {
    scene.at(event, [&] { scene.parser().action("run", "", vtNull); });
    const string refused = HostileScene::expected(2, HostileScene::everything, events);
    EXPECT_EQ(refused, scene.parse());
    EXPECT_STREQ("No action defined.", scene.command.error());
    EXPECT_EQ(refused, scene.parseUndisturbed());
  });
}

TEST(DeclaringHandler, NameBeingMatchedMeansTheOldOptionOnceMore) {
  Command command;
  RecordingHandler handler;
  handler.alsoDo = [&] { command.option("lev", vtString); };
  command.parser().addHandler(&handler);
  command.option("level", vtS32);
  EXPECT_EQ("level=1,2@+1 lev=x@+4", command.parsed({"--lev=1,2", "--lev=x"}));
  EXPECT_EQ("option level; value level=1; value level=2; option lev; value lev=x", handler.events);
}

TEST(DeclaringHandler, TakenNameIsStillRejected) {
  Command command;
  RecordingHandler handler;
  handler.alsoDo = [&] {
    command.parser().option("level", "", vtBool, nullptr)->defaultValue(true)->synonym("depth");
  };
  command.parser().addHandler(&handler);
  command.option("level", vtS32);
  EXPECT_EQ("level=1,2@+1", command.parsed({"--level=1,2", "--depth"}));
  EXPECT_EQ("option level; value level=1; value level=2; unknown --depth", handler.events);
}

TEST(DeclaringHandler, OptionBeingBoundStaysAsItWasBeforeItsFirstEvent) {
  Command command;
  RecordingHandler handler;
  IOption* const level = command.option("level", vtString);
  level->allowValue("fast")->allowValue("slow");
  handler.alsoDo = [&] {
    if (handler.events == "option level")
      level->tokenize('\0')->allowValue("fine")->synonym("l")->allowDeprecatedValue("old", "slow");
  };
  command.parser().addHandler(&handler);
  EXPECT_EQ(
      "2: Value validation problem in argument '--level=fast,fi': Option 'level' does not "
      "allow value 'fi'. Possible values follows: 'fast', 'slow'",
      command.parsed({"--level=fast,fi"}));
  EXPECT_EQ("option level; value level=fast", handler.events);
  EXPECT_EQ("level=fine@+1", command.parsed({"-l=fi"}));
}

TEST(DeclaringHandler, PositionalOptionBeingBoundStaysAsItWasBeforeItsFirstEvent) {
  Command command;
  RecordingHandler handler;
  IOption* const files = command.option("files", vtString)->positional();
  handler.alsoDo = [&] { files->tokenize('\0')->synonym("f"); };
  command.parser().addHandler(&handler);
  EXPECT_EQ("files=a,b@+1 files=c,d@+4", command.parsed({"a,b", "c,d"}));
  IParseResult& result = command.result();
  EXPECT_STREQ("c,d", result.get("f").text);
}

TEST(DeclaringHandler, ValueBeingSplitKeepsItsSeparator) {
  Command command;
  RecordingHandler handler;
  IOption* level = command.option("level", vtString);
  handler.alsoDo = [&] {
    if (handler.events == "option level; value level=a;b")
      level->tokenize(';');
  };
  command.parser().addHandler(&handler);
  EXPECT_EQ("level=a;b,c;d@+1 level=e,f@+4", command.parsed({"--level=a;b,c;d", "--level=e;f"}));
  EXPECT_EQ(
      "option level; value level=a;b; value level=c;d; option level; value level=e; "
      "value level=f",
      handler.events);
}

TEST(DeclaringHandler, MayTurnOptionFilesOn) {
  const testing::TemporaryFolder folder;
  const string file = "--option-file=" + folder.write("a", "--level=1");
  Command command;
  RecordingHandler handler;
  handler.alsoDo = [&] { command.parser().addOptionFileOption("", nullptr); };
  command.parser().addHandler(&handler);
  command.option("level", vtS32);
  EXPECT_EQ("level=1@+3", command.parsed({"-x", file}));
}

TEST(DeclaringHandler, DefaultsAreNotAnnounced) {
  Command command;
  RecordingHandler handler;
  handler.alsoDo = [] { throw 7; };
  command.parser().addHandler(&handler);
  command.option("level", vtS32)->defaultValue(2);
  EXPECT_EQ("level(2)@+1", command.parsed({}));
  EXPECT_EQ("", handler.events);
}

TEST_P(HostileHandler, MayRemoveItself) {
  atEveryEvent([](HostileScene& scene, int event) {
    scene.parser().addHandler(&scene.handlers[2]);
    scene.at(event, [&] { scene.parser().removeHandler(&scene.handler); });
    EXPECT_EQ(HostileScene::expected(0, HostileScene::everything, event), scene.parse());
    EXPECT_EQ(events, scene.countTold(scene.handlers[2]));
    EXPECT_EQ(HostileScene::undisturbed(), scene.parseUndisturbed());
  });
}

TEST_P(HostileHandler, MayRemoveTheOthers) {
  atEveryEvent([](HostileScene& scene, int event) {
    scene.parser().addHandler(&scene.handlers[0]);
    scene.parser().addHandler(&scene.handlers[2]);
    scene.at(event, [&] {
      scene.parser().removeHandler(&scene.handlers[0]);
      scene.parser().removeHandler(&scene.handlers[2]);
    });
    EXPECT_EQ(HostileScene::undisturbed(), scene.parse());
    EXPECT_EQ(event, scene.countTold(scene.handlers[0]));
    EXPECT_EQ(event - 1, scene.countTold(scene.handlers[2]));
  });
}

TEST_P(HostileHandler, MayRemoveAndAddAgain) {
  atEveryEvent([](HostileScene& scene, int event) {
    scene.parser().addHandler(&scene.handlers[0]);
    scene.parser().addHandler(&scene.handlers[2]);
    scene.at(event, [&] {
      for (RecordingHandler& handler : scene.handlers)
        scene.parser().removeHandler(&handler);
      for (RecordingHandler& handler : scene.handlers)
        scene.parser().addHandler(&handler);
    });
    EXPECT_EQ(HostileScene::undisturbed(), scene.parse());
    EXPECT_EQ(events, scene.countTold(scene.handlers[0]));
    EXPECT_EQ(events, scene.countTold(scene.handlers[2]));
  });
}

TEST_P(HostileHandler, AddedHandlerIsNotifiedOfTheCurrentEventIfItsAddressIsHigher) {
  atEveryEvent([](HostileScene& scene, int event) {
    scene.at(event, [&] {
      scene.parser().addHandler(&scene.handlers[0]);
      scene.parser().addHandler(&scene.handlers[2]);
    });
    EXPECT_EQ(HostileScene::undisturbed(), scene.parse());
    EXPECT_EQ(events - event, scene.countTold(scene.handlers[0]));
    EXPECT_EQ(events - event + 1, scene.countTold(scene.handlers[2]));
  });
}

TEST_P(HostileHandler, MayAddHundredsOfHandlers) {
  atEveryEvent([](HostileScene& scene, int event) {
    std::vector<RecordingHandler> crowd(300);
    scene.at(event, [&] {
      for (RecordingHandler& one : crowd)
        scene.parser().addHandler(&one);
    });
    EXPECT_EQ(HostileScene::undisturbed(), scene.parse());
    for (RecordingHandler& one : crowd) {
      const bool comesLater = std::less<const RecordingHandler*>()(&scene.handler, &one);
      EXPECT_EQ(events - event + (comesLater ? 1 : 0), scene.countTold(one));
    }
  });
}

// Removes and destroys itself at its first event.
class Mayfly final : public TestHandler {
 public:
  explicit Mayfly(IParser& parser) : m_parser(parser) {}
  bool onOptionParse(const char*) override { return leave(); }
  bool onValueParse(const char*, const Value&) override { return leave(); }
  bool onUknownArgument(const char*) override { return leave(); }

 private:
  bool leave() {
    m_parser.removeHandler(this);
    delete this;
    return true;
  }

  IParser& m_parser;
};

TEST_P(HostileHandler, MayDestroyItself) {
  atEveryEvent([](HostileScene& scene, int event) {
    scene.at(event, [&] {
      for (int i = 0; i < 10; ++i)
        scene.parser().addHandler(new Mayfly(scene.parser()));
    });
    EXPECT_EQ(HostileScene::undisturbed(), scene.parse());
    EXPECT_EQ(HostileScene::undisturbed(), scene.parseUndisturbed());
  });
}

TEST_P(HostileHandler, MayDestroyAnotherThatItHasRemoved) {
  atEveryEvent([](HostileScene& scene, int event) {
    std::vector<std::unique_ptr<RecordingHandler>> others;
    for (int i = 0; i < 20; ++i) {
      others.push_back(std::make_unique<RecordingHandler>());
      scene.parser().addHandler(others.back().get());
    }
    scene.at(event, [&] {
      for (const auto& other : others)
        scene.parser().removeHandler(other.get());
      others.clear();
    });
    EXPECT_EQ(HostileScene::undisturbed(), scene.parse());
    EXPECT_EQ(HostileScene::undisturbed(), scene.parseUndisturbed());
  });
}

TEST_P(HostileHandler, ReadsWhatIsStoredSoFar) {
  atEveryEvent([](HostileScene& scene, int event) {
    string seen = "not asked";
    scene.at(event, [&] { seen = scene.stored(); });
    EXPECT_EQ(HostileScene::undisturbed(), scene.parse());
    EXPECT_EQ(HostileScene::storedAt(event), seen);
    EXPECT_EQ(HostileScene::undisturbed(), scene.parseUndisturbed());
  });
}

TEST_P(HostileHandler, GoesOnReadingAtALaterEvent) {
  HostileScene scene(GetParam());
  string seen;
  scene.handler.alsoDo = [&] {
    IParseResult& result = scene.result();
    const char* argument = "none";
    const int event = scene.countTold(scene.handler);
    if (event == 4)
      seen += result.get("level").text;
    else if (event == 5)
      seen += result.next("level").text;
    else if (event == 7)
      seen += std::to_string(result.next("level").isEmpty) + result.get("files").text;
    if (event >= 7 && result.getNextArgument(&argument) == 0)
      seen += string("|") + argument;
  };
  EXPECT_EQ(0, scene.parse().compare(0, 2, "0:"));
  EXPECT_EQ("121a|b", seen);
}

}  // namespace

}  // namespace kivo_3_3
