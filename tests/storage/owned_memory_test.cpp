// The arena: small pieces are freed with it. A large piece from allocate() is freed when it is
// deallocated; a large piece from allocateForGood() is freed with the arena.

#include "storage/owned_memory.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <string>
#include <utility>
#include <vector>

#include "allocation/allocation_limit.h"

namespace kivo_3_3::testing {
namespace {

constexpr std::size_t large = 100'000;

bool isAligned(const void* block, std::size_t alignment) {
  return reinterpret_cast<std::uintptr_t>(block) % alignment == 0;
}

TEST(OwnedMemory, FewSmallBlocksTakeNothingFromTheHeap) {
  const long before = liveBlocks();
  OwnedMemoryOf<640> memory;
  for (int i = 0; i < 10; ++i)
    EXPECT_NE(nullptr, memory.allocate(16));
  EXPECT_EQ(before, liveBlocks());
}

TEST(OwnedMemory, TheInlineBlockIsUsedToItsLastByte) {
  const long before = liveBlocks();
  OwnedMemoryOf<640> pieces;
  EXPECT_NE(nullptr, pieces.allocate(600));
  EXPECT_NE(nullptr, pieces.allocate(40));
  EXPECT_EQ(before, liveBlocks());
  OwnedMemoryOf<640> texts;
  EXPECT_EQ(639u, texts.copy(std::string(639, 'x')).size());
  EXPECT_EQ(before, liveBlocks());
  EXPECT_NE(nullptr, pieces.allocate(1));
  EXPECT_EQ("", texts.copy(""));
  EXPECT_EQ(before + 2, liveBlocks());
}

// Bytes of the largest piece that shares a block. Larger pieces are allocated and freed one by one.
constexpr std::size_t largestSmall = 1'536;

TEST(OwnedMemory, PiecesShareABlockUpToACertainSize) {
  const long before = liveBlocks();
  OwnedMemoryOf<4 * largestSmall> memory;
  EXPECT_NE(nullptr, memory.allocate(largestSmall));
  EXPECT_NE(nullptr, memory.allocateForGood(largestSmall));
  EXPECT_EQ(before, liveBlocks());
  void* const alone = memory.allocate(largestSmall + 1);
  EXPECT_EQ(before + 1, liveBlocks());
  memory.deallocate(alone, largestSmall + 1);
  EXPECT_EQ(before, liveBlocks());
  EXPECT_NE(nullptr, memory.allocateForGood(largestSmall + 1));
  EXPECT_EQ(before + 1, liveBlocks());
}

TEST(OwnedMemory, TextsShareABlockUpToACertainSize) {
  const long before = liveBlocks();
  OwnedMemoryOf<640> memory;
  memory.copy(std::string(largestSmall - 1, 'x'));
  EXPECT_EQ(before + 1, liveBlocks());
  memory.copy(std::string(800, 'x'));  // fits into the rest of that block
  EXPECT_EQ(before + 1, liveBlocks());
  memory.copy(std::string(largestSmall, 'x'));  // too large to share a block
  EXPECT_EQ(before + 2, liveBlocks());
  memory.copy(std::string(200, 'x'));
  EXPECT_EQ(before + 2, liveBlocks());
}

TEST(OwnedMemory, ABlockIsFourTimesAsLongAsTheOneBeforeItUpTo31Megabytes) {
  constexpr std::size_t piece = 512;
  OwnedMemoryOf<piece> memory;
  memory.allocate(piece);
  std::vector<std::size_t> lengths;  // in pieces
  while (lengths.size() < 11) {
    const long before = liveBlocks();
    memory.allocate(piece);
    if (liveBlocks() != before)
      lengths.push_back(0);
    ++lengths.back();
  }
  lengths.pop_back();
  EXPECT_EQ((std::vector<std::size_t>{4, 16, 64, 256, 1024, 4096, 16384, 63488, 63488, 63488}),
            lengths);
}

TEST(OwnedMemory, ManySmallBlocksComeFromAFewLargerOnes) {
  const long before = liveBlocks();
  {
    OwnedMemoryOf<640> memory;
    for (int i = 0; i < 10'000; ++i)
      ASSERT_NE(nullptr, memory.allocate(16));
    EXPECT_LT(before, liveBlocks());
    EXPECT_GT(before + 30, liveBlocks());
  }
  EXPECT_EQ(before, liveBlocks());
}

TEST(OwnedMemory, OfSmallPiecesOnlyTheLastIsReused) {
  OwnedMemoryOf<640> memory;
  void* const first = memory.allocate(99);
  void* const last = memory.allocate(99);
  memory.deallocate(first, 99);
  EXPECT_NE(first, memory.allocate(0));
  memory.deallocate(last, 99);
  EXPECT_EQ(last, memory.allocate(10));
}

TEST(OwnedMemory, LargePiecesAreAllocatedAndFreedOneByOne) {
  OwnedMemoryOf<640> memory;
  const long before = liveBlocks();
  void* const first = memory.allocate(large);
  void* const second = memory.allocate(large);
  EXPECT_EQ(before + 2, liveBlocks());
  memory.deallocate(first, large);
  EXPECT_EQ(before + 1, liveBlocks());
  memory.deallocate(second, large);
  EXPECT_EQ(before, liveBlocks());
}

TEST(OwnedMemory, PiecesOfEverySizeAreAlignedAndDoNotOverlap) {
  OwnedMemoryOf<640> memory;
  std::vector<std::pair<unsigned char*, std::size_t>> blocks;
  for (std::size_t size = 1; size < 2'000; size += 3) {
    void* const block = memory.allocate(size);
    ASSERT_TRUE(isAligned(block, alignof(double))) << size;
    std::memset(block, static_cast<int>(size % 251), size);
    blocks.emplace_back(static_cast<unsigned char*>(block), size);
  }
  for (const auto& [block, size] : blocks) {
    for (std::size_t i = 0; i < size; ++i)
      ASSERT_EQ(size % 251, block[i]) << size;
    memory.deallocate(block, size);
  }
}

TEST(OwnedMemory, PiecesAllocatedForGoodAreFreedWithTheArena) {
  const long before = liveBlocks();
  {
    OwnedMemoryOf<640> memory;
    for (const std::size_t size : {std::size_t{16}, large, std::size_t{1'536}, 2 * large}) {
      void* const piece = memory.allocateForGood(size);
      ASSERT_TRUE(isAligned(piece, alignof(double))) << size;
      std::memset(piece, 1, size);
    }
    EXPECT_EQ(before + 3, liveBlocks());
  }
  EXPECT_EQ(before, liveBlocks());
}

TEST(OwnedMemory, TextsAndPiecesOfOneBlockDoNotOverlap) {
  OwnedMemoryOf<640> memory;
  std::vector<std::pair<unsigned char*, std::size_t>> pieces;
  std::vector<std::string_view> texts;
  for (std::size_t size = 1; size < 1'500; size += 7) {
    memory.deallocate(memory.allocate(size), size);
    void* const piece = size % 2 == 0 ? memory.allocateForGood(size) : memory.allocate(size);
    ASSERT_TRUE(isAligned(piece, alignof(double))) << size;
    std::memset(piece, static_cast<int>(size % 251), size);
    pieces.emplace_back(static_cast<unsigned char*>(piece), size);
    texts.push_back(memory.copy(std::string(size % 97, 'x')));
  }
  for (std::size_t i = 0; i < pieces.size(); ++i) {
    const auto& [piece, size] = pieces[i];
    for (std::size_t byte = 0; byte < size; ++byte)
      ASSERT_EQ(size % 251, piece[byte]) << size;
    ASSERT_EQ(std::string(size % 97, 'x'), texts[i].data());
  }
}

TEST(OwnedMemory, ContainersThatGrowLeakNothing) {
  const long before = liveBlocks();
  {
    OwnedMemoryOf<640> memory;
    using Text = std::basic_string<char, std::char_traits<char>, OwnedAllocator<char>>;
    std::vector<Text, OwnedAllocator<Text>> texts(&memory);
    for (std::size_t length = 0; length < 3'000; length += 7)
      texts.emplace_back(length, 'x', OwnedAllocator<char>(&memory));
    for (std::size_t i = 0; i < texts.size(); ++i)
      ASSERT_EQ(i * 7, texts[i].size());
  }
  EXPECT_EQ(before, liveBlocks());
}

TEST(OwnedMemory, RaisesWhenMemoryRunsOutAndStaysUsable) {
  const long before = liveBlocks();
  {
    OwnedMemoryOf<640> memory;
    {
      const AllocationLimit limit(0, Failing::forEver);
      EXPECT_THROW(memory.allocate(large), std::bad_alloc);
      const auto takeAll = [&] {
        for (int i = 0; i < 10'000; ++i)
          std::memset(memory.allocate(16), 0, 16);
      };
      EXPECT_THROW(takeAll(), std::bad_alloc);
    }
    EXPECT_EQ("text", memory.copy("text"));
    EXPECT_EQ(std::string(large, 'x'), memory.copy(std::string(large, 'x')));
  }
  EXPECT_EQ(before, liveBlocks());
}

TEST(OwnedMemory, CopiesATextAndTerminatesItWithAZero) {
  OwnedMemoryOf<640> memory;
  char text[] = "abc and more";
  const std::string_view copy = memory.copy({text, 3});
  text[0] = 'x';
  EXPECT_EQ("abc", copy);
  EXPECT_EQ(3u, std::strlen(copy.data()));
  EXPECT_EQ("", memory.copy({}));
  EXPECT_STREQ("", memory.copy({}).data());
}

TEST(OwnedMemory, CopiesTextsOfEveryLength) {
  OwnedMemoryOf<640> memory;
  std::vector<std::string_view> copies;
  for (std::size_t length = 0; length < 1'500; ++length)
    copies.push_back(memory.copy(std::string(length, static_cast<char>('a' + length % 26))));
  for (std::size_t length = 0; length < copies.size(); ++length) {
    ASSERT_EQ(std::string(length, static_cast<char>('a' + length % 26)), copies[length]);
    ASSERT_EQ('\0', copies[length].data()[length]);
  }
}

using Numbers = std::vector<int, OwnedAllocator<int>>;

TEST(OwnedAllocator, AllocatesFromItsArenaOrWithoutOneFromTheHeap) {
  OwnedMemoryOf<640> memory;
  const long before = liveBlocks();
  const Numbers owned({1, 2, 3}, &memory);
  EXPECT_EQ(before, liveBlocks());
  const Numbers heaped = {1, 2, 3};
  EXPECT_EQ(before + 1, liveBlocks());
  EXPECT_EQ(owned, heaped);
}

TEST(OwnedAllocator, CopiesOfAContainerMayOutliveTheMemory) {
  Numbers copy;
  Numbers assigned;
  {
    OwnedMemoryOf<640> memory;
    const Numbers owned({1, 2, 3}, &memory);
    assigned = owned;
    copy = Numbers(owned);
    EXPECT_EQ(nullptr, copy.get_allocator().memory());
    EXPECT_EQ(nullptr, assigned.get_allocator().memory());
  }
  EXPECT_EQ((Numbers{1, 2, 3}), copy);
  EXPECT_EQ((Numbers{1, 2, 3}), assigned);
}

TEST(OwnedAllocator, AContainerThatIsMovedTakesItsElementsAlong) {
  OwnedMemoryOf<640> memory;
  Numbers owned({1, 2, 3}, &memory);
  const int* const elements = owned.data();
  const long before = liveBlocks();
  Numbers moved = {4};
  moved = std::move(owned);
  EXPECT_EQ(elements, moved.data());
  EXPECT_EQ(&memory, moved.get_allocator().memory());
  Numbers swapped = {5};
  swapped.swap(moved);
  EXPECT_EQ(elements, swapped.data());
  EXPECT_EQ((Numbers{5}), moved);
  EXPECT_EQ(before + 1, liveBlocks());
}

TEST(OwnedAllocator, IsEqualToOthersOfTheSameMemory) {
  OwnedMemoryOf<640> first;
  OwnedMemoryOf<640> second;
  const OwnedAllocator<int> one(&first);
  EXPECT_TRUE(one == OwnedAllocator<double>(one));
  EXPECT_TRUE(one != OwnedAllocator<int>(&second));
  EXPECT_TRUE(one != OwnedAllocator<int>());
}

}  // namespace
}  // namespace kivo_3_3::testing
