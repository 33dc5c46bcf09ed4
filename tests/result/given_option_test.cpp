// What a result stores for one option: occurrences and values in the order in which they are
// stored.

#include "result/given_option.h"

#include <gtest/gtest.h>

#include "allocation/allocation_limit.h"
#include "support/stored.h"

namespace kivo_3_3 {

namespace {

using testing::AllocationLimit;
using testing::Failing;
using testing::render;

// One occurrence, with two values at the next two positions.
OptionData occurrence(int position) {
  OptionData data;
  data.positions = {position};
  data.values = {{"a", variant_t("a", true), position + 1}, {"b", variant_t(2), position + 2}};
  return data;
}

TEST(GivenOption, IsEmptyWhenMade) {
  const GivenOption given;
  EXPECT_EQ("", render(given));
  EXPECT_TRUE(given.isAscending);
}

TEST(GivenOption, KnowsWhetherItsPositionsAscend) {
  const struct {
    const char* why;
    std::vector<int> positions[2];  // of two occurrences that are appended in turn
    std::vector<int> values[2];
    bool ascends;
  } cases[] = {
      {"as they are drawn", {{1}, {4}}, {{2, 3}, {5}}, true},
      {"nothing", {{}, {}}, {{}, {}}, true},
      {"one of each kind", {{1}, {}}, {{2}, {}}, true},
      {"one position several times", {{1, 1}, {1}}, {{2, 2}, {2}}, true},
      {"occurrences turn back between two", {{4}, {1}}, {{5}, {6}}, false},
      {"occurrences turn back within one", {{2, 1}, {}}, {{3}, {}}, false},
      {"occurrences turn back within the second", {{1}, {3, 2}}, {{4}, {5}}, false},
      {"values turn back between two", {{1}, {4}}, {{5, 6}, {3}}, false},
      {"values turn back within the first", {{1}, {4}}, {{3, 2}, {5}}, false},
      {"values turn back within the second", {{1}, {4}}, {{2, 3}, {6, 5}}, false},
      {"values turn back before the last", {{1}, {9}}, {{3, 2, 4}, {10}}, false},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.why);
    OwnedMemoryOf<640> memory;
    GivenOption given;
    for (int i = 0; i < 2; ++i) {
      OptionData data;
      data.positions.assign(c.positions[i].begin(), c.positions[i].end());
      for (const int position : c.values[i])
        data.values.push_back({"v", variant_t("v", true), position});
      given.makeRoomFor(data, memory);
      given.append(data);
    }
    EXPECT_EQ(c.ascends, given.isAscending);
  }
}

TEST(GivenOption, OnceOutOfOrderStaysOutOfOrder) {
  OwnedMemoryOf<640> memory;
  GivenOption given;
  for (const int position : {3, 1, 5}) {
    const OptionData data = occurrence(position);
    given.makeRoomFor(data, memory);
    given.append(data);
  }
  EXPECT_FALSE(given.isAscending);
}

TEST(GivenOption, RoomThatWasMadeIsEnoughAtEverySize) {
  OwnedMemoryOf<640> memory;
  GivenOption given;
  for (int position = 1; position < 400; position += 3) {
    const OptionData data = occurrence(position);
    given.makeRoomFor(data, memory, 3);
    const AllocationLimit limit(0, Failing::forEver);
    for (int i = 0; i < 3; ++i)
      given.append(data);
    ASSERT_FALSE(limit.reached()) << position;
  }
  EXPECT_EQ(3u * 133, given.positions.size());
  EXPECT_EQ(6u * 133, given.values.size());
}

TEST(GivenOption, OneOccurrenceTakesNoMemory) {
  OwnedMemoryOf<640> memory;
  void* const before = memory.allocate(8);
  memory.deallocate(before, 8);
  OptionData data;
  data.positions = {1};
  data.values = {{"a", variant_t("a", true), 2}};
  GivenOption given;
  given.makeRoomFor(data, memory);
  given.append(data);
  EXPECT_EQ("@1 a@2", render(given));
  EXPECT_EQ(before, memory.allocate(8));
}

TEST(GivenOption, AppendsWhatAnotherHas) {
  OwnedMemoryOf<640> memory;
  GivenOption first;
  GivenOption second;
  for (const int position : {1, 4}) {
    first.makeRoomFor(occurrence(position), memory);
    first.append(occurrence(position));
  }
  second.makeRoomFor(first, memory);
  second.append(first);
  EXPECT_EQ("@1 @4 a@2 b@3 a@5 b@6", render(second));
  EXPECT_TRUE(second.isAscending);
}

}  // namespace

}  // namespace kivo_3_3
