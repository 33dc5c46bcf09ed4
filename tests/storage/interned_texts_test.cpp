#include "storage/interned_texts.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <deque>
#include <iterator>
#include <new>
#include <random>
#include <string>
#include <vector>

#include "allocation/allocation_limit.h"
#include "storage/colliding_texts.h"

namespace kivo_3_3::testing {
namespace {

using std::string;

class Interned : public ::testing::Test {
 protected:
  OwnedMemoryOf<640> memory;
  InternedTexts texts{memory};
};

TEST_F(Interned, EqualTextsGiveTheAddressOfTheFirst) {
  const string first = "a text";
  const string second = "a text";
  EXPECT_EQ(first.c_str(), texts.intern(first.c_str()));
  EXPECT_EQ(first.c_str(), texts.intern(second.c_str()));
  EXPECT_EQ(first.c_str(), texts.intern(first.c_str()));
}

TEST_F(Interned, TheEmptyTextIsATextLikeOthers) {
  const string empty;
  EXPECT_EQ(empty.c_str(), texts.intern(empty.c_str()));
  EXPECT_EQ(empty.c_str(), texts.internCopy(""));
}

TEST_F(Interned, ACopyOutlivesItsText) {
  string text = "a text";
  const char* const kept = texts.internCopy(text.c_str());
  EXPECT_NE(text.c_str(), kept);
  text = "b text";
  EXPECT_STREQ("a text", kept);
  EXPECT_EQ(kept, texts.intern("a text"));
  EXPECT_EQ(kept, texts.internCopy("a text"));
}

TEST_F(Interned, PrefixesOfATextAreOtherTexts) {
  for (const char* text : {"", "a", "ab", "abc", "abcdefgh", "abcdefghi"})
    EXPECT_EQ(text, texts.intern(text));
}

TEST_F(Interned, ManyTextsAreFoundAgain) {
  std::vector<string> all;
  for (int number = 0; number < 70'000; ++number)
    all.push_back("text " + std::to_string(number));
  for (const string& text : all)
    ASSERT_EQ(text.c_str(), texts.intern(text.c_str()));
  for (const string& text : all)
    ASSERT_EQ(text.c_str(), texts.intern(string(text).c_str()));
}

// prefetch() has an effect only in a large set; one of 20,000 texts is large enough.
TEST_F(Interned, PrefetchedTextsAreFoundLikeOthers) {
  std::vector<string> all;
  for (int number = 0; number < 40'000; ++number)
    all.push_back(std::to_string(number % 20'000));
  for (std::size_t place = 0; place < all.size(); ++place) {
    if (place + 1 < all.size())
      texts.prefetch(all[place + 1].c_str());
    ASSERT_EQ(all[place % 20'000].c_str(), texts.intern(all[place].c_str()));
  }
}

// What a caller expects to intern next changes the size of the table, and nothing else.
TEST_F(Interned, TextsAreFoundWhateverIsExpectedToFollow) {
  const std::size_t expected[] = {0, 1, 63, 64, 65, 1'000, 1'000'000'000};
  std::vector<string> all;
  for (int number = 0; number < 40'000; ++number)
    all.push_back(std::to_string(number % 20'000));
  for (std::size_t place = 0; place < all.size(); ++place) {
    const std::size_t following = expected[place / 60 % std::size(expected)];
    ASSERT_EQ(all[place % 20'000].c_str(), texts.intern(all[place].c_str(), following));
  }
}

// The number of allocations for 10,000 texts, if the caller expects all that follow, or none.
long allocationsFor(const std::vector<string>& all, bool isExpecting) {
  for (long allowed = 0;; ++allowed) {
    OwnedMemoryOf<640> memory;
    InternedTexts texts(memory);
    const AllocationLimit limit(allowed, Failing::forEver);
    try {
      for (std::size_t place = 0; place < all.size(); ++place)
        texts.intern(all[place].c_str(), isExpecting ? all.size() - place - 1 : 0);
      return allowed;
    } catch (const std::bad_alloc&) {
      EXPECT_TRUE(limit.reached());
    }
  }
}

// The table has 2,048 and 32,768 slots, and not each power of two from 256 on.
TEST(InternedTexts, AreEnteredInFewTablesIfTheyAreExpected) {
  std::vector<string> all;
  for (int number = 0; number < 10'000; ++number)
    all.push_back(std::to_string(number));
  EXPECT_EQ(allocationsFor(all, false) - 5, allocationsFor(all, true));
}

// A tool may read the first of many values and no other.
TEST(InternedTexts, TakeLittleMemoryForTextsThatAreExpectedAndNeverCome) {
  OwnedMemoryOf<640> memory;
  InternedTexts texts(memory);
  std::vector<string> all;
  for (int number = 0; number < 1'024; ++number)
    all.push_back(std::to_string(number));
  for (const string& text : all)
    texts.intern(text.c_str(), 1'000'000);
  const AllocationLimit limit(0, Failing::forEver);
  EXPECT_THROW(texts.intern("one more", 1'000'000), std::bad_alloc);
}

TEST_F(Interned, ATextThatIsThereNeedsNoMemory) {
  std::deque<string> all;
  for (const int count : {1, 15, 16, 17, 31, 32, 33, 63, 64, 65}) {
    while (static_cast<int>(all.size()) < count)
      texts.intern(all.emplace_back("text " + std::to_string(all.size())).c_str());
    const AllocationLimit limit(0, Failing::forEver);
    for (const string& text : all)
      EXPECT_EQ(text.c_str(), texts.intern(text.c_str()));
    EXPECT_FALSE(limit.reached());
  }
}

TEST(InternedTexts, StayUnchangedWhenMemoryRunsOut) {
  constexpr int count = 300;
  std::vector<string> all;
  for (int number = 0; number < count; ++number)
    all.push_back("a text too long to be kept without memory " + std::to_string(number));
  for (long allowed = 0, failures = 0;; ++allowed, failures = 1) {
    SCOPED_TRACE(allowed);
    const long blocks = liveBlocks();
    bool raised = false;
    {
      OwnedMemoryOf<640> memory;
      InternedTexts texts(memory);
      const AllocationLimit limit(allowed, Failing::once);
      for (const string& text : all) {
        try {
          texts.internCopy(text.c_str());
        } catch (const std::bad_alloc&) {
          raised = true;
          texts.internCopy(text.c_str());
        }
      }
      for (const string& text : all)
        EXPECT_STREQ(text.c_str(), texts.intern(text.c_str()));
      EXPECT_EQ(limit.reached(), raised);
    }
    EXPECT_EQ(blocks, liveBlocks());
    if (!raised) {
      EXPECT_EQ(1, failures);
      return;
    }
  }
}

// Texts without a pattern. Those with one, such as numbers in a row, take many steps for some keys
// of the hash.
class PatternlessTexts {
 public:
  string next() { return std::to_string(m_numbers()) + std::to_string(m_numbers()); }

 private:
  std::mt19937_64 m_numbers;
};

// Up to some number, texts are compared one by one: all of those before a text, and the text.
TEST_F(Interned, StepsAreCounted) {
  PatternlessTexts all;
  EXPECT_EQ(0u, texts.countSteps());
  for (int count = 0; count < 15; ++count)
    texts.internCopy(all.next().c_str());
  EXPECT_EQ(120u, texts.countSteps());
  texts.internCopy("one more");
  EXPECT_LE(16u, texts.countSteps());
  EXPECT_GT(100u, texts.countSteps());
  for (int count = 16; count < 300; ++count)
    texts.internCopy(all.next().c_str());
  EXPECT_LE(300u, texts.countSteps());
  EXPECT_GT(700u, texts.countSteps());
}

// Of many sets of sixteen texts some are without a collision.
TEST_F(Interned, ATextWithoutACollisionIsOneStep) {
  PatternlessTexts all;
  std::size_t fewest = 1000;
  for (int number = 0; number < 100; ++number) {
    OwnedMemoryOf<640> own;
    InternedTexts set(own);
    for (int count = 0; count < 16; ++count)
      set.internCopy(all.next().c_str());
    fewest = std::min(fewest, set.countSteps());
  }
  EXPECT_EQ(16u, fewest);
}

// The mark of a text may be any bit of 64.
TEST(InternedTexts, AreFoundWhateverTheyBeginWith) {
  for (int character = 1; character < 256; ++character) {
    OwnedMemoryOf<640> memory;
    InternedTexts texts(memory);
    const string text(1, static_cast<char>(character));
    EXPECT_EQ(text.c_str(), texts.intern(text.c_str()));
    EXPECT_EQ(text.c_str(), texts.intern(string(text).c_str())) << character;
  }
}

TEST_F(Interned, EqualTextsHaveOneAddressAtEverySize) {
  std::deque<string> all;
  for (int size = 1; size <= 140; ++size) {
    texts.intern(all.emplace_back("text " + std::to_string(size)).c_str());
    for (const string& text : all)
      ASSERT_EQ(text.c_str(), texts.intern(string(text).c_str())) << size;
  }
}

}  // namespace
}  // namespace kivo_3_3::testing
