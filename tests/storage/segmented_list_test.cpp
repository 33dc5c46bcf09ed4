// A list that grows without moving its elements.

#include "storage/segmented_list.h"

#include <gtest/gtest.h>

#include <memory>
#include <new>
#include <vector>

#include "allocation/allocation_limit.h"

namespace kivo_3_3::testing {
namespace {

constexpr std::size_t many = 20'000;

TEST(SegmentedList, IsEmptyWhenMade) {
  const SegmentedList<int> list;
  EXPECT_TRUE(list.empty());
  EXPECT_EQ(0u, list.size());
  EXPECT_FALSE(list.begin() != list.end());
}

TEST(SegmentedList, OneElementTakesNoMemory) {
  OwnedMemoryOf<640> memory;
  void* const before = memory.allocate(8);
  memory.deallocate(before, 8);
  SegmentedList<int> list;
  list.makeRoom(1, memory);
  list.push_back(7);
  EXPECT_EQ(7, list[0]);
  EXPECT_EQ(before, memory.allocate(8));
}

TEST(SegmentedList, HoldsItsElementsInOrderAtEverySize) {
  OwnedMemoryOf<640> memory;
  SegmentedList<std::size_t> list;
  for (std::size_t size = 1; size <= many; ++size) {
    list.makeRoom(1, memory);
    list.push_back(size * size);
    ASSERT_EQ(size, list.size());
    ASSERT_EQ(size * size, list[list.size() - 1]);
    ASSERT_EQ(1u, list[0]);
  }
  std::size_t expected = 0;
  for (const std::size_t element : list) {
    ++expected;
    ASSERT_EQ(expected * expected, element);
    ASSERT_EQ(element, list[expected - 1]);
  }
  EXPECT_EQ(many, expected);
}

TEST(SegmentedList, ElementsStayWhereTheyAre) {
  OwnedMemoryOf<640> memory;
  SegmentedList<std::size_t> list;
  std::vector<const std::size_t*> places;
  for (std::size_t element = 0; element < many; ++element) {
    list.makeRoom(1, memory);
    list.push_back(element);
    places.push_back(&list[list.size() - 1]);
  }
  for (std::size_t element = 0; element < many; ++element)
    ASSERT_EQ(places[element], &list[element]) << element;
}

TEST(SegmentedList, RoomThatWasMadeIsEnough) {
  for (std::size_t already = 0; already < 200; ++already) {
    OwnedMemoryOf<640> memory;
    SegmentedList<std::size_t> list;
    list.makeRoom(already, memory);
    for (std::size_t i = 0; i < already; ++i)
      list.push_back(i);
    const std::size_t more = already % 70;
    list.makeRoom(more, memory);
    const AllocationLimit limit(0, Failing::forEver);
    for (std::size_t i = 0; i < more; ++i)
      list.push_back(already + i);
    ASSERT_FALSE(limit.reached());
    for (std::size_t i = 0; i < already + more; ++i)
      ASSERT_EQ(i, list[i]) << already;
  }
}

TEST(SegmentedList, TakesLittleMoreMemoryThanItsElementsNeed) {
  constexpr std::size_t size = 4'000;
  OwnedMemoryOf<size * sizeof(std::size_t) + 4'000> memory;
  const long before = liveBlocks();
  SegmentedList<std::size_t> list;
  for (std::size_t i = 0; i < size; ++i) {
    list.makeRoom(1, memory);
    list.push_back(i);
  }
  EXPECT_EQ(before, liveBlocks());
}

TEST(SegmentedList, DestroysEachElementOnceWithItself) {
  for (std::size_t size = 0; size <= 200; ++size) {
    const auto counted = std::make_shared<int>(0);
    OwnedMemoryOf<640> memory;
    {
      SegmentedList<std::shared_ptr<int>> list;
      list.makeRoom(size, memory);
      for (std::size_t i = 0; i < size; ++i)
        list.push_back(counted);
      ASSERT_EQ(static_cast<long>(size) + 1, counted.use_count());
    }
    ASSERT_EQ(1, counted.use_count()) << size;
  }
}

TEST(SegmentedList, RaisesWhenMemoryRunsOutAndStaysUsable) {
  OwnedMemoryOf<128> memory;
  SegmentedList<std::size_t> list;
  for (std::size_t element = 0; element < many; ++element) {
    {
      const AllocationLimit limit(0, Failing::forEver);
      try {
        list.makeRoom(1, memory);
      } catch (const std::bad_alloc&) {
        ASSERT_TRUE(limit.reached());
      }
    }
    list.makeRoom(1, memory);
    list.push_back(element);
  }
  for (std::size_t element = 0; element < many; ++element)
    ASSERT_EQ(element, list[element]);
  const AllocationLimit limit(0, Failing::forEver);
  EXPECT_THROW(list.makeRoom(many * many, memory), std::bad_alloc);
  EXPECT_EQ(many, list.size());
}

}  // namespace
}  // namespace kivo_3_3::testing
