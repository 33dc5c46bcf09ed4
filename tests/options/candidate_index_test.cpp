#include "options/candidate_index.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>
#include <string>
#include <vector>

#include "allocation/allocation_limit.h"
#include "base/quoted.h"
#include "options/make_option.h"
#include "support/assertion_recorder.h"
#include "support/console_capture.h"

namespace kivo_3_3::testing {
namespace {

using std::string;

constexpr int many = 40;      // candidates, for which an option has an index
constexpr int mostWalks = 9;  // before there is one

// What a check of a value says, and where the text of an accepted one comes from.
string outcomeOf(const OptionDescription& option, const string& typed) {
  const ConsoleCapture console;
  std::string_view text = typed;
  variant_t value;
  string error = "fine";
  const bool isTyped = option.validate(text, value, true, error) && text.data() == typed.data();
  return joined(error, " ", text, isTyped ? " as typed " : " ") + console.err();
}

// The same, by a walk over the candidates: a copy has checked no value yet.
string outcomeOfWalk(const OptionDescription& option, const string& typed) {
  OptionDescription fresh = makeOption({"level"}, option.m_type);
  fresh.m_allowedValues = option.m_allowedValues;
  fresh.m_deprecatedValues = option.m_deprecatedValues;
  EXPECT_EQ(nullptr, fresh.candidates());
  return outcomeOf(fresh, typed);
}

void makeIndex(const OptionDescription& option) {
  for (int i = 0; i < mostWalks; ++i)
    option.candidates();
  ASSERT_NE(nullptr, option.candidates());
}

// Short texts of two letters, some of them twice, and values of all other kinds.
OptionDescription oddCandidates(std::mt19937& random, variant_type_t type) {
  static string changing = "bbb";
  OptionDescription option = makeOption({"level"}, type);
  const auto text = [&] {
    string all;
    for (auto length = random() % 4; length > 0; --length)
      all += static_cast<char>('a' + random() % 2);
    return all;
  };
  const auto candidate = [&]() -> variant_t {
    const auto number = static_cast<int>(random() % 20);
    switch (random() % 12) {
      case 0:
        return number - 10;
      case 1:
        return static_cast<unsigned int>(number);
      case 2:
        return static_cast<double>(number) / 2;
      case 3:
        return variant_t(changing.c_str(), true);
      default:
        return type == vtString ? text().c_str()
                                : option.fromString(std::to_string(number).c_str(), nullptr);
    }
  };
  while (option.m_allowedValues.size() + option.m_deprecatedValues.size() < many) {
    option.allowValue(candidate());
    if (random() % 4 == 0)
      option.allowDeprecatedValue(text().c_str(), "a");
  }
  return option;
}

TEST(CandidateIndex, SaysWhatAWalkSaysOfTexts) {
  const AssertionRecorder recorder;  // a message reads numbers as texts
  std::mt19937 random(1);
  for (int round = 0; round < 50; ++round) {
    const OptionDescription option = oddCandidates(random, vtString);
    makeIndex(option);
    for (const char* const typed :
         {"", "a", "b", "ab", "ba", "aab", "abb", "bbb", "aaaa", "c", "5"})
      EXPECT_EQ(outcomeOfWalk(option, typed), outcomeOf(option, typed)) << typed;
  }
}

TEST(CandidateIndex, SaysWhatAWalkSaysOfNumbers) {
  const AssertionRecorder recorder;  // a message reads texts as numbers
  std::mt19937 random(2);
  for (const variant_type_t type : {vtBool, vtS32, vtU32, vtS64, vtU64, vtDouble}) {
    for (int round = 0; round < 20; ++round) {
      const OptionDescription option = oddCandidates(random, type);
      makeIndex(option);
      for (int number = -12; number < 24; ++number) {
        const string typed = std::to_string(number);
        EXPECT_EQ(outcomeOfWalk(option, typed), outcomeOf(option, typed)) << typed;
      }
    }
  }
}

TEST(CandidateIndex, ANumberThatIsNoneHidesNoOther) {
  OptionDescription option = makeOption({"level"}, vtDouble);
  option.allowValue(std::numeric_limits<double>::quiet_NaN());
  for (int i = 0; i < many; ++i)
    option.allowValue(i + 0.5);
  makeIndex(option);
  EXPECT_EQ("fine 7.5 as typed ", outcomeOf(option, "7.5"));
  EXPECT_EQ(0u, outcomeOf(option, "100.25").find("Option 'level' does not allow value '100.25'"));
}

// 2^64 - 5 and -5 have the same bits, and are ordered as if they were equal.
TEST(CandidateIndex, ADeprecatedNumberOfAnotherTypeHidesNoOther) {
  OptionDescription option = makeOption({"level"}, vtS64);
  option.allowDeprecatedValue(static_cast<u64_t>(-5), 1);
  for (s64_t i = 0; i < many; ++i)
    option.allowValue(i);
  makeIndex(option);
  EXPECT_EQ(0u, outcomeOf(option, "-5").find("Option 'level' does not allow value '-5'"));
  EXPECT_EQ("fine 7 as typed ", outcomeOf(option, "7"));
}

TEST(CandidateIndex, ATextThatTheToolChangesCountsAsItIs) {
  string changing = "before";
  OptionDescription option = makeOption({"level"}, vtString);
  option.allowValue(variant_t(changing.c_str(), true));
  for (int i = 0; i < many; ++i)
    option.allowValue(std::to_string(i).c_str());
  makeIndex(option);
  changing = "within";
  EXPECT_EQ("fine within as typed ", outcomeOf(option, "within"));
  EXPECT_EQ("fine within ", outcomeOf(option, "wi"));
  EXPECT_EQ(0u, outcomeOf(option, "before").find("Option 'level' does not allow value 'before'"));
}

TEST(CandidateIndex, AValueAllowedLaterCounts) {
  OptionDescription option = makeOption({"level"}, vtS32);
  for (int i = 0; i < many; ++i)
    option.allowValue(i);
  makeIndex(option);
  option.allowValue(1000)->allowDeprecatedValue(2000, 1);
  EXPECT_EQ("fine 1000 as typed ", outcomeOf(option, "1000"));
  EXPECT_EQ(
      "fine 2000 as typed Warning: '2000' argument is deprecated for the option '-level'. Use the "
      "'' argument instead.\n",
      outcomeOf(option, "2000"));
  makeIndex(option);
  EXPECT_EQ("fine 1000 as typed ", outcomeOf(option, "1000"));
}

TEST(CandidateIndex, ACopyWithFewerCandidatesIsWalked) {
  OptionDescription option = makeOption({"level"}, vtS32);
  for (int i = 0; i < many; ++i)
    option.allowValue(i);
  const OptionDescription copy = option;
  option.allowValue(1000);
  makeIndex(option);
  EXPECT_EQ("fine 1000 as typed ", outcomeOf(option, "1000"));
  EXPECT_EQ(0u, outcomeOf(copy, "1000").find("Option 'level' does not allow value '1000'"));
}

TEST(CandidateIndex, WithoutMemoryForItTheCandidatesAreWalked) {
  OptionDescription option = makeOption({"level"}, vtString);
  for (int i = 0; i < many; ++i)
    option.allowValue(
        ("a text with more characters than a string has inside " + std::to_string(i)).c_str());
  const string typed = "a text with more characters than a string has inside 7";
  int failures = 0;
  for (int i = 0; i < 3 * mostWalks; ++i) {
    const AllocationLimit limit(0, Failing::forEver);
    std::string_view text = typed;
    variant_t value;
    string error;
    EXPECT_TRUE(option.validate(text, value, true, error));
    failures += limit.reached() ? 1 : 0;
  }
  EXPECT_LE(2, failures);
  EXPECT_EQ("fine " + typed + " as typed ", outcomeOf(option, typed));
}

}  // namespace
}  // namespace kivo_3_3::testing
