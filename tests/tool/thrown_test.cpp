#include <new>
#include <stdexcept>
#include <string>
#include <vector>

#include "tried.h"

// What happens when a function that the tool hands to the layer throws.

namespace shop {

struct Parcel {
  int kind = 0;
};
// 1: an exception with a text; 2: another one; 3: lack of memory.
inline void fall(int kind) {
  if (kind == 1)
    throw std::runtime_error("fallen");
  if (kind == 2)
    throw kind;
  if (kind == 3)
    throw std::bad_alloc();
}
const char* parseValue(const char* text, Parcel& parcel) {
  parcel.kind = *text - '0';
  fall(parcel.kind);
  return nullptr;
}
std::string formatValue(const Parcel& parcel) {
  fall(parcel.kind);
  return "a parcel";
}

}  // namespace shop

namespace kivo_3_3 {
namespace {

using shop::fall;
using shop::Parcel;

std::string refused(const std::string& reason) {
  return "tool: " + reason + "\nTry 'tool --help'.\n";
}

// The status, and what was printed, of a tool for which `declare` declares.
template <class Declare>
std::string outcome(std::initializer_list<const char*> arguments, Declare declare) {
  Tried tool;
  declare(tool);
  const int status = tool.run(arguments);
  return std::to_string(status) + ' ' + tool.out + tool.err;
}

const std::string outcomes[] = {"", "4 " + refused("fallen"),
                                "4 " + refused("The command line cannot be read"),
                                "3 tool: Memory has run out.\n"};

TEST(ToolThrown, ByAParserEndsWithFour) {
  for (const int kind : {1, 2, 3}) {
    int number = 5;
    EXPECT_EQ(outcomes[kind], outcome({"--number=1"}, [&](Tried& tool) {
                tool.option("number", number, "", [kind](const char*, int&) {
                  fall(kind);
                  return "";
                });
              }));
    EXPECT_EQ(5, number);
  }
}

TEST(ToolThrown, ByTheFunctionOfATypeEndsWithFour) {
  for (const int kind : {1, 2, 3}) {
    const std::string text = std::to_string(kind);
    Parcel parcel;
    std::vector<Parcel> parcels;
    const auto declare = [&](Tried& tool) {
      tool.option("parcel", parcel, "");
      tool.rest("parcels", parcels, "");
    };
    EXPECT_EQ(outcomes[kind], outcome({"0", text.c_str()}, declare));
    EXPECT_EQ(outcomes[kind], outcome({("--parcel=" + text).c_str()}, declare));
    EXPECT_EQ(0, parcel.kind);
    EXPECT_TRUE(parcels.empty());
  }
}

TEST(ToolThrown, WhileTheEnvironmentIsReadNamesTheVariable) {
  const std::string start = "Environment variable TRIED_PARCEL: ";
  const std::string expected[] = {"", "4 " + refused(start + "fallen"),
                                  "4 " + refused(start + "The value cannot be read"), outcomes[3]};
  for (const int kind : {1, 2, 3}) {
    Parcel parcel;
    bool truth = false;
    setenv("TRIED_PARCEL", std::to_string(kind).c_str(), 1);
    EXPECT_EQ(expected[kind], outcome({}, [&](Tried& tool) {
                tool.option("parcel", parcel, "").env("TRIED_PARCEL");
              }));
    setenv("TRIED_PARCEL", "1", 1);
    EXPECT_EQ(expected[kind], outcome({}, [&](Tried& tool) {
                tool.option("truth", truth, "").env("TRIED_PARCEL").check([kind](bool) {
                  fall(kind);
                  return "";
                });
              }));
    unsetenv("TRIED_PARCEL");
  }
}

TEST(ToolThrown, ByTheTextOfADefaultEndsHelpAndDescriptionWithFour) {
  for (const char* word : {"--help", "kivooption=kivodescribe=json"}) {
    for (const int kind : {1, 2, 3}) {
      SCOPED_TRACE(kind);
      Parcel parcel{kind};
      const auto declare = [&](Tool& tool) { tool.option("parcel", parcel, ""); };
      EXPECT_EQ(outcomes[kind], outcome({word}, declare));
    }
  }
}

TEST(ToolThrown, ByTheTextOfADefaultOfACommandEndsItsDescriptionWithFour) {
  Parcel parcel{1};
  Tried tool;
  tool.command("send", "", [&](Tool& inner) {
    inner.option("parcel", parcel, "");
    return inner.parse().value_or(0);
  });
  EXPECT_EQ(4, tool.run({"kivooption=kivodescribe=json"}));
  EXPECT_EQ(refused("fallen"), tool.out + tool.err);
}

TEST(ToolThrown, ByTheTextOfADefaultDoesNotMatterToOtherCommandLines) {
  Parcel parcel{1};
  EXPECT_EQ("-1 ", outcome({}, [&](Tried& tool) { tool.option("parcel", parcel, ""); }));
}

TEST(ToolThrown, ByTheTextOfADefaultAmongChoicesEndsWithFour) {
  Parcel parcel{1};
  EXPECT_EQ(outcomes[1], outcome({}, [&](Tried& tool) {
              tool.option("parcel", parcel, "").choices({"0", "4"});
            }));
}

TEST(ToolThrown, ByTheTextOfADefaultPassesThroughTheHelpAsText) {
  Parcel parcel{1};
  Tried tool;
  tool.option("parcel", parcel, "");
  EXPECT_THROW(tool.help(), std::runtime_error);
  parcel.kind = 2;
  EXPECT_THROW(tool.help(), int);
  parcel.kind = 0;
  EXPECT_NE(std::string::npos, tool.help().find("Default: a parcel."));
  EXPECT_EQ(-1, tool.run({}));
  EXPECT_EQ("", tool.err);
}

// The status, or -1, if the function for the output throws.
int unwritten(std::initializer_list<const char*> arguments) {
  int number = 1;
  Tool tool("tool", "Tries a tool.", "1.0");
  tool.option("number", number, "").deprecated("count yourself");
  tool.each(
      "memory", [](const char*) { throw std::bad_alloc(); }, "");
  tool.output([](const char*, bool) { throw std::runtime_error("a broken pipe"); });
  return tool.parse(arguments).value_or(-1);
}

TEST(ToolThrown, ByTheOutputMeansThatHelpCannotBeWritten) {
  EXPECT_EQ(1, unwritten({"--help"}));
  EXPECT_EQ(1, unwritten({"--version"}));
  EXPECT_EQ(1, unwritten({"kivooption=kivodescribe=json"}));
}

TEST(ToolThrown, ByTheOutputChangesNoOtherStatus) {
  EXPECT_EQ(2, unwritten({"--wrong"}));
  EXPECT_EQ(3, unwritten({"--memory=x"}));
  EXPECT_EQ(-1, unwritten({"--number=3"}));
}

TEST(ToolThrown, ByTheOutputIsNoReasonToFailInAnotherWay) {
  Tool tool("tool", "Tries a tool.");
  tool.usageStatus(64);
  tool.output([](const char*, bool) { throw 1; });
  EXPECT_EQ(64, tool.fail("This is wrong"));
  Tool full("tool", "Tries a tool.");
  full.output([](const char*, bool) { throw std::bad_alloc(); });
  EXPECT_EQ(3, full.fail("This is wrong"));
}

}  // namespace
}  // namespace kivo_3_3
