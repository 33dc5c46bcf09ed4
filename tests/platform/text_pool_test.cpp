#include "stratum2/text_pool.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "allocation/allocation_limit.h"

namespace kivo_3_3::testing {
namespace {

using std::string;
using stratum2::text_pool_t;
using stratum2::variant_t;

const char* textOf(const variant_t& value) { return value.get<const char*>(); }

TEST(TextPool, MakesTextsThatCopiesShare) {
  text_pool_t pool;
  const string original = "text";
  const variant_t made = pool.make(original.c_str());
  const variant_t copy = made;
  EXPECT_EQ(stratum2::vtString, made.type());
  EXPECT_STREQ("text", textOf(made));
  EXPECT_NE(original.c_str(), textOf(made));
  EXPECT_EQ(textOf(made), textOf(copy));
  EXPECT_TRUE(made == variant_t("text"));
}

TEST(TextPool, GivesEqualTextsCharactersOfTheirOwn) {
  text_pool_t pool;
  const variant_t first = pool.make("text");
  const variant_t second = pool.make("text");
  EXPECT_NE(textOf(first), textOf(second));
}

TEST(TextPool, TakesOneAllocationForTheFirstTexts) {
  std::vector<variant_t> texts(8);
  text_pool_t pool;
  const long before = liveBlocks();
  for (variant_t& text : texts)
    text = pool.make("four");
  EXPECT_EQ(before + 1, liveBlocks());
}

TEST(TextPool, TextsOutliveIt) {
  const long before = liveBlocks();
  {
    auto pool = std::make_unique<text_pool_t>();
    const variant_t early = pool->make("early");
    const variant_t late = pool->make("late");
    pool.reset();
    EXPECT_STREQ("early", textOf(early));
    EXPECT_STREQ("late", textOf(late));
  }
  EXPECT_EQ(before, liveBlocks());
}

// Texts of all lengths below 5,000 bytes: some fill a chunk exactly, and some are too long for one.
TEST(TextPool, HoldsEveryTextWhateverItsLength) {
  constexpr std::size_t longest = 5000;
  const long before = liveBlocks();
  {
    text_pool_t pool;
    std::vector<variant_t> texts;
    for (std::size_t length = 0; length < longest; ++length)
      texts.push_back(pool.make(string(length, static_cast<char>('a' + length % 26)).c_str()));
    for (std::size_t length = 0; length < longest; ++length)
      ASSERT_EQ(string(length, static_cast<char>('a' + length % 26)), textOf(texts[length]));
  }
  EXPECT_EQ(before, liveBlocks());
}

TEST(TextPool, HasNoChunkOfMoreThan8MB) {
  constexpr int count = 40 * 1000;
  const string text(1000, 'x');  // 1 KB with what is kept about it
  std::vector<variant_t> texts(count);
  text_pool_t pool;
  const long before = liveBlocks();
  for (variant_t& made : texts)
    made = pool.make(text.c_str());
  EXPECT_EQ(before + 16 + 3, liveBlocks());  // 256 bytes to 8 MB, and then three of 8 MB
}

TEST(TextPool, FreesAUsedUpChunkWithTheLastTextInIt) {
  constexpr int count = 10000;
  std::vector<variant_t> texts(count);
  text_pool_t pool;
  const long before = liveBlocks();
  for (variant_t& text : texts)
    text = pool.make("text");
  EXPECT_EQ(before + 10, liveBlocks());  // 256 KB, in chunks that double from 256 bytes
  for (variant_t& text : texts)
    text = {};
  EXPECT_EQ(before + 1, liveBlocks());
}

TEST(TextPool, ATextThatStaysKeepsNoMoreThanItsChunk) {
  constexpr int count = 10000;
  const long before = liveBlocks();
  variant_t kept;
  {
    text_pool_t pool;
    std::vector<variant_t> texts;
    for (int i = 0; i < count; ++i)
      texts.push_back(pool.make("text"));
    kept = texts[count / 2];
  }
  EXPECT_EQ(before + 1, liveBlocks());
  EXPECT_STREQ("text", textOf(kept));
}

TEST(TextPool, StaysAsItIsWhenMemoryRunsOut) {
  text_pool_t pool;
  const variant_t first = pool.make("first");
  const string tooLong(1000, 'x');
  {
    const AllocationLimit limit(0, Failing::forEver);
    EXPECT_THROW(pool.make(tooLong.c_str()), std::bad_alloc);
  }
  EXPECT_STREQ("first", textOf(first));
  EXPECT_EQ(tooLong, textOf(pool.make(tooLong.c_str())));
}

}  // namespace
}  // namespace kivo_3_3::testing
