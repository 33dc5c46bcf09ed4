#include "bedrock/console.h"

#include <gtest/gtest.h>

#include "support/console_capture.h"

namespace kivo_3_3::testing {
namespace {

TEST(Console, UcoutIsStandardOutput) {
  const ConsoleCapture console;
  BEDROCK::ucout << "told " << 1 << std::endl;
  EXPECT_EQ("told 1\n", console.out());
  EXPECT_EQ("", console.err());
}

TEST(Console, UcerrIsStandardError) {
  const ConsoleCapture console;
  BEDROCK::ucerr << "warned " << 2 << std::endl;
  EXPECT_EQ("", console.out());
  EXPECT_EQ("warned 2\n", console.err());
}

}  // namespace
}  // namespace kivo_3_3::testing
