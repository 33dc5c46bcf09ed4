// Dashes, and where the name of an argument ends and its value begins.

#include <kivo/argument_syntax.h>

#include <gtest/gtest.h>

#include <stdexcept>

#include "recognizers/split_argument.h"
#include "support/global_locale.h"
#include "support/guarded_page.h"

namespace kivo_3_3 {

namespace {

TEST(DashLength, AsciiHyphenHasOneByteAndTypographicDashesHaveThree) {
  const struct {
    const char* text;
    unsigned int length;
  } cases[] = {
      {"-", 1},         // hyphen-minus
      {"\u2012", 3},    // figure dash
      {"\u2013", 3},    // en dash
      {"\u2014", 3},    // em dash
      {"\u2015", 3},    // horizontal bar
      {"\u2053", 3},    // swung dash
      {"\u2010", 0},    // hyphen
      {"\u2011", 0},    // non-breaking hyphen
      {"\u2212", 0},    // minus sign
      {"\u00AD", 0},    // soft hyphen
      {"\xE2\x80", 0},  // the first two bytes of a dash
      {"~", 0},        {"a-", 0}, {"", 0},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.text);
    EXPECT_EQ(c.length, getDashLength(c.text, 0));
  }
}

TEST(DashLength, CanBeAskedAtAnyByte) {
  const std::string text = "a-\u2013b";
  EXPECT_EQ(0u, getDashLength(text, 0));
  EXPECT_EQ(1u, getDashLength(text, 1));
  EXPECT_EQ(3u, getDashLength(text, 2));
  EXPECT_EQ(0u, getDashLength(text, 3));  // inside the dash
  EXPECT_EQ(0u, getDashLength(text, 5));
}

TEST(DashLength, IsZeroAtTheEndAndOutOfRangeBeyond) {
  EXPECT_EQ(0u, getDashLength("", 0));
  EXPECT_EQ(0u, getDashLength("--", 2));
  EXPECT_THROW(getDashLength("--", 3), std::out_of_range);
  EXPECT_THROW(getDashLength("", 1), std::out_of_range);
}

TEST(SplitOptionValue, SplitsAtTheFirstEqualSignOrWhiteSpace) {
  const struct {
    const char* argument;
    const char* name;
    const char* value;
  } cases[] = {
      {"--level=3", "level", "3"},
      {"level=3", "level", "3"},
      {"--level=", "level", ""},
      {"--level=a=b", "level", "a=b"},
      {"--level==", "level", "="},
      {"--level= 3", "level", " 3"},  // white space after the "=" belongs to the value
      {"--level=3 4", "level", "3 4"},
      {"--level 3", "level", "3"},
      {"--level \t\n\v\f\r 3", "level", "3"},  // the whole run of white space is skipped
      {"--level 3 4 ", "level", "3 4 "},
      {"--level =3", "level", "=3"},  // split at the white space, which comes first
      {"--level ", "level", ""},
      {"--=3", "", "3"},
      {"-- 3", "", "3"},
      {"=", "", ""},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.argument);
    std::string name = "before";
    std::string value = "before";
    EXPECT_TRUE(splitOptionValue(c.argument, &name, &value));
    EXPECT_EQ(c.name, name);
    EXPECT_EQ(c.value, value);
  }
}

// Long names are read by eight characters.
TEST(SplitOptionValue, EndsANameOfAnyLengthAtAnEqualSignOrWhiteSpaceAlone) {
  const std::string separators = "= \t\n\v\f\r";
  for (char other = '+'; other <= '~'; ++other)
    for (const std::size_t size : {2U, 7U, 8U, 9U, 16U, 17U, 25U})
      for (std::size_t place = 1; place < size; ++place)
        for (int byte = 0; byte < 256; ++byte) {
          std::string typed(size, other == '=' || other == '-' ? '\xE4' : other);
          typed[place] = static_cast<char>(byte);
          const bool isEnd = separators.find(typed[place]) != std::string::npos;
          std::string name;
          std::string value = "none";
          ASSERT_EQ(isEnd, splitOptionValue(typed, &name, &value)) << size << ", " << byte;
          ASSERT_EQ(isEnd ? typed.substr(0, place) : typed, name) << byte;
          ASSERT_EQ(isEnd ? typed.substr(place + 1) : "none", value) << byte;
        }
}

TEST(SplitArgument, ReadsNoByteBeforeOrAfterTheArgument) {
  const testing::GuardedPage page;
  const std::string whole = "--a-name-of-many-characters";
  for (std::size_t size = 2; size <= whole.size(); ++size) {
    const std::string argument = whole.substr(0, size);
    for (const std::string_view typed : {page.first(argument), page.last(argument)}) {
      const ArgumentParts parts = splitArgument(typed, WhiteSpace());
      EXPECT_EQ(argument.substr(2), parts.name);
      EXPECT_FALSE(parts.hasValue);
    }
  }
}

TEST(SplitOptionValue, SkipsUpToTwoDashesOfAnyKind) {
  const struct {
    const char* argument;
    const char* name;
  } cases[] = {
      {"level", "level"},
      {"-level", "level"},
      {"--level", "level"},
      {"---level", "-level"},
      {"\u2013level", "level"},
      {"\u2013-level", "level"},
      {"-\u2014level", "level"},
      {"\u2012\u2053level", "level"},
      {"\u2013\u2013\u2013level", "\u2013level"},
      {"a-b", "a-b"},
      {"--", ""},
      {"", ""},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.argument);
    std::string name = "before";
    std::string value;
    EXPECT_FALSE(splitOptionValue(c.argument, &name, &value));
    EXPECT_EQ(c.name, name);
  }
}

TEST(SplitOptionValue, LeavesTheValueUntouchedWhereNoneIsSplitOff) {
  std::string name;
  std::string value = "before";
  EXPECT_FALSE(splitOptionValue("--level", &name, &value));
  EXPECT_EQ("before", value);
}

TEST(SplitOptionValue, WritesOnlyWhatIsAskedFor) {
  std::string name;
  EXPECT_TRUE(splitOptionValue("--level=3", &name, nullptr));
  EXPECT_EQ("level", name);
  std::string value;
  EXPECT_TRUE(splitOptionValue("--level=3", nullptr, &value));
  EXPECT_EQ("3", value);
  EXPECT_FALSE(splitOptionValue("--level", nullptr, nullptr));
}

TEST(SplitOptionValue, WhiteSpaceIsWhatTheGlobalLocaleSays) {
  const testing::GlobalLocale locale(testing::localeWithUnderscoreAsSpace());
  std::string name;
  std::string value;
  EXPECT_TRUE(splitOptionValue("--level high__3", &name, &value));
  EXPECT_EQ("level high", name);
  EXPECT_EQ("3", value);
  EXPECT_TRUE(splitOptionValue("--long_and long", &name, &value));
  EXPECT_EQ("long", name);
  EXPECT_EQ("and long", value);
}

}  // namespace

}  // namespace kivo_3_3
