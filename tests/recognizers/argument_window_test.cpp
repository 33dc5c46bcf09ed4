// The window over the arguments: what it shows and what it leaves. Phase one, which uses a window,
// is compared with a naive driver that erases arguments from the front of a list.

#include "recognizers/argument_window.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "parser/basic_parser.h"
#include "recognizers/abbreviation_parser.h"
#include "recognizers/positional_options_parser.h"
#include "result/parse_result.h"
#include "support/arguments.h"
#include "support/console_capture.h"
#include "support/guarded_page.h"
#include "support/recording_handler.h"
#include "support/stored.h"

namespace kivo_3_3 {

namespace {

using std::string;
using testing::ConsoleCapture;
using testing::givenTo;
using testing::GuardedPage;
using testing::leftOf;
using testing::RecordingHandler;
using testing::WindowOn;
using Arguments = std::vector<string>;

TEST(ArgumentWindow, ShowsWhatIsLeft) {
  WindowOn window({"a", "b", "c"});
  EXPECT_EQ("a", window.front());
  EXPECT_EQ("b", window.second());
  window.drop();
  EXPECT_EQ("b", window.front());
  EXPECT_EQ("c", window.second());
  EXPECT_FALSE(window.empty());
}

TEST(ArgumentWindow, ShowsNoSecondArgumentAtTheEnd) {
  WindowOn window({""});
  EXPECT_FALSE(window.empty());
  EXPECT_EQ("", window.front());
  EXPECT_EQ(nullptr, window.second().data());
  window.drop();
  EXPECT_TRUE(window.empty());
  EXPECT_EQ(nullptr, window.second().data());
  EXPECT_THROW(window.front(), std::out_of_range);
}

// The window also reads pointers early, to prefetch their texts. The memory after the last pointer
// is unreadable: one pointer too many would end the process.
TEST(ArgumentWindow, ReadsNothingAfterTheLastArgument) {
  const GuardedPage page;
  for (std::size_t count = 0; count < 20; ++count) {
    const std::vector<const char*> arguments(count, "a");
    const std::string_view bytes(reinterpret_cast<const char*>(arguments.data()),
                                 count * sizeof(const char*));
    const void* const place = page.last(bytes).data();
    ArgumentWindow window(static_cast<const char* const*>(place), count);
    std::size_t shown = 0;
    for (; !window.empty(); window.drop())
      ++shown;
    EXPECT_EQ(count, shown);
  }
}

TEST(ArgumentWindow, OfNoArgumentsIsEmpty) {
  WindowOn window({});
  EXPECT_TRUE(window.empty());
  EXPECT_THROW(window.front(), std::out_of_range);
  window.drop();
  EXPECT_TRUE(window.empty());
}

TEST(ArgumentWindow, ShowsTheLinesOfATextThatHoldArguments) {
  const WhiteSpace isSpace;
  ArgumentWindow window(ArgumentLines("\n# note\n  -a b\r\n\n;x\n--level\n3", isSpace));
  EXPECT_EQ("-a b", window.front());
  EXPECT_EQ("--level", window.second());
  const ArgumentWindow before = window;
  window.drop();
  window.drop();
  EXPECT_EQ("3", window.front());
  EXPECT_EQ(nullptr, window.second().data());
  window.drop();
  EXPECT_TRUE(window.empty());
  EXPECT_EQ((Arguments{"-a b", "--level", "3"}), leftOf(before));
}

// Walks `steps` steps. The base-3 digits of `script`, from the lowest on, are the numbers of
// arguments that the steps take.
void walk(ArgumentWindow& window, int script, int steps, Arguments& fronts) {
  for (; steps != 0 && !window.empty(); --steps, script /= 3) {
    fronts.emplace_back(window.front());
    for (int taken = script % 3; taken != 0; --taken)
      window.drop();
  }
}

void walkNaively(Arguments& args, int script, int steps, Arguments& fronts) {
  for (; steps != 0 && !args.empty(); --steps, script /= 3) {
    fronts.push_back(args.front());
    for (int taken = script % 3; taken != 0 && !args.empty(); --taken)
      args.erase(args.begin());
  }
}

TEST(ArgumentWindow, WalksLikeErasingFromTheFront) {
  const Arguments all = {"a", "b", "c", "d", "e", "f"};
  for (std::size_t count = 0; count <= all.size(); ++count) {
    for (int script = 0; script < 3 * 3 * 3 * 3; ++script) {
      for (int steps = 0; steps <= 4; ++steps) {
        const auto end = all.begin() + static_cast<std::ptrdiff_t>(count);
        const Arguments args(all.begin(), end);
        WindowOn window(args);
        Arguments expected = args;
        Arguments fronts, expectedFronts;
        walk(window, script, steps, fronts);
        walkNaively(expected, script, steps, expectedFronts);
        ASSERT_EQ(expected, leftOf(window)) << count << " arguments, script " << script;
        ASSERT_EQ(expectedFronts, fronts) << count << " arguments, script " << script;
      }
    }
  }
}

constexpr const char* traceSwitch = "kivooption=kivologenable=1";

// Runs phase one on a few declared options, and renders everything that phase one shows.
class Declared {
 public:
  Declared(int flags, bool withPositional) : m_flags(flags), m_parser(flags) {
    declare(withPositional, [this](const char* names, variant_type_t type) {
      return m_parser.option(names, "", type, nullptr);
    });
    declare(withPositional, [this](const char* names, variant_type_t type) {
      return m_storage.option(names, nullptr, "", false, type, nullptr);
    });
  }

  string parse(Arguments args) {
    RecordingHandler handler;
    m_parser.addHandler(&handler);
    const string outcome = observe(args, handler, [&](ParseResult& result, string& error) {
      WindowOn window(args);
      const int status = m_parser.parse_phase_one("--", window, &result, error);
      args = leftOf(window);
      return status;
    });
    m_parser.removeHandler(&handler);
    return outcome;
  }

  string parseNaively(Arguments args) {
    RecordingHandler handler;
    return observe(args, handler, [&](ParseResult& result, string& error) {
      return naivePhaseOne(args, handler, result, error);
    });
  }

 private:
  template <class Option>
  static void declare(bool withPositional, Option option) {
    option("verbose,v", vtBool);
    option("level,l", vtS32);
    option("unit", vtString)->allowValue("metre")->allowValue("mile");
    option("under", vtNull);
    if (withPositional)
      option("files", vtString)->positional();
  }

  // The status, message, arguments left, events, trace, result and number of positions drawn of one
  // phase one.
  template <class PhaseOne>
  string observe(const Arguments& args, const RecordingHandler& handler, PhaseOne phaseOne) {
    const ConsoleCapture console;
    ParseResult result;
    string error;
    const int before = IArgumentParser::m_idx;
    const int status = phaseOne(result, error);
    string seen = std::to_string(status) + ": " + error + " left";
    for (const string& argument : args)
      seen += " '" + argument + "'";
    seen += "\nevents " + handler.events + "\n" + console.out();
    for (const std::string_view name : result.options().names()) {
      const GivenOption& data = givenTo(result, name);
      seen += name;
      for (const int position : data.positions)
        seen += " @" + std::to_string(position - before);
      for (const GivenValue& value : data.values)
        seen += string(" ") + value.text + "@" + std::to_string(value.position - before);
      seen += "\n";
    }
    return seen + "drawn " + std::to_string(IArgumentParser::m_idx - before);
  }

  int naivePhaseOne(Arguments& args, EventHandler& handler, ParseResult& result, string& error) {
    internal::kivoLogEnabled = !args.empty() && args[0] == traceSwitch;
    if (internal::kivoLogEnabled)
      args.erase(args.begin());
    PositionalOptionsParser positional(&handler, &m_garbage.memory(), m_flags, m_storage.summary());
    AbbreviationParser named(&handler, &m_garbage.memory(), m_flags, m_storage.names());
    OptionList& options = m_storage.options();
    while (!args.empty() && args[0] != "--") {
      string ignored;
      WindowOn window(args);
      const bool isPositional = positional.recognize(window, options, ignored) == 0;
      const bool isNamed = named.recognize(window, options, ignored) == 0;
      unsigned int index = 0;
      if (isNamed || isPositional) {
        IArgumentParser& chosen = isNamed ? static_cast<IArgumentParser&>(named) : positional;
        const int status = chosen.parse(window, &result, options, index, error);
        args = leftOf(window);
        if (status != 0)
          return status;
        continue;
      }
      if (handler.onUknownArgument(args[0].c_str()) && (m_flags & 2) != 0) {
        error = "Unknown option: " + args[0];
        return 2;
      }
      internal::traceLine("ignoring ", args[0]);
      args.erase(args.begin());
    }
    return 0;
  }

  int m_flags;
  Garbage m_garbage;
  RegisteredOptionStorage m_storage{&m_garbage};
  BasicParser m_parser;
};

// All lists of up to three of 14 arguments.
std::vector<Arguments> allLists() {
  const Arguments alphabet = {
      "--",     "-v",   "--level", "--level=3",      "3",        "-5",       "x", "",
      "--no-v", "--un", "--unit",  "--unit=me,mile", "--under=", traceSwitch};
  std::vector<Arguments> lists = {{}};
  std::size_t begin = 0;
  for (int length = 1; length <= 3; ++length) {
    const std::size_t end = lists.size();
    for (; begin != end; ++begin) {
      for (const string& argument : alphabet) {
        Arguments longer = lists[begin];
        longer.push_back(argument);
        lists.push_back(std::move(longer));
      }
    }
  }
  return lists;
}

class EveryShortList : public ::testing::TestWithParam<int> {};

TEST_P(EveryShortList, MatchesTheNaiveDriver) {
  const std::vector<Arguments> lists = allLists();
  ASSERT_EQ(1u + 14 + 14 * 14 + 14 * 14 * 14, lists.size());
  for (const bool withPositional : {false, true}) {
    Declared declared(GetParam(), withPositional);
    for (const Arguments& args : lists)
      ASSERT_EQ(declared.parseNaively(args), declared.parse(args))
          << ::testing::PrintToString(args) << (withPositional ? " with a positional option" : "");
  }
  internal::kivoLogEnabled = false;
}

INSTANTIATE_TEST_SUITE_P(Flags, EveryShortList, ::testing::Values(0, 2, 8, 2 | 8));

}  // namespace

}  // namespace kivo_3_3
