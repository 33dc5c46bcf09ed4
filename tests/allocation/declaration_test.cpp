// Memory runs out while a parser, a result or a declaration is made: it is complete, or not there.

#include <gtest/gtest.h>

#include <functional>
#include <set>
#include <string>
#include <vector>

#include "allocation/failing_memory.h"
#include "base/quoted.h"
#include "options/make_option.h"
#include "support/command.h"
#include "support/recording_handler.h"

namespace kivo_3_3 {

namespace {

using testing::AllocationLimit;
using testing::Command;
using testing::failEachAllocation;
using testing::Failing;
using testing::makeOption;
using testing::RecordingHandler;

constexpr const char* longText = "a text that is too long to be kept without memory of its own";

struct Creation {
  ~Creation() {
    if (result != nullptr)
      result->destroy();
    if (parser != nullptr)
      parser->destroy();
  }

  IParser* parser = nullptr;
  IParseResult* result = nullptr;
  int outcome = -1;
};

TEST(MemoryRunsOut, CreateParserReturns3AndStoresNothing) {
  failEachAllocation<Creation>(
      [](Creation& scene) {
        scene.outcome = createParser(&scene.parser, parserFlags::noTokenizer);
      },
      [](Creation& scene) { EXPECT_EQ(scene.parser != nullptr ? 0 : 3, scene.outcome); });
}

TEST(MemoryRunsOut, CreateResultReturns3AndStoresNothing) {
  struct Made : Creation {
    Made() { createParser(&parser, 0); }
  };
  failEachAllocation<Made>(
      [](Made& scene) { scene.outcome = scene.parser->createResult(&scene.result); },
      [](Made& scene) { EXPECT_EQ(scene.result != nullptr ? 0 : 3, scene.outcome); });
}

TEST(MemoryRunsOut, DestroyAllocatesNothing) {
  IParser* parser = nullptr;
  IParseResult* result = nullptr;
  createParser(&parser, 0);
  parser->createResult(&result);
  parser->option("level", longText, vtString)->defaultValue(longText);
  const char* const argv[] = {"tool", "--level=a", "--", "b"};
  parser->parseArgsVector(4, argv, result);
  const AllocationLimit limit(0, Failing::forEver);
  result->destroy();
  parser->destroy();
  EXPECT_FALSE(limit.reached());
}

// A parser with some declarations, and the builder of one more.
struct Declaring {
  Declaring() {
    command.action("run", vtNull);
    command.option("first,f", vtS32)->defaultValue(7);
    command.option("quiet", vtBool);
  }

  Command command;
  IOption* builder = nullptr;
};

const struct {
  const char* name;  // of the declared option
  bool isAction;
  IOption* (*declare)(IParser& parser);
} declarations[] = {
    {"level", false,
     [](IParser& parser) { return parser.option("level,second-name,l", longText, vtS32); }},
    {"level", false,
     [](IParser& parser) { return parser.option("level", longText, vtString, "a group: of it"); }},
    {"walk", true, [](IParser& parser) { return parser.action("walk,w", longText, vtString); }},
    {"level", false,
     [](IParser& parser) {
       return parser.modifier("level,l", "run,another-action", longText, vtDouble, longText);
     }},
};

// The help of an option, and the lists of modifiers, which show the actions that it goes with.
std::string helpFor(IParser& parser, const char* name) {
  return std::string(parser.getDescription(name, false)) + "|" +
         parser.getGlobalModifiersDescription(false) + "|" +
         parser.getActionModifiersDescription("run", false) + "|" +
         parser.getActionModifiersDescription("walk", false);
}

TEST(MemoryRunsOut, DeclarationIsCompleteOrNotThere) {
  for (const auto& d : declarations) {
    SCOPED_TRACE(d.name);
    Declaring example;
    const std::string helpWithout = helpFor(example.command.parser(), d.name);
    d.declare(example.command.parser());
    const std::string helpWith = helpFor(example.command.parser(), d.name);
    ASSERT_NE(helpWithout, helpWith);

    failEachAllocation<Declaring>(
        [&](Declaring& scene) { scene.builder = d.declare(scene.command.parser()); },
        [&](Declaring& scene) {
          IParser& parser = scene.command.parser();
          ASSERT_NE(nullptr, scene.builder);
          const bool isThere = parser.isOptionDeclared(d.name, d.isAction, nullptr);
          EXPECT_EQ(isThere ? helpWith : helpWithout, helpFor(parser, d.name));
          if (!isThere) {
            scene.builder->synonym("other")->positional();  // this builder has no effect
            EXPECT_EQ(helpWithout, helpFor(parser, d.name));
            d.declare(parser);
            EXPECT_EQ(helpWith, helpFor(parser, d.name));
          }
          EXPECT_EQ("first=8@+4 quiet=1@+6",
                    scene.command.parsed({"--run", "--first=8", "--qui"}).substr(19));
        });
  }
}

// Declares the names "a0", "a1"... up to a number at which the index of the names has to grow.
template <int count>
struct ManyNames {
  ManyNames() {
    for (int number = 0; number < count; ++number)
      last = command.option(("a" + std::to_string(number)).c_str(), vtNull);
  }

  Command command;
  IOption* last = nullptr;
};

template <int count>
void growTheIndex() {
  SCOPED_TRACE(count);
  failEachAllocation<ManyNames<count>>(
      [](ManyNames<count>& scene) {
        scene.command.parser().option("new", "", vtNull);
        scene.last->synonym("more");
      },
      [](ManyNames<count>& scene) {
        IParser& parser = scene.command.parser();
        for (const char* name : {"new", "more"}) {
          const bool isThere = parser.isOptionDeclared(name, false, nullptr);
          EXPECT_EQ(isThere, resolveName(parser, name) != nullptr) << name;
        }
      });
}

TEST(MemoryRunsOut, NamesAreDeclaredOrNotThereWhileTheirIndexGrows) {
  growTheIndex<15>();
  growTheIndex<16>();
  growTheIndex<31>();
  growTheIndex<32>();
}

TEST(MemoryRunsOut, RejectedDeclarationIsStillRejected) {
  failEachAllocation<Declaring>(
      [](Declaring& scene) {
        scene.builder = scene.command.parser().option("no-such-name,first", longText, vtS32);
      },
      [](Declaring& scene) {
        scene.builder->defaultValue(1);
        EXPECT_FALSE(scene.command.parser().isOptionDeclared("no-such-name", false, nullptr));
        EXPECT_EQ("first(7)@+1 run@+3", scene.command.parsed({"--run"}));
      });
}

// An option, and as a text everything that a builder can change of it.
struct Amending {
  Amending() { option.m_tokenizer = '\0'; }

  std::string render() const {
    std::string text;
    for (const std::string_view name : option.m_names)
      text += joined(name, " ");
    for (const std::string_view tag : option.tags())
      text += joined("tag ", tag, " ");
    for (const variant_t& value : option.m_allowedValues)
      text += std::string("allowed ") + value.get<const char*>() + " ";
    for (const auto& [from, to] : option.m_deprecatedValues)
      text += std::string(from.get<const char*>()) + " for " + to.get<const char*>() + " ";
    if (option.m_positional)
      text += "positional ";
    if (option.m_hasDefault)
      text += "default " + option.getDefaultValueAsText() + " ";
    return text + (option.m_tokenizer != '\0' ? std::string(1, option.m_tokenizer) : "whole");
  }

  Garbage garbage;
  OptionDescription option = makeOption({"level"}, vtString, &garbage);
  IOption* returned = nullptr;
};

TEST(MemoryRunsOut, AmendmentIsMadeAsAWholeOrNotAtAll) {
  const variant_t value(longText);
  const struct {
    const char* amended;  // render() after the change; "level whole" before
    std::function<IOption*(IOption&)> amend;
  } cases[] = {
      {"level a text that is too long to be kept without memory of its own whole",
       [](IOption& option) { return option.synonym(longText); }},
      {"level allowed a text that is too long to be kept without memory of its own ,",
       [&](IOption& option) { return option.allowValue(value); }},
      {"level a text that is too long to be kept without memory of its own for"
       " a text that is too long to be kept without memory of its own whole",
       [&](IOption& option) { return option.allowDeprecatedValue(value, value); }},
      {"level default a text that is too long to be kept without memory of its own whole",
       [&](IOption& option) { return option.defaultValue(value); }},
      {"level ;", [](IOption& option) { return option.tokenize(';'); }},
      {"level positional whole", [](IOption& option) { return option.positional(); }},
      {"level tag one-of-two-long-names tag two-of-two-long-names whole",
       [](IOption& option) { return option.tag("one-of-two-long-names,two-of-two-long-names"); }},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.amended);
    Amending amended;
    c.amend(amended.option);
    ASSERT_EQ(c.amended, amended.render());
    failEachAllocation<Amending>([&](Amending& scene) { scene.returned = c.amend(scene.option); },
                                 [&](Amending& scene) {
                                   EXPECT_EQ(&scene.option, scene.returned);
                                   const std::string after = scene.render();
                                   EXPECT_TRUE(after == "level whole" || after == c.amended)
                                       << after;
                                 });
  }
}

TEST(MemoryRunsOut, VariantOfATextRaisesBadAlloc) {
  const AllocationLimit limit(0, Failing::once);
  EXPECT_THROW(variant_t{longText}, std::bad_alloc);
}

struct Handling {
  Command command;
  RecordingHandler handler;
  bool added = true;
};

TEST(MemoryRunsOut, HandlerIsRegisteredOrIgnored) {
  std::string told;
  failEachAllocation<Handling>(
      [](Handling& scene) { scene.command.parser().addHandler(&scene.handler); },
      [&](Handling& scene) {
        scene.command.parse({"x"});
        told = scene.handler.events;
        EXPECT_TRUE(told.empty() || told == "unknown x") << told;
        scene.command.parser().removeHandler(&scene.handler);
      });
  EXPECT_EQ("unknown x", told);  // the last round has enough memory
}

TEST(MemoryRunsOut, SimultaneousActionsAreAllowedOrTheAnswerIsFalse) {
  const std::set<std::string> together = {"run", "walk"};
  struct TwoActions : Handling {
    TwoActions() {
      command.action("run");
      command.action("walk");
    }
  };
  failEachAllocation<TwoActions>(
      [&](TwoActions& scene) {
        scene.added = scene.command.parser().allowSimultaneousActions(together);
      },
      [](TwoActions& scene) {
        const std::vector<std::string> both = {"--run", "--walk"};
        EXPECT_EQ(scene.added ? "run@+1 walk@+2"
                              : "2: Action '-walk' and action '-run' were defined, but only one"
                                " action possible.",
                  scene.command.parsed(both));
      });
}

TEST(MemoryRunsOut, OptionFilesAreDeclaredOrNotThere) {
  failEachAllocation<Handling>(
      [](Handling& scene) {
        scene.added = scene.command.parser().addOptionFileOption(longText, longText);
      },
      [](Handling& scene) {
        IParser& parser = scene.command.parser();
        EXPECT_TRUE(scene.added);
        parser.addOptionFileOption(longText, longText);  // rejected if it is declared
        EXPECT_EQ("6: Error reading option file 'none'",
                  scene.command.parsed({"--option-file=none"}));
      });
}

TEST(MemoryRunsOut, IsOptionDeclaredAllocatesNothing) {
  Command command;
  command.option("level", vtS32, longText);
  const AllocationLimit limit(0, Failing::forEver);
  EXPECT_TRUE(command.parser().isOptionDeclared("level", false, longText));
  EXPECT_FALSE(limit.reached());
}

}  // namespace

}  // namespace kivo_3_3
