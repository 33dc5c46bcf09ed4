// Does one kind of work whose input has a given size: growth.py counts the instructions.
//   growth WORK SIZE

#include <kivo/kivo.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <deque>
#include <set>
#include <string>
#include <vector>

#include "support/recording_handler.h"

namespace {

using namespace kivo_3_3;
using std::string;

string named(const char* beginning, int number) {
  return beginning + std::to_string(1000000 + number);
}

// The names of `count` things, separated by commas.
string list(const char* beginning, int count) {
  string all;
  for (int i = 0; i < count; ++i)
    all += (i == 0 ? "" : ",") + named(beginning, i);
  return all;
}

void expect(bool isRight) {
  if (!isRight)
    std::abort();
}

// A command line of a tool.
class CommandLine {
 public:
  void add(string argument) { m_arguments.push_back(std::move(argument)); }

  int parse(IParser& parser, IParseResult& result) {
    std::vector<const char*> arguments = {"tool"};
    for (const string& argument : m_arguments)
      arguments.push_back(argument.c_str());
    return parser.parseArgsVector(static_cast<int>(arguments.size()), arguments.data(), &result);
  }
  // Into a new result, and without an error.
  void parse(IParser& parser) {
    const ResultHandle result = makeResult(parser);
    expect(parse(parser, *result) == 0);
  }

 private:
  std::deque<string> m_arguments;
};

void tagsTimesModifiers(int size) {
  const ParserHandle parser = makeParser();
  parser->action("act", "", vtNull)->tag(list("t", size).c_str());
  CommandLine line;
  line.add("-act");
  for (int i = 0; i < size; ++i) {
    parser->modifier(named("m", i).c_str(), named("t", i).c_str(), "Help.", vtNull);
    line.add("-" + named("m", i));
  }
  line.parse(*parser);
  expect(std::strlen(parser->getActionModifiersDescription("act", false)) >
         static_cast<std::size_t>(size));
}

// An option that allows the values that `allowed` returns for each number, and is given those of
// `typed`.
template <class Allowed, class Typed>
void giveAllowed(int size, variant_type_t type, Allowed allowed, Typed typed) {
  const ParserHandle parser = makeParser();
  IOption* const option = parser->option("o", "Help.", type);
  CommandLine line;
  for (int i = 0; i < size; ++i) {
    option->allowValue(allowed(i));
    line.add("-o=" + typed(i));
  }
  line.parse(*parser);
}

string valueOf(int number) { return named("v", number); }

void allowedTexts(int size) {
  giveAllowed(
      size, vtString, [](int i) { return variant_t(valueOf(i).c_str()); }, valueOf);
}

void abbreviatedTexts(int size) {
  const auto longer = [](int i) { return variant_t((valueOf(i) + "long").c_str()); };
  giveAllowed(size, vtString, longer, valueOf);
}

void allowedNumbers(int size) {
  giveAllowed(
      size, vtS32, [](int i) { return variant_t(i); }, [](int i) { return std::to_string(i); });
}

void actionsInOneGroup(int size) {
  const ParserHandle parser = makeParser();
  CommandLine line;
  std::set<string> group;
  for (int i = 0; i < size; ++i) {
    parser->action(named("a", i).c_str(), "Help.", vtNull);
    group.insert(named("a", i));
    line.add("-" + named("a", i));
  }
  parser->allowSimultaneousActions(group);
  line.parse(*parser);
}

void actionsInManyGroups(int size) {
  const ParserHandle parser = makeParser();
  CommandLine line;
  std::set<string> group;
  for (int i = 0; i < size; ++i) {
    parser->action(named("a", i).c_str(), "Help.", vtNull);
    group.insert(named("a", i));
    line.add("-" + named("a", i));
    if (i > 0)
      parser->allowSimultaneousActions({named("a", 0), named("a", i)});
  }
  parser->allowSimultaneousActions(group);
  line.parse(*parser);
}

void tagCalls(int size) {
  const ParserHandle parser = makeParser();
  parser->action("act", "", vtNull);
  IOption* const option = parser->modifier("m", "act", "Help.", vtNull);
  for (int i = 0; i < size; ++i)
    option->tag(named("t", i * 7919 % size).c_str());
  CommandLine line;
  line.add("-act");
  line.add("-m");
  line.parse(*parser);
}

// Declares an option at each event.
class Declaring final : public testing::TestHandler {
 public:
  explicit Declaring(IParser& parser) : m_parser(parser) {}
  bool onOptionParse(const char*) override {
    m_parser.option(named("late", m_count++).c_str(), "", vtNull);
    return true;
  }

 private:
  IParser& m_parser;
  int m_count = 0;
};

void declaringHandler(int size) {
  const ParserHandle parser = makeParser();
  CommandLine line;
  parser->option("verbose", "Help.", vtNull);
  for (int i = 0; i < size; ++i)
    line.add("-verb");
  Declaring handler(*parser);
  parser->addHandler(&handler);
  line.parse(*parser);
}

void sharedSynonym(int size) {
  const ParserHandle parser = makeParser();
  CommandLine line;
  for (int i = 0; i < size; ++i) {
    IOption* const option = parser->option(named("o", i).c_str(), "Help.", vtS32);
    option->synonym("same")->defaultValue(variant_t(i));
  }
  line.add("-o1000000=3");
  line.parse(*parser);
}

void parsersIntoOneResult(int size) {
  std::deque<ParserHandle> parsers;
  ResultHandle result;
  for (int i = 0; i < size; ++i) {
    parsers.push_back(makeParser());
    if (result == nullptr)
      result = makeResult(*parsers.back());
    parsers.back()->option(named("o", i).c_str(), "Help.", vtS32)->defaultValue(variant_t(i));
    CommandLine line;
    line.add("left");
    expect(line.parse(*parsers.back(), *result) <= 1);
  }
}

void isDeclared(int size) {
  const ParserHandle parser = makeParser();
  for (int i = 0; i < size; ++i)
    parser->option(named("o", i).c_str(), "Help.", vtS32);
  for (int i = 0; i < size; ++i)
    expect(parser->isOptionDeclared(named("o", i).c_str(), false, nullptr));
}

void helpOfGroups(int size) {
  const ParserHandle parser = makeParser();
  for (int i = 0; i < size; ++i)
    parser->option(named("o", i).c_str(), "Help.", vtNull, named("group", i).c_str());
  expect(std::strlen(parser->getDescription(false)) > static_cast<std::size_t>(size));
}

struct Work {
  const char* name;
  void (*run)(int size);
};

constexpr Work works[] = {
    {"tags of one action, a modifier each", tagsTimesModifiers},
    {"allowed texts, each given", allowedTexts},
    {"allowed texts, each given cut short", abbreviatedTexts},
    {"allowed numbers, each given", allowedNumbers},
    {"actions of one group, all given", actionsInOneGroup},
    {"actions of many groups, all given", actionsInManyGroups},
    {"tags added one by one", tagCalls},
    {"a handler that declares at each event", declaringHandler},
    {"options sharing a synonym, with defaults", sharedSynonym},
    {"parsers into one result, with defaults", parsersIntoOneResult},
    {"options, each asked for", isDeclared},
    {"help of many groups", helpOfGroups},
};

}  // namespace

int main(int argc, char** argv) {
  for (const Work& work : works) {
    if (argc == 3 && std::strcmp(argv[1], work.name) == 0) {
      work.run(std::atoi(argv[2]));
      return 0;
    }
  }
  for (const Work& work : works)
    std::puts(work.name);
  return argc == 1 ? 0 : 2;
}
