// Tests the implementation for any standard library. The library under test contains another one,
// so this program compiles the portable one itself.

#include <gtest/gtest.h>

#include <iostream>
#include <locale>
#include <string>
#include <string_view>

#include "bedrock/standard_library.h"

namespace kivo_3_3::testing {
namespace {

TEST(PortableStandardLibrary, GivesTheStandardStreams) {
  EXPECT_EQ(&std::cout, &BEDROCK::standardOutput());
  EXPECT_EQ(&std::cerr, &BEDROCK::standardError());
}

TEST(PortableStandardLibrary, IsNeverCertainThatThereIsNoLocale) {
  EXPECT_FALSE(BEDROCK::hasNoLocaleYet());
}

double read(std::string_view digits) {
  return BEDROCK::readDouble(digits.data(), digits.data() + digits.size());
}

class DecimalComma : public std::numpunct<char> {
  char do_decimal_point() const override { return ','; }
  char do_thousands_sep() const override { return '.'; }
  std::string do_grouping() const override { return "\3"; }
};

TEST(PortableStandardLibrary, ReadsNumbersInTheClassicLocale) {
  const std::locale former = std::locale::global(std::locale(std::locale(), new DecimalComma));
  EXPECT_EQ(0.0, read("0"));
  EXPECT_EQ(-1.5, read("-1.5"));
  EXPECT_EQ(1234567.0, read("1234567."));
  EXPECT_EQ(0.1, read("0.1"));
  EXPECT_EQ(9007199254740993.0, read("9007199254740993"));
  EXPECT_EQ(12.0, read(std::string_view("123").substr(0, 2)));
  std::locale::global(former);
}

}  // namespace
}  // namespace kivo_3_3::testing
