// Parsers as handlers of other parsers: in chains, diamonds and rings.

#include <gtest/gtest.h>

#include <algorithm>
#include <stdexcept>

#include "support/command.h"
#include "support/recording_handler.h"

namespace kivo_3_3 {

namespace {

using std::string;
using testing::Command;
using testing::RecordingHandler;

// Four parsers, each with a recording handler.
class ParsersAsHandlers : public ::testing::Test {
 protected:
  ParsersAsHandlers() {
    for (int i = 0; i < 4; ++i) {
      commands[i].option("level", vtS32);
      commands[i].parser().addHandler(&handlers[i]);
    }
  }

  // Registers the parser `listener` as a handler of the parser `teller`.
  void link(int teller, int listener) {
    commands[teller].parser().addHandler(&commands[listener].parser());
  }

  // Parses arguments with every kind of event. Returns what was stored, then how often each handler
  // was notified of all events.
  string parse(int parser) {
    for (RecordingHandler& handler : handlers)
      handler.events.clear();
    string outcome = commands[parser].parsed({"--level=1,2", "-x"}) + ":";
    for (const RecordingHandler& handler : handlers)
      outcome += " " + howOften(handler.events);
    return outcome;
  }

  static string howOften(const string& events) {
    const string once[] = {"option level", "value level=1", "value level=2", "unknown -x"};
    for (int times = 0; times < 5; ++times) {
      string expected;
      for (const string& event : once)
        for (int i = 0; i < times; ++i)
          expected += (expected.empty() ? "" : "; ") + event;
      if (events == expected)
        return std::to_string(times);
    }
    return events;
  }

  Command commands[4];
  RecordingHandler handlers[4];
};

TEST_F(ParsersAsHandlers, PassEventsOnAlongAChain) {
  link(0, 1);
  link(1, 2);
  EXPECT_EQ("level=1,2@+1: 1 1 1 0", parse(0));
  EXPECT_EQ("level=1,2@+1: 0 1 1 0", parse(1));
  EXPECT_EQ("level=1,2@+1: 0 0 1 0", parse(2));
}

TEST_F(ParsersAsHandlers, AreNotifiedOncePerPath) {
  link(0, 1);
  link(0, 2);
  link(1, 3);
  link(2, 3);
  EXPECT_EQ("level=1,2@+1: 1 1 1 2", parse(0));
}

TEST_F(ParsersAsHandlers, OfEachOtherAreNotifiedOnce) {
  link(0, 1);
  link(1, 0);
  EXPECT_EQ("level=1,2@+1: 1 1 0 0", parse(0));
  EXPECT_EQ("level=1,2@+1: 1 1 0 0", parse(1));
}

TEST_F(ParsersAsHandlers, InARingAreNotifiedOnce) {
  for (int i = 0; i < 4; ++i) {
    link(i, i);
    link(i, (i + 1) % 4);
  }
  for (int i = 0; i < 4; ++i)
    EXPECT_EQ("level=1,2@+1: 1 1 1 1", parse(i));
}

TEST_F(ParsersAsHandlers, AllOfOneAnotherAreNotifiedOncePerPathWithoutALoop) {
  for (int i = 0; i < 3; ++i)
    for (int j = 0; j < 3; ++j)
      link(i, j);
  EXPECT_EQ("level=1,2@+1: 1 2 2 0", parse(0));  // directly, and through the third parser
}

TEST_F(ParsersAsHandlers, RingMayBeClosedAndOpenedDuringAnEvent) {
  handlers[1].alsoDo = [this] { link(1, 0); };
  link(0, 1);
  EXPECT_EQ("level=1,2@+1: 1 1 0 0", parse(0));
  handlers[1].alsoDo = [this] { commands[0].parser().removeHandler(&commands[1].parser()); };
  parse(0);
  EXPECT_EQ("option level", handlers[1].events);
  EXPECT_EQ("level=1,2@+1: 1 0 0 0", parse(0));
}

TEST_F(ParsersAsHandlers, InARingRefuseAsOthersDo) {
  link(0, 1);
  link(1, 0);
  Command strict(parserFlags::unknownArgumentIsError);
  strict.option("level", vtS32);
  strict.parser().addHandler(&commands[0].parser());
  handlers[1].refusedValues = {"2"};
  EXPECT_EQ("1: Value '1,2' is not valid for option 'level' in argument '--level=1,2'",
            strict.parsed({"--level=1,2"}));
  EXPECT_EQ("2: Unknown option: -x", strict.parsed({"-x", "-y"}));
  handlers[1].acceptsUnknown = false;
  EXPECT_EQ("", strict.parsed({"-x", "-y"}));
}

TEST_F(ParsersAsHandlers, InARingAreNotifiedOfAllAgainAfterAnException) {
  link(0, 1);
  link(1, 0);
  handlers[1].alsoDo = [] { throw std::runtime_error("from a handler"); };
  EXPECT_EQ("4: Unidentified problem detected.", commands[0].parsed({"--level=1,2"}));
  handlers[1].alsoDo = [] { throw 7; };
  EXPECT_THROW(commands[0].parsed({"--level=1,2"}), int);
  handlers[1].alsoDo = [] {};
  EXPECT_EQ("level=1,2@+1: 1 1 0 0", parse(0));
}

// During the first event that it is notified of, sends one event of each kind through the parser.
class Sender final : public testing::TestHandler {
 public:
  explicit Sender(IParser& parser) : m_parser(parser) {}

  bool onOptionParse(const char* name) override { return note("option ", name); }
  bool onValueParse(const char* name, const Value& value) override {
    return note("value ",
                (string(name) + "=" + (value.text != nullptr ? value.text : "null")).c_str());
  }
  bool onUknownArgument(const char* argument) override { return note("unknown ", argument); }

  string events;

 private:
  bool note(const char* kind, const char* text) {
    events += (events.empty() ? "" : "; ") + string(kind) + text;
    if (m_hasSent)
      return true;
    m_hasSent = true;
    m_parser.onOptionParse("sent");
    m_parser.onValueParse("sent", Value("1", 1, 7));
    m_parser.onUknownArgument("sent");
    return true;
  }

  IParser& m_parser;
  bool m_hasSent = false;
};

TEST_F(ParsersAsHandlers, PassOnWhatTheirHandlersSendThroughThem) {
  Command command;
  command.option("level", vtS32);
  Sender sender(command.parser());
  command.parser().addHandler(&sender);
  EXPECT_EQ("level=1@+1", command.parsed({"--level=1"}));
  EXPECT_EQ("option level; option sent; value sent=1; unknown sent; value level=1", sender.events);
}

TEST_F(ParsersAsHandlers, PassOnWhatIsSentThroughThemRoundARing) {
  link(0, 1);
  link(1, 0);
  Sender sender(commands[1].parser());
  commands[0].parser().addHandler(&sender);
  EXPECT_TRUE(commands[0].parser().onOptionParse("level"));
  EXPECT_EQ("option level; option sent; value sent=1; unknown sent", sender.events);
  EXPECT_EQ(1, std::count(handlers[1].events.begin(), handlers[1].events.end(), '='));
}

// An event of one kind is not taken for another with the same text.
TEST_F(ParsersAsHandlers, TellEventsApartByKindAndText) {
  handlers[0].alsoDo = [this] {
    if (handlers[0].events == "option x")
      commands[0].parser().onUknownArgument("x");
    if (handlers[0].events == "option x; unknown x") {
      commands[0].parser().onOptionParse("x");  // dropped: is being passed on already
      commands[0].parser().onUknownArgument("y");
    }
  };
  EXPECT_TRUE(commands[0].parser().onOptionParse("x"));
  EXPECT_EQ("option x; unknown x; unknown y", handlers[0].events);
}

TEST_F(ParsersAsHandlers, InARingAreNotifiedOnceOfANullText) {
  link(0, 1);
  link(1, 0);
  for (const char* name : {static_cast<const char*>(nullptr), ""}) {
    handlers[0].events.clear();
    EXPECT_TRUE(commands[0].parser().onOptionParse(name));
    EXPECT_EQ("option ", handlers[0].events);
  }
}

// Stores the value that it is notified of.
class ValueKeeper final : public testing::TestHandler {
 public:
  bool onValueParse(const char*, const Value& value) override {
    kept = value;
    return true;
  }

  Value kept;
};

TEST_F(ParsersAsHandlers, PassAValueOnUnchanged) {
  ValueKeeper keeper;
  commands[1].parser().addHandler(&keeper);
  link(0, 1);
  const string text = "a text";
  commands[0].parser().removeHandler(&handlers[0]);
  commands[1].parser().removeHandler(&handlers[1]);
  EXPECT_TRUE(commands[0].parser().onValueParse("level", Value(text.c_str(), 5, 7)));
  EXPECT_EQ(text.c_str(), keeper.kept.text);
  EXPECT_EQ(5, keeper.kept.value.get<int>());
  EXPECT_EQ(7, keeper.kept.position);
  EXPECT_TRUE(commands[0].parser().onValueParse("level", Value()));
  EXPECT_EQ(nullptr, keeper.kept.text);
  EXPECT_EQ(1, keeper.kept.isEmpty);
}

TEST_F(ParsersAsHandlers, InARingMayBeNotifiedOutsideAParse) {
  link(0, 1);
  link(1, 0);
  EXPECT_TRUE(commands[0].parser().onOptionParse("level"));
  handlers[1].acceptsUnknown = false;
  EXPECT_FALSE(commands[0].parser().onUknownArgument("x"));
  EXPECT_EQ("option level; unknown x", handlers[0].events);
  EXPECT_EQ("option level; unknown x", handlers[1].events);
}

TEST_F(ParsersAsHandlers, AreNotifiedOfAParseThatTheirHandlerStarts) {
  link(0, 1);
  link(1, 0);
  link(2, 1);  // parsers 0 and 2 both notify parser 1
  for (const int inner : {0, 1, 2}) {
    SCOPED_TRACE(inner);
    int status = -1;
    handlers[1].alsoDo = [&] {
      if (handlers[1].events == "option level")
        status = commands[inner].parser().parseStream("--level=9\n-y", nullptr);
    };
    EXPECT_EQ(0, parse(0).compare(0, 9, "level=1,2"));
    EXPECT_EQ(0, status);
    const string told = "option level; value level=9; unknown -y; value level=1; value level=2";
    EXPECT_EQ("option level; " + told + "; unknown -x", handlers[1].events);
  }
}

}  // namespace

}  // namespace kivo_3_3
