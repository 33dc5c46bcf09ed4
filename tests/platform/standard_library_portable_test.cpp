// The counterpart for any standard library, which is not in the library that is tested.

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
