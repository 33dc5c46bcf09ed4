#include "options/value_conversion.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <stdexcept>
#include <string_view>

#include "support/assertion_recorder.h"
#include "support/global_locale.h"
#include "support/guarded_page.h"

namespace kivo_3_3::testing {
namespace {

const variant_type_t optionTypes[] = {vtBool, vtS32, vtU32, vtS64, vtU64, vtDouble, vtString};
const int otherTags[] = {1, 2, 3, 4, 5, 10, 13, 14, 15, 16, 17, 18, 19, 99, -1};

struct Conversion {
  const char* text;
  variant_t value;  // vtNull for a text that does not convert
};

const variant_t fails;

template <std::size_t count>
void expectValues(variant_type_t type, const Conversion (&cases)[count]) {
  for (const Conversion& c : cases) {
    SCOPED_TRACE("\"" + std::string(c.text) + "\"");
    const variant_t value = textToValue(type, c.text);
    EXPECT_EQ(c.value.type(), value.type());
    EXPECT_TRUE(c.value == value);
  }
}

std::string textOf(variant_type_t type, const variant_t& value) {
  Garbage garbage;
  return valueToText(type, value, garbage);
}

TEST(TypeName, EveryOptionTypeHasItsName) {
  EXPECT_STREQ("undefined", typeName(vtBool));
  EXPECT_STREQ("integer", typeName(vtS32));
  EXPECT_STREQ("unsigned integer", typeName(vtU32));
  EXPECT_STREQ("64 bit integer", typeName(vtS64));
  EXPECT_STREQ("unsigned 64 bit or hex", typeName(vtU64));
  EXPECT_STREQ("double", typeName(vtDouble));
  EXPECT_STREQ("string", typeName(vtString));
}

TEST(TypeName, OtherTagsHaveTheEmptyName) {
  for (const int tag : otherTags)
    EXPECT_STREQ("", typeName(static_cast<variant_type_t>(tag))) << tag;
}

// The texts are not zero-terminated.
TEST(TextToValue, ReadsNoByteBeforeOrAfterTheText) {
  const GuardedPage page;
  for (const std::string_view text :
       {"", "-", "+", " ", "-5", "12", "1.", "1.5", "-1.5 ", "0x", "7h"})
    for (const variant_type_t type : optionTypes) {
      const variant_t value = textToValue(type, std::string(text));
      EXPECT_TRUE(value == textToValue(type, page.first(text))) << text << " as " << type;
      EXPECT_TRUE(value == textToValue(type, page.last(text))) << text << " as " << type;
    }
}

TEST(TextToValue, UnderOtherTagsNothingConverts) {
  for (const int tag : otherTags)
    for (const char* text : {"1", "", "abc"})
      EXPECT_EQ(vtNull, textToValue(static_cast<variant_type_t>(tag), text).type()) << tag;
}

TEST(TextToValue, TheValueHasTheTagOfTheType) {
  for (const variant_type_t type : optionTypes)
    EXPECT_EQ(type, textToValue(type, "1").type());
}

TEST(TextToValue, ABoolIsTheNumeralZeroOrOne) {
  const Conversion cases[] = {
      {"1", true},    {"0", false},     {"true", fails}, {"false", fails}, {"2", fails},
      {"-1", fails},  {"01", true},     {"+1", true},    {"", fails},      {"10", fails},
      {" 1 ", true},  {"1x", fails},    {"0x1", fails},  {"-0", false},    {"yes", fails},
      {"1 0", fails}, {"\t0\n", false},
  };
  expectValues(vtBool, cases);
}

TEST(TextToValue, AnIntegerMayHaveASignAndWhiteSpaceAroundIt) {
  const Conversion cases[] = {
      {"42", 42},
      {" 42 ", 42},
      {"12 ", 12},
      {"-7", -7},
      {"+7", 7},
      {"010", 10},  // decimal, not octal
      {"\v\f\r\n\t5\t\n", 5},
  };
  expectValues(vtS32, cases);
}

TEST(TextToValue, ATextThatIsNotWhollyOneIntegerDoesNotConvert) {
  const char* const texts[] = {"12x", "3.5", "5.", "0x10", "1e3", "1,000", "1 2", "",
                               " ",   "-",   "+",  "+-1",  "- 1", "x",     "x1"};
  for (const char* text : texts)
    EXPECT_EQ(vtNull, textToValue(vtS32, text).type()) << text;
}

TEST(TextToValue, A32BitIntegerHasItsRange) {
  const Conversion cases[] = {
      {"2147483647", 2147483647},
      {"2147483648", fails},
      {"-2147483648", std::numeric_limits<s32_t>::min()},
      {"-2147483649", fails},
      {"99999999999999999999999", fails},
      {"0000000000000000000000007", 7},
  };
  expectValues(vtS32, cases);
}

TEST(TextToValue, AnUnsigned32BitIntegerWrapsNegativeNumbers) {
  const Conversion cases[] = {
      {"4294967295", 4294967295u},
      {"4294967296", fails},
      {"-1", 4294967295u},
      {"-4294967295", 1u},
      {"-4294967296", fails},
      {"0", 0u},
      {"-0", 0u},
      {"12x", fails},
  };
  expectValues(vtU32, cases);
}

TEST(TextToValue, A64BitIntegerHasItsRange) {
  const Conversion cases[] = {
      {"9223372036854775807", std::numeric_limits<s64_t>::max()},
      {"9223372036854775808", fails},
      {"-9223372036854775808", std::numeric_limits<s64_t>::min()},
      {"-9223372036854775809", fails},
      {"0x10", fails},
      {"12 x", fails},
  };
  expectValues(vtS64, cases);
}

TEST(TextToValue, ADoubleIsTheWholeText) {
  const Conversion cases[] = {
      {"0.1", 0.1},   {"3", 3.0},     {"-2.5e3", -2500.0}, {"1e-2", 0.01},   {".5", 0.5},
      {"5.", 5.0},    {"+.5", 0.5},   {" 1.5 ", 1.5},      {"1.5x", fails},  {"1.5.5", fails},
      {"", fails},    {".", fails},   {"1e", fails},       {"1e400", fails}, {"-1e400", fails},
      {"inf", fails}, {"nan", fails}, {"1,5", fails},      {"1 .5", fails},  {"1E+2", 100.0},
      {"--1", fails}, {"-0", 0.0},
  };
  expectValues(vtDouble, cases);
  EXPECT_TRUE(std::signbit(textToValue(vtDouble, "-0").get<double>()));
#ifdef __GLIBCXX__  // the streams of others read hexadecimal numbers
  EXPECT_EQ(vtNull, textToValue(vtDouble, "0x10").type());
#endif
}

TEST(TextToValue, AStringIsTheUnchangedText) {
  for (const char* text : {"", "abc", " abc ", "a,b", "0x10", "\xE2\x80\x93"}) {
    const variant_t value = textToValue(vtString, text);
    EXPECT_EQ(vtString, value.type());
    EXPECT_STREQ(text, value.get<const char*>());
    EXPECT_NE(text, value.get<const char*>());
  }
}

TEST(TextToValue, AnUnsigned64BitNumberIsHexadecimalByPrefixOrSuffix) {
  const Conversion cases[] = {
      {"0x1F", 31ull}, {"0X1f", 31ull}, {"1Fh", 31ull}, {"1FH", 31ull},
      {"0x10", 16ull}, {"10h", 16ull},  {"0h", 0ull},   {"0x00000000000000000000001F", 31ull},
      {"0x", fails},   {"h", fails},    {"H", fails},
  };
  expectValues(vtU64, cases);
}

TEST(TextToValue, AnUnsigned64BitNumberIsDecimalWhereOneCharacterIsNoHexadecimalDigit) {
  const Conversion cases[] = {{"10", 10ull},   {"FF", fails},   {"x1F", fails},
                              {"0x1G", 0ull},  {"0xG", 0ull},   {"0x1Fh", 0ull},
                              {"0xh", 0ull},   {"00x1", 0ull},  {"0x1 ", 0ull},
                              {" 0x10", 0ull}, {"+0x10", 0ull}, {"1Gh", 1ull},
                              {" 10h", 10ull}, {"10h ", 10ull}, {"-10h", 18446744073709551606ull}};
  expectValues(vtU64, cases);
}

TEST(TextToValue, TextAfterAnUnsigned64BitNumberIsIgnored) {
  const Conversion cases[] = {
      {"12abc", 12ull}, {"12 x", 12ull}, {"3.5", 3ull}, {"7,8", 7ull}, {"abc", fails}, {" 5", 5ull},
  };
  expectValues(vtU64, cases);
}

TEST(TextToValue, AnUnsigned64BitNumberHasItsRange) {
  constexpr u64_t largest = std::numeric_limits<u64_t>::max();
  const Conversion cases[] = {
      {"18446744073709551615", largest},
      {"18446744073709551616", fails},
      {"0xFFFFFFFFFFFFFFFF", largest},
      {"FFFFFFFFFFFFFFFFh", largest},
      {"0x10000000000000000", fails},
      {"10000000000000000h", fails},
      {"-1", largest},
      {"-18446744073709551615", 1ull},
      {"-18446744073709551616", fails},
  };
  expectValues(vtU64, cases);
}

TEST(FromStringToNumber, AnEmptyTextIsOutOfRange) {
  u64_t value = 7;
  EXPECT_THROW(fromStringToNumber(std::string(), value), std::out_of_range);
}

TEST(FromStringToNumber, SaysWhetherANumberWasRead) {
  u64_t value = 0;
  EXPECT_TRUE(fromStringToNumber(std::string("1Fh"), value));
  EXPECT_EQ(31u, value);
  EXPECT_TRUE(fromStringToNumber(std::string("12abc"), value));
  EXPECT_EQ(12u, value);
  EXPECT_FALSE(fromStringToNumber(std::string("FF"), value));
}

TEST(ValueToText, NumbersLookAsStreamsShowThem) {
  EXPECT_EQ("1", textOf(vtBool, true));
  EXPECT_EQ("0", textOf(vtBool, false));
  EXPECT_EQ("-2147483648", textOf(vtS32, std::numeric_limits<s32_t>::min()));
  EXPECT_EQ("4294967295", textOf(vtU32, 4294967295u));
  EXPECT_EQ("-9223372036854775808", textOf(vtS64, std::numeric_limits<s64_t>::min()));
  EXPECT_EQ("18446744073709551615", textOf(vtU64, std::numeric_limits<u64_t>::max()));
}

TEST(ValueToText, ADoubleShowsSixSignificantDigits) {
  const struct {
    double value;
    const char* text;
  } cases[] = {
      {0.1, "0.1"},
      {1234567.0, "1.23457e+06"},
      {123456.0, "123456"},
      {0.0001, "0.0001"},
      {0.00001, "1e-05"},
      {3.0, "3"},
      {-2.5, "-2.5"},
      {1e100, "1e+100"},
      {1.0 / 3, "0.333333"},
      {999999.5, "1e+06"},
      {0.0, "0"},
      {-0.0, "-0"},
  };
  for (const auto& c : cases)
    EXPECT_EQ(c.text, textOf(vtDouble, c.value));
}

TEST(ValueToText, AStringIsKeptUnchanged) {
  Garbage garbage;
  EXPECT_EQ(garbage.init(" a b "), valueToText(vtString, " a b ", garbage));
  EXPECT_EQ(garbage.init("r"), valueToText(vtString, variant_t("r", true), garbage));
}

TEST(ValueToText, EqualTextsShareOnePointer) {
  Garbage garbage;
  EXPECT_EQ(valueToText(vtS32, 42, garbage), valueToText(vtU64, 42ull, garbage));
  EXPECT_EQ(garbage.init("42"), valueToText(vtS32, 42, garbage));
}

TEST(ValueToText, TheDeclaredTypeDecidesNotTheTagOfTheValue) {
  EXPECT_EQ("1", textOf(vtBool, 7));
  EXPECT_EQ("-1", textOf(vtS32, std::numeric_limits<u64_t>::max()));
  EXPECT_EQ("4294967295", textOf(vtU32, -1));
  EXPECT_EQ("3", textOf(vtDouble, 3u));
  EXPECT_EQ("1.84467e+19", textOf(vtDouble, std::numeric_limits<u64_t>::max()));
  EXPECT_EQ("1", textOf(vtS64, true));
}

TEST(ValueToText, AValueThatCannotGiveTheTypeIsAnAssertion) {
  const AssertionRecorder assertions;
  Garbage garbage;
  valueToText(vtS32, "3", garbage);
  valueToText(vtString, 3, garbage);
  valueToText(vtBool, 1.0, garbage);
  valueToText(vtDouble, variant_t(), garbage);
  EXPECT_EQ("can_get<T>(); can_get<T>(); can_get<T>(); can_get<T>()", assertions.expressions());
}

TEST(ValueToText, UnderOtherTagsThereIsNoText) {
  Garbage garbage;
  for (const int tag : otherTags)
    EXPECT_EQ(nullptr, valueToText(static_cast<variant_type_t>(tag), 1, garbage)) << tag;
}

TEST(AppendValue, AddsToTheEndOfTheText) {
  std::string text = "all: ";
  EXPECT_TRUE(appendValue(vtBool, true, text));
  EXPECT_TRUE(appendValue(vtString, "one", text));
  EXPECT_TRUE(appendValue(vtS32, 2, text));
  EXPECT_EQ("all: 1one2", text);
}

TEST(Conversion, FollowsTheGlobalLocale) {
  const GlobalLocale global(localeWithDecimalComma());
  EXPECT_EQ("1.234.567", textOf(vtS32, 1234567));
  EXPECT_EQ("0,5", textOf(vtDouble, 0.5));
  EXPECT_EQ(1234567, textToValue(vtS32, "1.234.567").get<s32_t>());
  EXPECT_EQ(0.5, textToValue(vtDouble, "0,5").get<double>());
  EXPECT_EQ(vtNull, textToValue(vtS32, "1.23.456").type());
}

}  // namespace
}  // namespace kivo_3_3::testing
