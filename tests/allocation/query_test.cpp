// Queries without memory answer in full or with "no value".

#include <gtest/gtest.h>
#include <kivo/kivo.h>

#include <string>
#include <vector>

#include "allocation/allocation_limit.h"
#include "support/command.h"

namespace kivo_3_3 {

namespace {

using testing::AllocationLimit;
using testing::Command;
using testing::Failing;

constexpr const char* longText = "a text too long to be kept without memory";
constexpr const char* listed = "--list=a text too long to be kept without memory";

// A result to query.
struct Asking {
  Asking() {
    command.option("level,l", vtS32);
    command.option("list", vtString)->tokenize(';');
    command.option("tone", vtString)->defaultValue(longText);
    command.parse({"--level=17", "-l", "18", "--list=x", listed, "--", longText, "b"});
  }

  IParseResult& result() { return command.result(); }

  // After a query without memory, queries answer in full.
  void expectUsable() {
    EXPECT_STREQ(longText, result().get("tone").text);
    EXPECT_STREQ("17", result().get("level").text);
    EXPECT_STREQ("18", result().next("level").text);
    EXPECT_EQ((std::vector<std::string>{longText, "b"}), leftoverTexts());
  }

  // Checks the text and its type. A vtString has characters of its own; a vtStringReference would
  // refer to those of the result.
  void expectList(const char* text, variant_type_t type, const Value& value) {
    EXPECT_STREQ(text, value.text);
    EXPECT_STREQ(text, value.value.get<const char*>());
    EXPECT_EQ(type, value.value.type());
  }

  std::vector<std::string> leftoverTexts() {
    const std::vector<const char*> texts = leftovers(result());
    return {texts.begin(), texts.end()};
  }

  Command command;
};

TEST(MemoryRunsOut, GetAllocatesNothing) {
  Asking scene;
  {
    const AllocationLimit limit(0, Failing::forEver);
    const Value value = scene.result().get("level");
    EXPECT_FALSE(limit.reached());
    EXPECT_STREQ("17", value.text);
    EXPECT_EQ(17, value.value.get<s32_t>());
  }
  scene.expectUsable();
}

TEST(MemoryRunsOut, ATextThatCannotBeCopiedIsNoValueAndStaysTheNext) {
  Asking scene;
  {
    const AllocationLimit limit(0, Failing::forEver);
    EXPECT_EQ(1, scene.result().get("list").isEmpty);
    EXPECT_EQ(1, scene.result().next("list").isEmpty);
    EXPECT_EQ(1, getLastValue(&scene.result(), "list").isEmpty);
    EXPECT_TRUE(limit.reached());
  }
  scene.expectList("x", vtString, scene.result().next("list"));
  scene.expectList(longText, vtString, scene.result().next("list"));
  scene.expectList("x", vtString, scene.result().get("list"));
  scene.expectUsable();
}

// The result has room to intern some texts; then its hash table has to grow, which fails.
TEST(MemoryRunsOut, ALeftoverArgumentThatCannotBeInternedIsEmpty) {
  Command command;
  std::vector<std::string> args = {"--"};
  for (int number = 0; number < 4'000; ++number)
    args.push_back(std::to_string(number));
  command.parse(args);
  IParseResult& result = command.result();
  const char* text = nullptr;
  result.getFirstArgument(&text);
  {
    const AllocationLimit limit(0, Failing::forEver);
    while (!limit.reached())
      ASSERT_EQ(0, result.getNextArgument(&text));
    EXPECT_STREQ("", text);
  }
  EXPECT_EQ(4'000u, leftovers(result).size());
  EXPECT_STREQ("3999", leftovers(result).back());
}

TEST(MemoryRunsOut, GetOfADefaultAllocatesNothing) {
  Asking scene;
  {
    const AllocationLimit limit(0, Failing::forEver);
    const Value value = scene.result().get("tone");
    EXPECT_FALSE(limit.reached());
    EXPECT_STREQ(longText, value.text);
    EXPECT_STREQ(longText, value.value.get<const char*>());
  }
  scene.expectUsable();
}

TEST(MemoryRunsOut, NextAllocatesNothing) {
  Asking scene;
  {
    const AllocationLimit limit(0, Failing::forEver);
    scene.result().present("l");
    scene.result().next("l");
    const Value value = scene.result().next("l");
    EXPECT_STREQ("18", value.text);
    EXPECT_EQ(18, value.value.get<s32_t>());
    EXPECT_EQ(1, scene.result().next("l").isEmpty);
    EXPECT_FALSE(limit.reached());
  }
  scene.expectUsable();
}

TEST(MemoryRunsOut, GetLastValueAllocatesNothing) {
  Asking scene;
  {
    const AllocationLimit limit(0, Failing::forEver);
    EXPECT_STREQ("18", getLastValue(&scene.result(), "level").text);
    EXPECT_FALSE(limit.reached());
  }
  scene.expectUsable();
}

TEST(MemoryRunsOut, LeftoverArgumentsAllocateNothing) {
  Asking scene;
  {
    const AllocationLimit limit(0, Failing::forEver);
    const char* text = nullptr;
    EXPECT_EQ(0, scene.result().getFirstArgument(&text));
    EXPECT_STREQ(longText, text);
    EXPECT_EQ(0, scene.result().getNextArgument(&text));
    EXPECT_STREQ("b", text);
    EXPECT_EQ(1, scene.result().getNextArgument(&text));
    EXPECT_FALSE(limit.reached());
  }
  scene.expectUsable();
}

TEST(MemoryRunsOut, PresenceAndPositionsAllocateNothing) {
  Asking scene;
  const AllocationLimit limit(0, Failing::forEver);
  EXPECT_TRUE(scene.result().present("a name that is nowhere, and too long for itself") == false);
  EXPECT_TRUE(scene.result().present("level"));
  const int first = scene.result().nextPosition();
  EXPECT_LT(first, scene.result().nextPosition());
  EXPECT_EQ(lastPosition, scene.result().nextPosition());
  EXPECT_FALSE(limit.reached());
}

// Functions that return containers and strings throw what these throw.
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

TEST(MemoryRunsOut, HandlesAreEmpty) {
  Command command;
  const AllocationLimit limit(0, Failing::forEver);
  EXPECT_EQ(nullptr, makeParser());
  EXPECT_EQ(nullptr, makeResult(command.parser()));
}

}  // namespace

}  // namespace kivo_3_3
