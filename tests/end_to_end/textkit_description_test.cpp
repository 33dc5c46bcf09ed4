#include "support/golden_file.h"
#include "textkit_fixture.h"

// The description that textkit gives of itself.

namespace end_to_end {
namespace {

constexpr const char* describeSwitch = "kivooption=kivodescribe=json";

class TextkitDescription : public Textkit {};

TEST_F(TextkitDescription, IsAllOfTheOutput) {
  const Outcome outcome = textkit({describeSwitch});
  EXPECT_EQ(0, outcome.status);
  EXPECT_EQ("", outcome.err);
  kivo_3_3::testing::compareWithFile(DESCRIPTION_FOLDER "/textkit.json", outcome.out);
}

TEST_F(TextkitDescription, FurtherArgumentsAreNotLookedAt) {
  const Outcome alone = textkit({describeSwitch});
  EXPECT_EQ(alone, textkit({describeSwitch, "-zz", "--"}));
}

TEST_F(TextkitDescription, DependsOnNothingButTheDeclarations) {
  const Outcome alone = textkit({describeSwitch});
  EXPECT_EQ(alone, textkitAfter("export LC_ALL=de_DE.UTF-8 COLUMNS=20 TERM=dumb TZ=Asia/Tokyo",
                                {describeSwitch}));
}

TEST_F(TextkitDescription, IsAnArgumentLikeOthersInAnyOtherPlace) {
  const Outcome outcome = textkit({"-count", describeSwitch});
  EXPECT_EQ(10, outcome.status);
  EXPECT_EQ("", outcome.out);
}

TEST_F(TextkitDescription, EndsWithOneIfItCannotBeWritten) {
  EXPECT_EQ((Outcome{1, "", ""}), textkitAfter("exec >/dev/full", {describeSwitch}));
  EXPECT_EQ((Outcome{1, "", ""}), textkitAfter("exec >&-", {describeSwitch}));
}

}  // namespace
}  // namespace end_to_end
