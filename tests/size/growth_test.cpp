// Twice the input takes at most 2.2 times the allocations. Four times the input takes at most 4.4
// times the memory, in total as well as at one time; four times, because memory blocks grow
// fourfold. All of this is counted, so it does not depend on the speed of the machine.

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

#include "size/allocation_count.h"
#include "support/command.h"
#include "support/recording_handler.h"
#include "support/temporary_folder.h"

namespace kivo_3_3::testing {

namespace {

using std::string;
using Arguments = std::vector<string>;

constexpr double mostForTwice = 2.2;
constexpr double mostForFourTimes = 4.4;

Arguments repeated(const string& text, int count) {
  Arguments arguments;
  for (int i = 0; i < count; ++i)
    arguments.push_back(text + std::to_string(1000000 + i));
  return arguments;
}

string text(const Arguments& lines, char end) {
  string all;
  for (const string& line : lines)
    all += line + end;
  return all;
}

// A parser with the option that most families use.
Command withText() {
  Command command(parserFlags::unknownArgumentIsError);
  command.option("text,t", vtString);
  command.optionFiles();
  return command;
}

template <class Work>
AllocationCount countOf(Work work) {
  startCounting();
  work();
  return countedSoFar();
}

AllocationCount parsing(Command& command, const Arguments& arguments) {
  return countOf([&] {
    EXPECT_EQ(0, command.parse(arguments));
    EXPECT_FALSE(values(command.result(), "text").empty() && leftovers(command.result()).empty());
  });
}

AllocationCount ofNamedArguments(int count) {
  Command command = withText();
  return parsing(command, repeated("--text=a value that fits into no short string ", count));
}

AllocationCount ofLeftovers(int count) {
  Command command = withText();
  Arguments arguments = repeated("--a leftover that fits into no short string ", count);
  arguments.insert(arguments.begin(), "--");
  return parsing(command, arguments);
}

AllocationCount ofStreamLines(int count) {
  Command command = withText();
  const string stream = text(repeated("--text=", count), '\n');
  return countOf([&] { EXPECT_EQ(0, command.parseStream(stream.c_str())); });
}

AllocationCount ofOptionFileLines(int count) {
  Command command = withText();
  const TemporaryFolder folder;
  return parsing(command, {"--option-file=" +
                           folder.write("options", text(repeated("--text=", count), '\n'))});
}

AllocationCount ofTokens(int count) {
  Command command = withText();
  return parsing(command, {"--text=" + text(repeated("token", count), ',')});
}

AllocationCount ofBytesInAValue(int count) {
  Command command = withText();
  return parsing(command, {"--text=" + string(static_cast<std::size_t>(count) * 100, 'x')});
}

AllocationCount ofBytesInAMessage(int count) {
  Command command;
  command.option("number", vtS32);
  const Arguments arguments = {"--number=" + string(static_cast<std::size_t>(count) * 100, 'x')};
  return countOf([&] {
    EXPECT_EQ(2, command.parse(arguments));
    EXPECT_LT(arguments[0].size() * 2, string(command.error()).size());
  });
}

AllocationCount ofOptions(int count) {
  const Arguments names = repeated("option", count / 10);
  return countOf([&] {
    Command command;
    for (const string& name : names)
      command.option(name.c_str(), vtS32)->defaultValue(1);
    EXPECT_EQ(0, command.parse({"--option1000000=2"}));
  });
}

AllocationCount ofHelp(int count) {
  Command command;
  for (const string& name : repeated("option", count / 10))
    command.parser().option(name.c_str(), "A description that is longer than one line of help is.",
                            vtS32, "key:Introduction.");
  return countOf([&] { EXPECT_STRNE("", command.parser().getDescription(false)); });
}

AllocationCount ofOptionFiles(int count) {
  Command command = withText();
  const TemporaryFolder folder;
  const int links = count / 50;
  for (int i = 0; i < links; ++i)
    folder.write(std::to_string(i),
                 "--text=x\n--option-file=" + folder.path(std::to_string(i + 1)));
  folder.write(std::to_string(links), "");
  return parsing(command, {"--option-file=" + folder.path("0")});
}

// The description of a tool with these commands. The tool has no declarations: it depends on the
// memory left over from them whether keeping the text takes more.
AllocationCount describing(const std::vector<CommandInfo>& commands) {
  Command tool;
  return countOf([&] {
    EXPECT_STRNE("", describe(tool.parser(), {"tool", "1.0", "A tool."}, commands.data(),
                              static_cast<unsigned int>(commands.size())));
  });
}

CommandInfo described(Command& command) { return {"command", "A command.", &command.parser()}; }

// Options with everything that an option of a description can have, each in a section of its own.
AllocationCount ofDescription(int count) {
  Command command;
  for (const string& name : repeated("option", count / 10)) {
    command.parser()
        .option(name.c_str(), "A description.", vtString, ("in " + name + ":Introduction").c_str())
        ->allowValue("fast")
        ->allowDeprecatedValue("quick", "fast")
        ->defaultValue("fast");
    annotate(command.parser(), name.c_str(), "placeholder", "SPEED");
    command.parser().allowSimultaneousActions({name});
  }
  return describing({described(command)});
}

AllocationCount ofDescriptionWithCommands(int count) {
  std::vector<Command> parsers(static_cast<std::size_t>(count / 100));
  std::vector<CommandInfo> commands;
  for (Command& command : parsers) {
    command.option("text", vtString);
    commands.push_back(described(command));
  }
  return describing(commands);
}

// Modifiers of which each goes with one action, and no two with the same one.
AllocationCount ofDescriptionOfModifiers(int count) {
  Command command;
  for (const string& name : repeated("action", count)) {
    command.action(name.c_str());
    command.modifier(("of-" + name).c_str(), name.c_str(), vtString);
  }
  return describing({described(command)});
}

// Modifiers that go with every action.
AllocationCount ofDescriptionOfPairs(int modifiers, int actions) {
  Command command;
  string all;
  for (const string& name : repeated("action", actions)) {
    command.action(name.c_str());
    all += name + ",";
  }
  for (const string& name : repeated("modifier", modifiers))
    command.modifier(name.c_str(), all.c_str(), vtString);
  return describing({described(command)});
}

// A tool that declares another default before each of many parses into one result.
AllocationCount ofDefaultsBetweenParses(int count) {
  Command command;
  const string last = "n" + std::to_string(count - 1);
  return countOf([&] {
    for (int i = 0; i < count; ++i) {
      const string name = "n" + std::to_string(i);
      command.parser().option(name.c_str(), "", vtS32, nullptr)->defaultValue(i);
      const char* const argv[] = {"tool"};
      EXPECT_EQ(0, command.parser().parseArgsVector(1, argv, &command.result()));
    }
    EXPECT_EQ(count - 1, valueOr(command.result(), last.c_str(), -1));
  });
}

// A handler may amend the option that was declared last. So the parser copies that option, but must
// not copy it for each argument.
AllocationCount ofAllowedValuesAndArgumentsWithAHandler(int count) {
  Command command = withText();
  IOption* const last = command.option("last", vtString);
  Arguments arguments;
  for (int i = 0; i < count / 20; ++i) {
    last->allowValue(std::to_string(i).c_str());
    arguments.push_back("--last=" + std::to_string(i));
  }
  arguments.emplace_back("--text=x");
  RecordingHandler handler;
  command.parser().addHandler(&handler);
  const AllocationCount cost = parsing(command, arguments);
  command.parser().removeHandler(&handler);
  return cost;
}

AllocationCount ofOneNameTwice(int count) {
  Command command;
  command.option("text,text", vtString);
  return parsing(command, repeated("--text=", count));
}

// One option with many names, one of them twice.
AllocationCount ofNamesOfWhichOneComesTwice(int count) {
  Command command;
  IOption* const option = command.option("text", vtString);
  for (int i = 0; i < count / 20; ++i)
    option->synonym(("n" + std::to_string(i)).c_str());
  option->synonym("text");
  return parsing(command, repeated("--text=", 10));
}

// Options that share a synonym. Each is given twice: all of them once, then all again.
AllocationCount ofASharedSynonym(int count) {
  Command command;
  Arguments arguments;
  for (int i = 0; i < count; ++i) {
    const string name = "n" + std::to_string(i);
    command.parser().option(name.c_str(), "", vtString, nullptr)->synonym("text");
    arguments.push_back("--" + name + "=x");
  }
  const Arguments once = arguments;
  arguments.insert(arguments.end(), once.begin(), once.end());
  return parsing(command, arguments);
}

template <class Count>
void expectAtMost(double most, const char* what, Count before, Count after) {
  EXPECT_LE(static_cast<double>(after), most * static_cast<double>(before)) << what;
}

struct Family {
  const char* name;
  AllocationCount (*cost)(int count);
};

std::ostream& operator<<(std::ostream& out, const Family& family) { return out << family.name; }

class Growth : public ::testing::TestWithParam<Family> {};

TEST_P(Growth, OfAllocationsAndMemoryIsLinear) {
  constexpr int count = 20000;
  GetParam().cost(count);  // creates what is created once per process
  const AllocationCount once = GetParam().cost(count);
  const AllocationCount twice = GetParam().cost(2 * count);
  const AllocationCount fourTimes = GetParam().cost(4 * count);
  expectAtMost(mostForTwice, "allocations", once.allocations, twice.allocations);
  expectAtMost(mostForFourTimes, "bytes taken", once.bytes, fourTimes.bytes);
  expectAtMost(mostForFourTimes, "bytes held", once.peakBytes, fourTimes.peakBytes);
}

// Every parse stores all defaults anew, so the bytes taken in total grow faster than the input. The
// bytes held at one time must not.
TEST(GrowthOfDefaults, DeclaredBetweenParsesIsLinearInMemoryHeld) {
  constexpr int count = 500;
  ofDefaultsBetweenParses(count);
  const auto once = ofDefaultsBetweenParses(count).peakBytes;
  const auto fourTimes = ofDefaultsBetweenParses(4 * count).peakBytes;
  expectAtMost(mostForFourTimes, "bytes held", once, fourTimes);
}

// A modifier names every action that it goes with. So twice the modifiers and twice the actions are
// four times the input.
TEST(GrowthOfDescriptions, IsLinearInThePairsOfModifiersAndActions) {
  constexpr int count = 100;
  ofDescriptionOfPairs(count, count);
  const AllocationCount once = ofDescriptionOfPairs(count, count);
  const AllocationCount fourTimes = ofDescriptionOfPairs(2 * count, 2 * count);
  expectAtMost(mostForFourTimes, "allocations", once.allocations, fourTimes.allocations);
  expectAtMost(mostForFourTimes, "bytes taken", once.bytes, fourTimes.bytes);
  expectAtMost(mostForFourTimes, "bytes held", once.peakBytes, fourTimes.peakBytes);
}

INSTANTIATE_TEST_SUITE_P(
    Input, Growth,
    ::testing::Values(
        Family{"NamedArguments", ofNamedArguments}, Family{"Leftovers", ofLeftovers},
        Family{"StreamLines", ofStreamLines}, Family{"OptionFileLines", ofOptionFileLines},
        Family{"Tokens", ofTokens}, Family{"BytesInAValue", ofBytesInAValue},
        Family{"BytesInAMessage", ofBytesInAMessage}, Family{"Options", ofOptions},
        Family{"Help", ofHelp}, Family{"Description", ofDescription},
        Family{"DescriptionWithCommands", ofDescriptionWithCommands},
        Family{"DescriptionOfModifiers", ofDescriptionOfModifiers},
        Family{"OptionFiles", ofOptionFiles},
        Family{"AllowedValuesAndArgumentsWithAHandler", ofAllowedValuesAndArgumentsWithAHandler},
        Family{"NamesOfWhichOneComesTwice", ofNamesOfWhichOneComesTwice},
        Family{"OneNameTwice", ofOneNameTwice}, Family{"ASharedSynonym", ofASharedSynonym}),
    [](const auto& family) { return string(family.param.name); });

}  // namespace

}  // namespace kivo_3_3::testing
