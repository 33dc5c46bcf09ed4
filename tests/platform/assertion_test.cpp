#include "bedrock/assertion.h"

#include <gtest/gtest.h>

#include <csignal>
#include <stdexcept>

#include "support/assertion_recorder.h"

namespace kivo_3_3::testing {
namespace {

using BEDROCK::assertion_failed;
using BEDROCK::assertion_handler_t;
using BEDROCK::set_assertion_handler;

void ignore(const char*, const char*, int) {}

void raise(const char* expression, const char*, int) { throw std::logic_error(expression); }

// Begins with the default handler, and restores the former one at the end.
class Assertion : public ::testing::Test {
 protected:
  Assertion() : m_before(set_assertion_handler(nullptr)) {}
  ~Assertion() override { set_assertion_handler(m_before); }

 private:
  assertion_handler_t m_before;
};

using AssertionDeathTest = Assertion;

TEST_F(Assertion, TheHandlerReceivesExpressionFileAndLine) {
  const AssertionRecorder recorder;
  assertion_failed("1 == 2", "sums.cpp", 17);
  ASSERT_EQ(1u, recorder.records().size());
  EXPECT_EQ("1 == 2", recorder.records()[0].expression);
  EXPECT_EQ("sums.cpp", recorder.records()[0].file);
  EXPECT_EQ(17, recorder.records()[0].line);
}

TEST_F(Assertion, InstallingReturnsTheHandlerThatIsReplaced) {
  set_assertion_handler(ignore);
  EXPECT_EQ(&ignore, set_assertion_handler(raise));
  EXPECT_EQ(&raise, set_assertion_handler(ignore));
}

TEST_F(Assertion, NullBringsBackTheDefault) {
  const assertion_handler_t standard = set_assertion_handler(ignore);
  ASSERT_NE(nullptr, standard);
  set_assertion_handler(nullptr);
  EXPECT_EQ(standard, set_assertion_handler(ignore));
}

TEST_F(Assertion, AHandlerMayThrow) {
  set_assertion_handler(raise);
  EXPECT_THROW(assertion_failed("1 == 2", "sums.cpp", 17), std::logic_error);
}

TEST_F(Assertion, AHandlerMayReturn) {
  set_assertion_handler(ignore);
  EXPECT_NO_THROW(assertion_failed("1 == 2", "sums.cpp", 17));
}

TEST_F(AssertionDeathTest, TheDefaultWritesOneLineAndAborts) {
  EXPECT_EXIT(assertion_failed("1 == 2", "sums.cpp", 17), ::testing::KilledBySignal(SIGABRT),
              "^Assertion failed: 1 == 2, file sums.cpp, line 17\n$");
}

}  // namespace
}  // namespace kivo_3_3::testing
