#include <limits>
#include <sstream>
#include <string>

#include "tried.h"

// Each numeric type at the ends of what it can hold, and just beyond.

namespace kivo_3_3 {
namespace {

// What the variable holds after "--n=TEXT", exactly, or what is printed instead.
template <class T>
std::string exactly(T number) {
  std::ostringstream out;
  out.precision(std::numeric_limits<T>::max_digits10);
  out << +number;
  return out.str();
}
template <class T>
std::string taken(const std::string& text) {
  T number{};
  Tried tool;
  tool.option("n", number, "");
  return tool.run({("--n=" + text).c_str()}) == -1 ? exactly(number) : tool.err;
}

// The same for an operand.
template <class T>
std::string takenAsOperand(const std::string& text) {
  T number{};
  Tried tool;
  tool.operand("n", number, "");
  if (tool.run({"--", text.c_str()}) != -1)
    return tool.err;
  return std::to_string(number);
}

struct Limits {
  const char *below, *lowest, *highest, *above;
};

std::string refused(const std::string& text, const Limits& limits) {
  return "Option 'n' does not take '" + text + "', expected: " + limits.lowest + " to " +
         limits.highest + "\n";
}

template <class T>
void keepsTo(const Limits& limits) {
  SCOPED_TRACE(limits.above);
  EXPECT_EQ(limits.lowest, taken<T>(limits.lowest));
  EXPECT_EQ(limits.highest, taken<T>(limits.highest));
  EXPECT_EQ(limits.lowest, takenAsOperand<T>(limits.lowest));
  EXPECT_EQ(limits.highest, takenAsOperand<T>(limits.highest));
  for (const char* text : {limits.below, limits.above}) {
    EXPECT_EQ(0U, taken<T>(text).find("tool: ")) << text;
    EXPECT_EQ("tool: Operand 'n' does not take '" + std::string(text) + "', expected: " +
                  limits.lowest + " to " + limits.highest + "\nTry 'tool --help'.\n",
              takenAsOperand<T>(text));
  }
}

TEST(ToolLimits, OfIntegersAreTakenAndNothingBeyond) {
  keepsTo<signed char>({"-129", "-128", "127", "128"});
  keepsTo<unsigned char>({"-1", "0", "255", "256"});
  keepsTo<short>({"-32769", "-32768", "32767", "32768"});
  keepsTo<unsigned short>({"-1", "0", "65535", "65536"});
  const Limits narrow = {"-2147483649", "-2147483648", "2147483647", "2147483648"};
  keepsTo<int>(narrow);
  const Limits narrowNatural = {"-1", "0", "4294967295", "4294967296"};
  keepsTo<unsigned int>(narrowNatural);
  const Limits wide = {"-9223372036854775809", "-9223372036854775808", "9223372036854775807",
                       "9223372036854775808"};
  keepsTo<long>(sizeof(long) == sizeof(int) ? narrow : wide);
  keepsTo<long long>(wide);
  const Limits natural = {"-1", "0", "18446744073709551615", "18446744073709551616"};
  keepsTo<unsigned long>(sizeof(long) == sizeof(int) ? narrowNatural : natural);
  keepsTo<unsigned long long>(natural);
}

TEST(ToolLimits, OfFloatingPointTypesAreTakenAndNothingBeyond) {
  EXPECT_EQ("3.40282347e+38", taken<float>("3.40282347e+38"));
  EXPECT_EQ("-3.40282347e+38", taken<float>("-3.40282347e+38"));
  EXPECT_NE(std::string::npos, taken<float>("3.5e38").find(
                                   refused("3.5e38", {"", "-3.40282e+38", "3.40282e+38", ""})));
  EXPECT_EQ("1.7976931348623157e+308", taken<double>("1.7976931348623157e308"));
  EXPECT_EQ("-1.7976931348623157e+308", taken<double>("-1.7976931348623157e308"));
  EXPECT_EQ(0U, taken<double>("1.8e308").find("tool: "));
  // Of 64, 80 or 128 bits, as the processor has it.
  const std::string largest = exactly(std::numeric_limits<long double>::max());
  EXPECT_EQ(largest, taken<long double>(largest));
  EXPECT_EQ(0U, taken<long double>("9" + largest).find("tool: "));
}

TEST(ToolLimits, ASmallNumberBecomesTheNearestOne) {
  EXPECT_EQ("1.40129846e-45", taken<float>("1.5e-45"));
  EXPECT_EQ("0", taken<float>("1e-60"));
#ifdef __GLIBCXX__  // the streams of others refuse numbers that are not normalised
  EXPECT_EQ("4.9406564584124654e-324", taken<double>("4.9e-324"));
#endif
}

TEST(ToolLimits, WhatIsNoFiniteNumberIsRefused) {
  for (const char* text : {"inf", "-inf", "infinity", "nan", "1e", ".", "-", "1e400000"}) {
    for (const std::string& printed :
         {taken<float>(text), taken<double>(text), taken<long double>(text)})
      EXPECT_EQ(0U, printed.find("tool: ")) << text << " is " << printed;
  }
#ifdef __GLIBCXX__  // the streams of others read hexadecimal numbers
  EXPECT_EQ(0U, taken<float>("0x1p3").find("tool: "));
  EXPECT_EQ(0U, taken<double>("0x1p3").find("tool: "));
  EXPECT_EQ(0U, taken<long double>("0x1p3").find("tool: "));
#endif
}

TEST(ToolLimits, ManyDigitsAreRefusedOrRounded) {
  const std::string nines(100'000, '9');
  EXPECT_EQ(0U, taken<int>(nines).find("tool: "));
  EXPECT_EQ(0U, taken<unsigned long>(nines).find("tool: "));
  EXPECT_EQ(0U, taken<double>(nines).find("tool: "));
  const std::string zeros(100'000, '0');
  EXPECT_EQ("7", taken<int>(zeros + '7'));
  EXPECT_EQ("7", taken<unsigned long>(zeros + '7'));
  EXPECT_EQ("7", taken<long double>(zeros + '7'));
  EXPECT_EQ("0.10000000000000001", taken<double>("0.1" + zeros));
}

TEST(ToolLimits, ACharIsAnyByte) {
  for (int byte = 1; byte < 256; ++byte) {
    const char text[] = {static_cast<char>(byte), '\0'};
    char letter = '\0';
    Tried tool;
    tool.operand("letter", letter, "");
    EXPECT_EQ(-1, tool.run({"--", text})) << byte << tool.err;
    EXPECT_EQ(text[0], letter);
  }
}

TEST(ToolLimits, ARangeMayReachToTheEndsOfTheType) {
  long long wide = 0;
  unsigned long long natural = 0;
  Tried tool;
  tool.option("wide", wide, "")
      .range(std::numeric_limits<long long>::min(), std::numeric_limits<long long>::max());
  tool.option("natural", natural, "").range(1, std::numeric_limits<unsigned long long>::max());
  EXPECT_EQ(2, tool.run({"--wide=-9223372036854775808", "--natural=0"}));
  EXPECT_EQ(
      "tool: Option 'natural' does not take '0', expected: 1 to 18446744073709551615\n"
      "Try 'tool --help'.\n",
      tool.err);
}

TEST(ToolLimits, ANumberOutsideOfTheTypeIsAnsweredWithTheRange) {
  unsigned int times = 1;
  signed char small = 1;
  for (const char* const given : {"--times=-1", "--times=0", "--times=101"}) {
    Tried tool;
    tool.option("times", times, "").range(1, 100);
    EXPECT_EQ(2, tool.run({given}));
    EXPECT_EQ("tool: Option 'times' does not take '" + std::string(given).substr(8) +
                  "', expected: 1 to 100\nTry 'tool --help'.\n",
              tool.err);
  }
  Tried tool;
  tool.operand("small", small, "").range(1, 9);
  EXPECT_EQ(2, tool.run({"many"}));
  EXPECT_EQ("tool: Operand 'small' does not take 'many', expected: 1 to 9\nTry 'tool --help'.\n",
            tool.err);
}

}  // namespace
}  // namespace kivo_3_3
