// Every parse converts a default to text in the global locale of that time.

#include <gtest/gtest.h>

#include <cstring>
#include <stdexcept>

#include "bedrock/assertion.h"
#include "support/assertion_recorder.h"
#include "support/command.h"
#include "support/global_locale.h"

namespace kivo_3_3 {

namespace {

using std::string;
using testing::AssertionRecorder;
using testing::Command;
using testing::GlobalLocale;
using testing::localeWithDecimalComma;

IParseResult& resultOf(Command& command) { return command.result(); }

TEST(DefaultText, FollowsTheLocaleOfTheParse) {
  Command command;
  command.parser().option("n", "Many.", vtS32)->defaultValue(1234567);
  const auto text = [&] {
    EXPECT_EQ(0, command.parse({}));
    return string(resultOf(command).get("n").text);
  };
  EXPECT_EQ("1234567", text());
  {
    const GlobalLocale comma(localeWithDecimalComma());
    EXPECT_EQ("1.234.567", text());
    EXPECT_STREQ("-n=<integer> (1.234.567)      Many.\n",
                 command.parser().getDescription("n", false));
  }
  EXPECT_EQ("1234567", text());
}

TEST(DefaultText, IsThatOfTheLatestParseIntoTheResult) {
  Command command;
  command.option("n", vtDouble)->defaultValue(1.5);
  command.option("m", vtS32);
  command.parse({});
  EXPECT_STREQ("1.5", resultOf(command).get("n").text);
  const GlobalLocale comma(localeWithDecimalComma());
  EXPECT_STREQ("1.5", resultOf(command).get("n").text);
  command.parseMore({});
  EXPECT_STREQ("1,5", resultOf(command).get("n").text);
}

TEST(DefaultText, OfAReferenceIsTheTextThatItRefersToAtTheParse) {
  char buffer[] = "old";
  Command command;
  command.option("n", vtString)->defaultValue(variant_t(buffer, true));
  EXPECT_EQ("n(old)@+1", command.parsed({}));
  std::strcpy(buffer, "new");
  EXPECT_EQ("n(new)@+1", command.parsed({}));
  EXPECT_STREQ("new", resultOf(command).get("n").value.get<const char*>());
}

TEST(DefaultText, ThatAnOptionCannotReadIsReportedAtEachParseForEachName) {
  Command command;
  command.option("n,m", vtS32)->defaultValue("no number");
  for (int parse = 0; parse < 3; ++parse) {
    const AssertionRecorder assertions;
    EXPECT_EQ("n(0)@+1", command.parsed({}));
    EXPECT_EQ("can_get<T>(); can_get<T>()", assertions.expressions());
    EXPECT_EQ(2, command.positionsDrawn());
  }
}

void throwError(const char*, const char*, int) { throw std::runtime_error("from a handler"); }

// Makes failed assertions throw until this object is destroyed.
class ThrowingAssertions {
 public:
  ThrowingAssertions() : m_previous(BEDROCK::set_assertion_handler(throwError)) {}
  ThrowingAssertions(const ThrowingAssertions&) = delete;
  ThrowingAssertions& operator=(const ThrowingAssertions&) = delete;
  ~ThrowingAssertions() { BEDROCK::set_assertion_handler(m_previous); }

 private:
  BEDROCK::assertion_handler_t m_previous;
};

TEST(DefaultText, ThatRaisesEndsTheParseAfterTheDefaultsBeforeIt) {
  Command command;
  command.option("a,b", vtS32)->defaultValue(1);
  command.option("bad", vtS32)->defaultValue("no number");
  command.option("c", vtS32)->defaultValue(2);
  const ThrowingAssertions assertions;
  EXPECT_EQ(3, command.parse({"--c=3"}));
  EXPECT_EQ(2, command.positionsDrawn());
  EXPECT_STREQ("1", resultOf(command).get("a").text);
  EXPECT_STREQ("1", resultOf(command).get("b").text);
  EXPECT_FALSE(resultOf(command).present("bad"));
  EXPECT_FALSE(resultOf(command).present("c"));
  // The name is stored before its default is converted, so the name is known although the
  // conversion failed.
  EXPECT_EQ(0, command.result().options().findDefault("bad")->position);
}

TEST(DefaultText, OfAnOptionWithoutNamesEndsTheParseAfterTheDefaultsBeforeIt) {
  Command command;
  command.option("a", vtS32)->defaultValue(1);
  command.option("", vtS32)->defaultValue(1);
  command.option("c", vtS32)->defaultValue(2);
  EXPECT_EQ(3, command.parse({}));
  EXPECT_EQ("a(1)@+1", command.render());
}

}  // namespace

}  // namespace kivo_3_3
