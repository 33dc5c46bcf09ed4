#include "stratum2/variant.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <cstring>
#include <limits>
#include <stdexcept>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "allocation/allocation_limit.h"
#include "support/assertion_recorder.h"
#include "support/guarded_page.h"

namespace kivo_3_3::testing {
namespace {

using namespace stratum2;

constexpr u64_t largest = std::numeric_limits<u64_t>::max();
const variant_t nothing;
const variant_t borrowed("b", true);

// The types that can_get() allows: "bool integers double text". "some" stands for only some of the
// four integer types.
std::string canGive(const variant_t& value) {
  std::string kinds;
  if (value.can_get<bool>())
    kinds += " bool";
  const bool integers[] = {value.can_get<s32_t>(), value.can_get<u32_t>(), value.can_get<s64_t>(),
                           value.can_get<u64_t>()};
  if (std::count(std::begin(integers), std::end(integers), true) != 0)
    kinds +=
        std::count(std::begin(integers), std::end(integers), true) == 4 ? " integers" : " some";
  if (value.can_get<double>())
    kinds += " double";
  if (value.can_get<const char*>())
    kinds += " text";
  return kinds;
}

// "<", "=" or ">"; "?" if each value is less than the other.
char compare(const variant_t& left, const variant_t& right) {
  if (left < right)
    return right < left ? '?' : '<';
  return right < left ? '>' : '=';
}

TEST(Variant, TagsHaveTheNumbersThatCallersPass) {
  EXPECT_EQ(0, static_cast<int>(vtBool));
  EXPECT_EQ(6, static_cast<int>(vtS32));
  EXPECT_EQ(7, static_cast<int>(vtU32));
  EXPECT_EQ(8, static_cast<int>(vtS64));
  EXPECT_EQ(9, static_cast<int>(vtU64));
  EXPECT_EQ(11, static_cast<int>(vtDouble));
  EXPECT_EQ(12, static_cast<int>(vtString));
  EXPECT_EQ(17, static_cast<int>(vtNull));
}

TEST(Variant, MadeFromNothingHoldsNothing) { EXPECT_EQ(vtNull, variant_t().type()); }

TEST(Variant, TakesItsTagFromWhatItIsMadeFrom) {
  EXPECT_EQ(vtBool, variant_t(true).type());
  EXPECT_EQ(vtS32, variant_t(1).type());
  EXPECT_EQ(vtU32, variant_t(1u).type());
  EXPECT_EQ(vtS64, variant_t(1l).type());
  EXPECT_EQ(vtS64, variant_t(1ll).type());
  EXPECT_EQ(vtU64, variant_t(1ul).type());
  EXPECT_EQ(vtU64, variant_t(1ull).type());
  EXPECT_EQ(vtDouble, variant_t(1.0).type());
  EXPECT_EQ(vtString, variant_t("a").type());
  EXPECT_EQ(14, static_cast<int>(variant_t("a", true).type()));
}

TEST(Variant, SmallIntegersTakeSignedEvenAndUnsignedOddTags) {
  EXPECT_EQ(0, variant_t(static_cast<signed char>(-1)).type() % 2);
  EXPECT_EQ(0, variant_t(static_cast<short>(-1)).type() % 2);
  EXPECT_EQ(1, variant_t(static_cast<unsigned char>(1)).type() % 2);
  EXPECT_EQ(1, variant_t(static_cast<unsigned short>(1)).type() % 2);
  EXPECT_EQ(-1, variant_t(static_cast<signed char>(-1)).get<int>());
  EXPECT_EQ(-1, variant_t(static_cast<short>(-1)).get<int>());
}

TEST(Variant, CopiesTheTextItIsMadeFrom) {
  char text[] = "abc";
  const variant_t value(text);
  text[0] = 'x';
  EXPECT_STREQ("abc", value.get<const char*>());
}

TEST(Variant, AReferenceRefersToTheTextItIsMadeFrom) {
  const char* const text = "abc";
  const variant_t value(text, true);
  EXPECT_EQ(text, value.get<const char*>());
  EXPECT_EQ(text, variant_t(value).get<const char*>());
}

TEST(Variant, ANullTextCountsAsTheEmptyOne) {
  const char* const none = nullptr;
  EXPECT_STREQ("", variant_t(none).get<const char*>());
  EXPECT_STREQ("", variant_t(none, true).get<const char*>());
}

TEST(Variant, CopiesShareOneText) {
  const variant_t value("shared");
  const variant_t copy(value);
  variant_t assigned("before");
  assigned = copy;
  EXPECT_EQ(value.get<const char*>(), copy.get<const char*>());
  EXPECT_EQ(value.get<const char*>(), assigned.get<const char*>());
}

TEST(Variant, ASharedTextLivesWithItsLastCopy) {
  variant_t last;
  {
    const variant_t value("shared");
    const variant_t copy(value);
    last = copy;
  }
  EXPECT_STREQ("shared", last.get<const char*>());
  last = 3;
  EXPECT_EQ(3, last.get<int>());
}

TEST(Variant, AssignedToItselfKeepsItsText) {
  variant_t value("kept");
  const variant_t& same = value;
  value = same;
  EXPECT_STREQ("kept", value.get<const char*>());
}

TEST(Variant, MovingHandsTheTextOn) {
  variant_t value("moved");
  const char* const text = value.get<const char*>();
  variant_t taken(std::move(value));
  EXPECT_EQ(text, taken.get<const char*>());
  variant_t assigned("before");
  assigned = std::move(taken);
  EXPECT_EQ(text, assigned.get<const char*>());
}

TEST(Variant, CopiesAreCountedAcrossThreads) {
  const variant_t value("shared by all");
  const auto copyManyTimes = [&] {
    std::vector<variant_t> copies;
    for (int round = 0; round < 2'000; ++round)
      copies.push_back(value);
  };
  std::thread other(copyManyTimes);
  copyManyTimes();
  other.join();
  EXPECT_STREQ("shared by all", value.get<const char*>());
}

// Each text has two owners, one in each thread. The threads wait for each other before each
// release, so that some texts lose both owners at the same time.
TEST(Variant, ATextIsFreedOnceWhenTwoThreadsReleaseItTogether) {
  constexpr std::size_t texts = 10'000;
  const long before = liveBlocks();
  {
    std::vector<variant_t> mine;
    for (std::size_t i = 0; i < texts; ++i)
      mine.emplace_back("shared by two");
    std::vector<variant_t> others = mine;
    std::atomic<std::size_t> arrived = 0;
    const auto releaseAll = [&](std::vector<variant_t>& owners) {
      std::size_t awaited = 0;
      for (variant_t& owner : owners) {
        awaited += 2;
        ++arrived;
        while (arrived < awaited)
          continue;
        owner = variant_t();
      }
    };
    std::thread other([&] { releaseAll(others); });
    releaseAll(mine);
    other.join();
  }
  EXPECT_EQ(before, liveBlocks());
}

TEST(Variant, ReadsNoByteAfterTheTextItIsMadeFrom) {
  const GuardedPage page;
  const variant_t value(page.last(std::string_view("copied", 7)).data());
  EXPECT_STREQ("copied", value.get<const char*>());
}

TEST(Variant, WhatCanBeReadDependsOnTheKind) {
  const struct {
    const char* kind;
    variant_t value;
    const char* gives;
  } cases[] = {
      {"bool", true, " bool integers double"},
      {"8 bit", static_cast<signed char>(1), " bool integers double"},
      {"16 bit", static_cast<unsigned short>(1), " bool integers double"},
      {"32 bit", 1, " bool integers double"},
      {"unsigned 32 bit", 1u, " bool integers double"},
      {"64 bit", 1ll, " bool integers double"},
      {"unsigned 64 bit", 1ull, " bool integers double"},
      {"float", 1.0f, " double"},
      {"double", 1.0, " double"},
      {"text", "1", " text"},
      {"reference", borrowed, " text"},
      {"nothing", nothing, ""},
  };
  for (const auto& c : cases)
    EXPECT_EQ(c.gives, canGive(c.value)) << c.kind;
}

TEST(Variant, IsTrueWhenItsIntegerIsNotZero) {
  const variant_t truths[] = {true, 1, -1, 2u, -7ll, largest, static_cast<signed char>(-1)};
  for (const variant_t& value : truths)
    EXPECT_TRUE(value.get<bool>()) << value.get<s64_t>();
  const variant_t falsehoods[] = {false, 0, 0u, 0ll, 0ull};
  for (const variant_t& value : falsehoods)
    EXPECT_FALSE(value.get<bool>());
}

TEST(Variant, AnIntegerReadsAsEveryIntegerType) {
  const variant_t values[] = {42, 42u, 42ll, 42ull, static_cast<unsigned char>(42)};
  for (const variant_t& value : values) {
    EXPECT_EQ(42, value.get<s32_t>());
    EXPECT_EQ(42u, value.get<u32_t>());
    EXPECT_EQ(42ll, value.get<s64_t>());
    EXPECT_EQ(42ull, value.get<u64_t>());
  }
  EXPECT_EQ(1, variant_t(true).get<s32_t>());
  EXPECT_EQ(largest, variant_t(largest).get<u64_t>());
  EXPECT_EQ(std::numeric_limits<s64_t>::min(),
            variant_t(std::numeric_limits<s64_t>::min()).get<s64_t>());
}

TEST(Variant, AnIntegerReadsAsDoubleBySign) {
  EXPECT_EQ(18446744073709551616.0, variant_t(largest).get<double>());
  EXPECT_EQ(9223372036854775808.0, variant_t(1ull << 63).get<double>());
  EXPECT_EQ(-1.0, variant_t(-1ll).get<double>());
  EXPECT_EQ(-1.0, variant_t(-1).get<double>());
  EXPECT_EQ(4294967295.0, variant_t(4294967295u).get<double>());
  EXPECT_EQ(1.0, variant_t(true).get<double>());
  EXPECT_EQ(0.5, variant_t(0.5f).get<double>());
}

TEST(Variant, ReadingATypeItCannotGiveIsAnAssertionAndGivesNothing) {
  const AssertionRecorder assertions;
  EXPECT_EQ(0, variant_t("1").get<int>());
  EXPECT_FALSE(variant_t(1.0).get<bool>());
  EXPECT_EQ(0.0, nothing.get<double>());
  EXPECT_EQ(nullptr, variant_t(1).get<const char*>());
  EXPECT_EQ(nullptr, nothing.get<const char*>());
  EXPECT_EQ("can_get<T>(); can_get<T>(); can_get<T>(); can_get<T>(); can_get<T>()",
            assertions.expressions());
}

TEST(Variant, ReadingATypeItCanGiveIsNoAssertion) {
  const AssertionRecorder assertions;
  EXPECT_EQ(1, variant_t(true).get<int>());
  EXPECT_EQ(1.0, variant_t(1u).get<double>());
  EXPECT_STREQ("b", borrowed.get<const char*>());
  EXPECT_EQ("", assertions.expressions());
}

TEST(Variant, AThrowingAssertionHandlerEndsTheRead) {
  const auto before = BEDROCK::set_assertion_handler(
      [](const char* expression, const char*, int) { throw std::logic_error(expression); });
  EXPECT_THROW(variant_t("1").get<int>(), std::logic_error);
  BEDROCK::set_assertion_handler(before);
}

TEST(VariantEquality, ComparesNumbersByValueAcrossKinds) {
  const variant_t threes[] = {3, 3u, 3ll, 3ull, 3.0, 3.0f, static_cast<signed char>(3)};
  for (const variant_t& left : threes)
    for (const variant_t& right : threes)
      EXPECT_TRUE(left == right && !(left != right)) << left.type() << " " << right.type();
  EXPECT_TRUE(variant_t(0) == variant_t(0U));
  EXPECT_TRUE(variant_t(0) != variant_t());
  EXPECT_TRUE(variant_t() != variant_t(0.0));
  EXPECT_FALSE(variant_t(3U) < variant_t(3ULL));
  EXPECT_TRUE(variant_t(true) == variant_t(1));
  EXPECT_TRUE(variant_t(-1) == variant_t(-1.0));
  EXPECT_TRUE(variant_t(3) != variant_t(3.5));
  EXPECT_TRUE(variant_t(3) != variant_t(4ull));
}

TEST(VariantEquality, ComparesTextsByContent) {
  EXPECT_TRUE(variant_t("b") == variant_t("b"));
  EXPECT_TRUE(variant_t("b") == borrowed);
  EXPECT_TRUE(variant_t("b") != variant_t("B"));
  EXPECT_TRUE(variant_t("b") != variant_t("bb"));
  EXPECT_TRUE(variant_t("") == variant_t(""));
}

TEST(VariantEquality, KeepsNumbersTextsAndNothingApart) {
  const variant_t values[] = {3, "3", nothing};
  for (const variant_t& left : values)
    for (const variant_t& right : values)
      EXPECT_EQ(&left == &right, left == right) << left.type() << " " << right.type();
}

TEST(VariantEquality, ANegativeNumberIsNotTheLargeOneOfTheSameBits) {
  EXPECT_TRUE(variant_t(-1) != variant_t(largest));
  EXPECT_TRUE(variant_t(-1ll) != variant_t(largest));
}

TEST(VariantOrder, NumbersOfOneKindAreOrderedByValue) {
  EXPECT_EQ('<', compare(false, true));
  EXPECT_EQ('<', compare(-2, 1));
  EXPECT_EQ('<', compare(-2ll, 1ll));
  EXPECT_EQ('<', compare(1u, 4294967295u));
  EXPECT_EQ('<', compare(1ull, largest));
  EXPECT_EQ('<', compare(-0.5, 0.25));
  EXPECT_EQ('<', compare(-0.5f, 0.25f));
  EXPECT_EQ('=', compare(7, 7));
}

TEST(VariantOrder, IntegersCompareAsUnsignedOnlyWhenBothAre) {
  EXPECT_EQ('<', compare(4294967295u, largest));
  EXPECT_EQ('<', compare(-1, 0u));
  EXPECT_EQ('<', compare(-1, 4294967295u));
  EXPECT_EQ('<', compare(largest, 0));  // as signed it is -1
  EXPECT_EQ('=', compare(largest, -1));
  EXPECT_EQ('=', compare(true, 1ull));
}

// 2^53 + 1 lies between two doubles; read as double, it is the even one, 2^53.
TEST(VariantOrder, AnIntegerIsRoundedToDoubleBeforeItIsCompared) {
  const double power = 9007199254740992.0;
  EXPECT_EQ('=', compare(9007199254740993ll, power));
  EXPECT_EQ('=', compare(9007199254740993ull, power));
  EXPECT_TRUE(variant_t(9007199254740993ll) == variant_t(power));
  EXPECT_TRUE(variant_t(power) == variant_t(9007199254740993ull));
}

TEST(VariantOrder, AnIntegerAgainstAFloatingNumberComparesAsDouble) {
  EXPECT_EQ('<', compare(3, 3.5));
  EXPECT_EQ('>', compare(4u, 3.5));
  EXPECT_EQ('>', compare(largest, 1e18));
  EXPECT_EQ('=', compare(3ll, 3.0));
  EXPECT_EQ('=', compare(0.5f, 0.5));
}

TEST(VariantOrder, TextsAreOrderedByteByByte) {
  EXPECT_EQ('<', compare("a", "b"));
  EXPECT_EQ('<', compare("a", "ab"));
  EXPECT_EQ('<', compare("B", "a"));
  EXPECT_EQ('<', compare("", "a"));
  EXPECT_EQ('=', compare("b", borrowed));
  EXPECT_EQ('<', compare("a", borrowed));
  EXPECT_EQ('>', compare("c", borrowed));
}

TEST(VariantOrder, OfDifferentKindsTheHigherTagIsTheLesser) {
  EXPECT_EQ('<', compare(nothing, "a"));
  EXPECT_EQ('<', compare(nothing, borrowed));
  EXPECT_EQ('<', compare(nothing, -1));
  EXPECT_EQ('<', compare("a", -1));
  EXPECT_EQ('<', compare("a", 1.5));
  EXPECT_EQ('<', compare(borrowed, 1.5));
}

TEST(VariantOrder, NothingIsNeverLessThanNothing) {
  const AssertionRecorder assertions;
  EXPECT_EQ('=', compare(nothing, variant_t()));
  EXPECT_EQ("", assertions.expressions());
}

// A value as a tool may pass it that was built with the headers of another version.
variant_t withUnknownTag() {
  constexpr int unknown = 99;
  variant_t value;
  std::memcpy(reinterpret_cast<char*>(&value) + sizeof(u64_t), &unknown, sizeof(unknown));
  return value;
}

TEST(VariantOrder, OfTwoValuesWithTheSameUnknownTagIsAnAssertion) {
  const AssertionRecorder assertions;
  EXPECT_FALSE(withUnknownTag() < withUnknownTag());
  EXPECT_EQ("m_type == vtNull && var.m_type == vtNull", assertions.expressions());
  EXPECT_TRUE(withUnknownTag() < nothing);
  EXPECT_EQ("m_type == vtNull && var.m_type == vtNull", assertions.expressions());
}

TEST(StringCompare, IsNegativeZeroOrPositiveByBytes) {
  EXPECT_LT(string_compare("a", "b"), 0);
  EXPECT_LT(string_compare("", "a"), 0);
  EXPECT_LT(string_compare("Z", "a"), 0);
  EXPECT_LT(string_compare("\x7F", "\x80"), 0);
  EXPECT_EQ(string_compare("ab", "ab"), 0);
  EXPECT_GT(string_compare("ab", "a"), 0);
}

}  // namespace
}  // namespace kivo_3_3::testing
