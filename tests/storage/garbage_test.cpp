#include "storage/garbage.h"

#include <gtest/gtest.h>

#include <new>
#include <vector>

#include "allocation/allocation_limit.h"

namespace kivo_3_3::testing {
namespace {

TEST(Garbage, TheSameTextTwiceGivesTheSamePointer) {
  Garbage garbage;
  const std::string text = "a text too long for the string itself";
  const std::string equal = text;
  const char* const kept = garbage.init(text.c_str());
  EXPECT_STREQ("a text too long for the string itself", kept);
  EXPECT_EQ(kept, garbage.init(equal.c_str()));
  EXPECT_EQ(kept, garbage.init(kept));
}

TEST(Garbage, ANullTextGivesTheEmptyOne) {
  Garbage garbage;
  EXPECT_STREQ("", garbage.init(nullptr));
}

TEST(Garbage, TheEmptyTextOfNullOutlivesTheGarbage) {
  const char* text = nullptr;
  {
    Garbage garbage;
    text = garbage.init(nullptr);
  }
  EXPECT_STREQ("", text);
}

TEST(Garbage, TheEmptyTextIsKeptToo) {
  Garbage garbage;
  EXPECT_STREQ("", garbage.init(""));
  EXPECT_EQ(garbage.init(""), garbage.init(""));
}

TEST(Garbage, KeepsACopy) {
  Garbage garbage;
  char text[] = "abc";
  const char* const kept = garbage.init(text);
  text[0] = 'x';
  EXPECT_STREQ("abc", kept);
}

TEST(Garbage, TextsThatDifferAreKeptApart) {
  Garbage garbage;
  const char* const texts[] = {"a", "A", "a ", "ab", ""};
  for (const char* one : texts)
    for (const char* other : texts)
      EXPECT_EQ(one == other, garbage.init(one) == garbage.init(other)) << one << "|" << other;
}

TEST(Garbage, WhatIsKeptStaysInPlaceWhateverFollows) {
  Garbage garbage;
  std::vector<const char*> kept;
  for (int number = 0; number < 2'000; ++number)
    kept.push_back(garbage.init(std::to_string(number * 7919 % 2'000).c_str()));
  for (int number = 0; number < 2'000; ++number) {
    const std::string text = std::to_string(number * 7919 % 2'000);
    ASSERT_EQ(text, kept[static_cast<std::size_t>(number)]);
    ASSERT_EQ(kept[static_cast<std::size_t>(number)], garbage.init(text.c_str()));
  }
}

TEST(Garbage, EachObjectKeepsItsOwnTexts) {
  Garbage first;
  Garbage second;
  EXPECT_NE(first.init("text"), second.init("text"));
}

TEST(Garbage, WhenMemoryRunsOutInitGivesTheEmptyTextAndKeepRaises) {
  Garbage garbage;
  const std::string text(10'000, 'x');
  {
    const AllocationLimit limit(0, Failing::forEver);
    EXPECT_STREQ("", garbage.init(text.c_str()));
    EXPECT_THROW(garbage.keep(text.c_str()), std::bad_alloc);
  }
  EXPECT_EQ(text, garbage.init(text.c_str()));
}

}  // namespace
}  // namespace kivo_3_3::testing
