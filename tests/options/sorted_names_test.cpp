#include "options/sorted_names.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <deque>
#include <string>

namespace kivo_3_3::testing {
namespace {

using std::string;

TEST(SortedNames, AreFoundByHowTheyBegin) {
  SortedNames names;
  EXPECT_EQ(0, names.find("").count);
  names.makeRoomFor(3);
  for (const char* const name : {"beta", "alpha", "alps"})
    names.add(name, static_cast<std::uint32_t>(name[2]));
  EXPECT_EQ(2, names.find("al").count);
  EXPECT_EQ(0, names.find("c").count);
  const SortedNames::Found found = names.find("b");
  EXPECT_EQ(1, found.count);
  EXPECT_EQ("beta", found.first.text);
  EXPECT_EQ(static_cast<std::uint32_t>('t'), found.first.option);
}

// As a handler does that declares an option at each event. The runs have to stay few: there is room
// for 33, and what stands behind them must not change.
TEST(SortedNames, StayInFewRunsIfEachIsAddedAlone) {
  struct {
    SortedNames names;
    std::uint32_t behind[4000] = {};
  } room;
  std::deque<string> texts;
  for (std::uint32_t number = 0; number < 3000; ++number) {
    const string& text = texts.emplace_back(std::to_string(number * 7919 % 3000) + '.');
    room.names.makeRoomFor(1);
    room.names.add(text, number);
    const SortedNames::Found found = room.names.find(text);
    ASSERT_EQ(1, found.count);
    ASSERT_EQ(number, found.first.option);
    ASSERT_EQ(std::end(room.behind), std::find_if(room.behind, std::end(room.behind),
                                                  [](std::uint32_t one) { return one != 0; }));
  }
  for (const string& text : texts)
    EXPECT_EQ(1, room.names.find(text).count);
}

}  // namespace
}  // namespace kivo_3_3::testing
