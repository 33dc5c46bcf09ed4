// Queries for which memory runs out: a text that cannot be kept reads as the empty one,
// and everything else is answered in full.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "allocation/failing_memory.h"
#include "support/command.h"

namespace kivo_3_3 {

namespace {

using testing::AllocationLimit;
using testing::Command;
using testing::failEachAllocation;
using testing::Failing;

constexpr const char* longText = "a text too long to be kept without memory";

// A result to ask, and what it answered.
struct Asking {
  Asking() {
    command.option("level,l", vtS32);
    command.option("list", vtString)->tokenize(';');
    command.option("tone", vtString)->defaultValue(longText);
    command.parse({"--level=17", "-l", "18", "--list=x", "--", longText, "b"});
  }

  IParseResult& result() { return command.result(); }

  // What is asked for again, now that there is memory, is all there.
  void expectUsable() {
    EXPECT_STREQ(longText, result().get("tone").text);
    EXPECT_STREQ("17", result().get("level").text);
    EXPECT_STREQ("18", result().next("level").text);
    EXPECT_EQ((std::vector<std::string>{longText, "b"}), leftoverTexts());
  }

  std::vector<std::string> leftoverTexts() {
    const std::vector<const char*> texts = leftovers(result());
    return {texts.begin(), texts.end()};
  }

  Command command;
  Value value;
  const char* text = nullptr;
  int outcome = -1;
};

void expectText(const char* text, const Value& value) {
  EXPECT_EQ(0, value.isEmpty);
  EXPECT_TRUE(std::string(text) == value.text || *value.text == '\0') << value.text;
}

TEST(MemoryRunsOut, GetAnswersTheValueWithAtMostItsTextLost) {
  failEachAllocation<Asking>([](Asking& scene) { scene.value = scene.result().get("level"); },
                             [](Asking& scene) {
                               expectText("17", scene.value);
                               EXPECT_EQ(17, scene.value.value.get<s32_t>());
                               scene.expectUsable();
                             });
}

TEST(MemoryRunsOut, GetAnswersTheDefaultWithAtMostItsTextLost) {
  failEachAllocation<Asking>([](Asking& scene) { scene.value = scene.result().get("tone"); },
                             [](Asking& scene) {
                               expectText(longText, scene.value);
                               EXPECT_STREQ(longText, scene.value.value.get<const char*>());
                               scene.expectUsable();
                             });
}

TEST(MemoryRunsOut, NextAnswersTheValueWithAtMostItsTextLost) {
  failEachAllocation<Asking>(
      [](Asking& scene) {
        scene.result().present("l");
        scene.result().next("l");
        scene.value = scene.result().next("l");
      },
      [](Asking& scene) {
        expectText("18", scene.value);
        EXPECT_EQ(18, scene.value.value.get<s32_t>());
        EXPECT_EQ(1, scene.result().next("l").isEmpty);
        scene.expectUsable();
      });
}

TEST(MemoryRunsOut, GetLastValueAnswersWithAtMostItsTextLost) {
  failEachAllocation<Asking>(
      [](Asking& scene) { scene.value = getLastValue(&scene.result(), "level"); },
      [](Asking& scene) {
        expectText("18", scene.value);
        scene.expectUsable();
      });
}

TEST(MemoryRunsOut, LeftoverArgumentsAreDeliveredWithAtMostTheirTextLost) {
  failEachAllocation<Asking>(
      [](Asking& scene) { scene.outcome = scene.result().getFirstArgument(&scene.text); },
      [](Asking& scene) {
        EXPECT_EQ(0, scene.outcome);
        EXPECT_TRUE(std::string(longText) == scene.text || *scene.text == '\0') << scene.text;
        EXPECT_EQ(0, scene.result().getNextArgument(&scene.text));
        EXPECT_STREQ("b", scene.text);
        EXPECT_EQ(1, scene.result().getNextArgument(&scene.text));
        scene.expectUsable();
      });
}

TEST(MemoryRunsOut, PresenceAndPositionsNeedNone) {
  Asking scene;
  const AllocationLimit limit(0, Failing::forEver);
  EXPECT_TRUE(scene.result().present("a name that is nowhere, and too long for itself") == false);
  EXPECT_TRUE(scene.result().present("level"));
  const int first = scene.result().nextPosition();
  EXPECT_LT(first, scene.result().nextPosition());
  EXPECT_EQ(lastPosition, scene.result().nextPosition());
  EXPECT_FALSE(limit.reached());
}

// Some conveniences return containers and strings, and raise what these raise.
TEST(MemoryRunsOut, RangesRaiseBadAllocAndLeaveTheResultUsable) {
  Asking scene;
  {
    const AllocationLimit limit(0, Failing::forEver);
    EXPECT_THROW(values(scene.result(), "level"), std::bad_alloc);
    EXPECT_THROW(leftovers(scene.result()), std::bad_alloc);
    EXPECT_THROW(valueOr<std::string>(scene.result(), "none", longText), std::bad_alloc);
  }
  scene.expectUsable();
}

TEST(MemoryRunsOut, HandlesComeBackEmpty) {
  Command command;
  const AllocationLimit limit(0, Failing::forEver);
  EXPECT_EQ(nullptr, makeParser());
  EXPECT_EQ(nullptr, makeResult(command.parser()));
}

}  // namespace

}  // namespace kivo_3_3
