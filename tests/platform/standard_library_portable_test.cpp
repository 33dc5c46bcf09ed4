// Tests the implementation for any standard library. The library under test contains another one,
// so this program compiles the portable one itself.

#include <gtest/gtest.h>

#include <iostream>

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

}  // namespace
}  // namespace kivo_3_3::testing
