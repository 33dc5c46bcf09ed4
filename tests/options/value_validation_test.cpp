#include <gtest/gtest.h>

#include "options/make_option.h"
#include "support/console_capture.h"

namespace kivo_3_3::testing {
namespace {

// One option and the outcome of its last check.
class Validation : public ::testing::Test {
 protected:
  OptionDescription& option(variant_type_t type) {
    m_option = makeOption({"level", "l"}, type, &m_garbage);
    return m_option;
  }

  OptionDescription& speed() {
    option(vtString).allowValue("fast")->allowValue("faster")->allowValue("slow");
    return m_option;
  }

  OptionDescription& renamed() {
    option(vtString).allowValue("new")->allowDeprecatedValue("old", "new");
    return m_option;
  }

  bool check(const std::string& given) {
    const ConsoleCapture console;
    error = "untouched";
    m_given = given;
    std::string_view checked = m_given;
    const bool passed = m_option.validate(checked, value, true, error);
    text = checked;
    const bool isText = passed && value.can_get<const char*>();
    EXPECT_TRUE(!isText || value.get<const char*>() == checked.data());
    EXPECT_EQ("", console.out());
    warning = console.err();
    return passed;
  }

  // The text of an accepted value, with abbreviations completed, or "!" and the reason for a
  // refusal.
  std::string outcome(const std::string& given) {
    if (check(given)) {
      EXPECT_EQ("untouched", error);
      return text;
    }
    EXPECT_EQ(given, text);
    EXPECT_EQ("", warning);
    return "!" + error;
  }

  std::string text;
  variant_t value;
  std::string error;
  std::string warning;

 private:
  std::string m_given;  // accepted values may refer to this text
  Garbage m_garbage;
  OptionDescription m_option;
};

TEST_F(Validation, AValueThatIsNotAllowedIsAnsweredWithTheAllowedOnes) {
  option(vtS32).allowValue(1)->allowValue(2);
  EXPECT_EQ("!Option 'level' does not allow value '3'. Possible values follows: '1', '2'",
            outcome("3"));
}

TEST_F(Validation, AValueThatDoesNotConvertIsAnsweredWithTheType) {
  option(vtS32).allowValue(1)->allowValue(2);
  EXPECT_EQ("!Option 'level' can not parse 'x' value, requires a type 'integer' here.",
            outcome("x"));
}

TEST_F(Validation, TheTypeIsNamedAsTheUserKnowsIt) {
  const struct {
    variant_type_t type;
    const char* name;
  } cases[] = {
      {vtBool, "undefined"},
      {vtS32, "integer"},
      {vtU32, "unsigned integer"},
      {vtS64, "64 bit integer"},
      {vtU64, "unsigned 64 bit or hex"},
      {vtDouble, "double"},
      {vtNull, ""},
  };
  for (const auto& c : cases) {
    option(c.type);
    EXPECT_EQ("!Option 'level' can not parse 'x' value, requires a type '" + std::string(c.name) +
                  "' here.",
              outcome("x"));
  }
}

TEST_F(Validation, WithoutAllowedValuesWhateverConvertsIsAccepted) {
  option(vtS32);
  EXPECT_EQ(" 42 ", outcome(" 42 "));
  EXPECT_EQ(vtS32, value.type());
  EXPECT_EQ(42, value.get<s32_t>());
  option(vtString);
  EXPECT_EQ("", outcome(""));
  EXPECT_STREQ("", value.get<const char*>());
}

TEST_F(Validation, OnlyUnsigned64BitOptionsReadHexadecimal) {
  option(vtS32);
  EXPECT_EQ("!Option 'level' can not parse '0x10' value, requires a type 'integer' here.",
            outcome("0x10"));
  option(vtU64);
  EXPECT_EQ("0x10", outcome("0x10"));
  EXPECT_EQ(vtU64, value.type());
  EXPECT_EQ(16u, value.get<u64_t>());
}

TEST_F(Validation, AnAbbreviationIsCompleted) {
  speed();
  EXPECT_EQ("slow", outcome("slow"));
  EXPECT_EQ("slow", outcome("sl"));
  EXPECT_EQ(stratum2::vtStringReference, value.type());
  EXPECT_STREQ("slow", value.get<const char*>());
  EXPECT_EQ("faster", outcome("faste"));
}

TEST_F(Validation, ExactMatchWinsOverBeingAPrefix) {
  speed();
  EXPECT_EQ("fast", outcome("fast"));
  EXPECT_STREQ("fast", value.get<const char*>());
}

TEST_F(Validation, AnAbbreviationOfSeveralIsAmbiguous) {
  speed();
  EXPECT_EQ(
      "!Ambiguous value for option 'level'. Possible values follows: 'fast', 'faster', 'slow'",
      outcome("fa"));
  EXPECT_STREQ("faster", value.get<const char*>());
  EXPECT_EQ(
      "!Ambiguous value for option 'level'. Possible values follows: 'fast', 'faster', 'slow'",
      outcome(""));
  EXPECT_STREQ("slow", value.get<const char*>());
}

TEST_F(Validation, CaseMatters) {
  speed();
  EXPECT_EQ(
      "!Option 'level' does not allow value 'Fast'. Possible values follows: 'fast', 'faster', "
      "'slow'",
      outcome("Fast"));
}

TEST_F(Validation, OnlyTheBeginningOfAnAllowedValueIsAnAbbreviation) {
  speed();
  for (const char* given : {"low", "slower", " slow", "slow ", "s low"})
    EXPECT_EQ("!Option 'level' does not allow value '" + std::string(given) +
                  "'. Possible values follows: 'fast', 'faster', 'slow'",
              outcome(given));
}

TEST_F(Validation, TheEmptyTextIsAnAbbreviationOfEverything) {
  option(vtString).allowValue("only");
  EXPECT_EQ("only", outcome(""));
  EXPECT_STREQ("only", value.get<const char*>());
  option(vtString).allowValue("one")->allowValue("two");
  EXPECT_EQ("!Ambiguous value for option 'level'. Possible values follows: 'one', 'two'",
            outcome(""));
}

TEST_F(Validation, TheEmptyTextIsExactWhereItIsAllowed) {
  option(vtString).allowValue("one")->allowValue("")->allowValue("two");
  EXPECT_EQ("", outcome(""));
  EXPECT_STREQ("", value.get<const char*>());
}

TEST_F(Validation, AValueThatIsAllowedTwiceMakesItsAbbreviationAmbiguous) {
  option(vtString).allowValue("slow")->allowValue("slow");
  EXPECT_EQ("slow", outcome("slow"));
  EXPECT_EQ("!Ambiguous value for option 'level'. Possible values follows: 'slow', 'slow'",
            outcome("sl"));
}

TEST_F(Validation, NumbersAreNotAbbreviated) {
  option(vtS32).allowValue(10)->allowValue(20);
  EXPECT_EQ("!Option 'level' does not allow value '1'. Possible values follows: '10', '20'",
            outcome("1"));
}

TEST_F(Validation, NumbersAreComparedByValue) {
  option(vtS32).allowValue(10)->allowValue(20ull)->allowValue(30.0);
  EXPECT_EQ(" 010", outcome(" 010"));
  EXPECT_EQ(10, value.get<s32_t>());
  EXPECT_EQ("20", outcome("20"));
  EXPECT_EQ("30", outcome("30"));
  option(vtDouble).allowValue(1)->allowValue(0.5);
  EXPECT_EQ("1.0", outcome("1.0"));
  EXPECT_EQ("5e-1", outcome("5e-1"));
}

TEST_F(Validation, TheListShowsValuesInTheDeclaredType) {
  option(vtU64).allowValue(0x10ull)->allowValue(true);
  EXPECT_EQ("!Option 'level' does not allow value '0x11'. Possible values follows: '16', '1'",
            outcome("0x11"));
  option(vtDouble).allowValue(0.1)->allowValue(1234567.0)->allowValue(2);
  EXPECT_EQ(
      "!Option 'level' does not allow value '7'. Possible values follows: '0.1', '1.23457e+06', "
      "'2'",
      outcome("7"));
}

TEST_F(Validation, AListOfOneHasNoComma) {
  option(vtS32).allowValue(1);
  EXPECT_EQ("!Option 'level' does not allow value '2'. Possible values follows: '1'", outcome("2"));
}

TEST_F(Validation, EmptyTextsKeepTheirPlaceInTheList) {
  option(vtString).allowValue("")->allowValue("")->allowValue("a");
  EXPECT_EQ("!Option 'level' does not allow value 'b'. Possible values follows: '', '', 'a'",
            outcome("b"));
}

TEST_F(Validation, ADeprecatedValueIsAcceptedAsWrittenWithAWarning) {
  renamed();
  EXPECT_EQ("old", outcome("old"));
  EXPECT_EQ(
      "Warning: 'old' argument is deprecated for the option '-level'. Use the 'new' argument "
      "instead.\n",
      warning);
  EXPECT_STREQ("old", value.get<const char*>());
}

TEST_F(Validation, ADeprecatedValueMayBeAbbreviated) {
  renamed();
  EXPECT_EQ("old", outcome("ol"));
  EXPECT_EQ(
      "Warning: 'old' argument is deprecated for the option '-level'. Use the 'new' argument "
      "instead.\n",
      warning);
  EXPECT_STREQ("old", value.get<const char*>());
}

TEST_F(Validation, TheWarningComesEveryTime) {
  renamed();
  for (int time = 0; time < 3; ++time) {
    outcome("old");
    EXPECT_NE("", warning);
  }
}

TEST_F(Validation, AnAllowedValueDrawsNoWarning) {
  renamed();
  EXPECT_EQ("new", outcome("new"));
  EXPECT_EQ("", warning);
  EXPECT_EQ("new", outcome("n"));
  EXPECT_EQ("", warning);
}

TEST_F(Validation, AValueBothAllowedAndDeprecatedDrawsTheWarning) {
  renamed().allowValue("old");
  EXPECT_EQ("old", outcome("old"));
  EXPECT_NE("", warning);
}

TEST_F(Validation, DeprecatedValuesAreNotListed) {
  renamed();
  EXPECT_EQ("!Option 'level' does not allow value 'x'. Possible values follows: 'new'",
            outcome("x"));
  EXPECT_EQ("!Ambiguous value for option 'level'. Possible values follows: 'new'", outcome(""));
}

TEST_F(Validation, DeprecatedValuesAreComparedAfterTheAllowedOnesAndMakeAnAbbreviationAmbiguous) {
  option(vtString).allowValue("slow")->allowDeprecatedValue("sleepy", "slow");
  EXPECT_EQ("!Ambiguous value for option 'level'. Possible values follows: 'slow'", outcome("sl"));
  EXPECT_STREQ("sleepy", value.get<const char*>());
}

TEST_F(Validation, WithoutAllowedValuesNothingIsDeprecated) {
  option(vtString).allowDeprecatedValue("old", "new");
  EXPECT_EQ("old", outcome("old"));
  EXPECT_EQ("", warning);
  EXPECT_EQ("ol", outcome("ol"));
  EXPECT_EQ("", warning);
  EXPECT_EQ("anything", outcome("anything"));
}

TEST_F(Validation, ANumberMayBeDeprecated) {
  option(vtS32).allowValue(2)->allowDeprecatedValue(1, "2");
  EXPECT_EQ("01", outcome("01"));
  EXPECT_EQ(
      "Warning: '01' argument is deprecated for the option '-level'. Use the '2' argument "
      "instead.\n",
      warning);
  EXPECT_EQ(1, value.get<s32_t>());
}

TEST_F(Validation, AReplacementThatIsNoTextReadsAsTheEmptyOne) {
  option(vtS32).allowValue(2)->allowDeprecatedValue(1, 2);
  EXPECT_EQ("1", outcome("1"));
  EXPECT_EQ(
      "Warning: '1' argument is deprecated for the option '-level'. Use the '' argument instead.\n",
      warning);
}

TEST_F(Validation, ACandidateThatIsNoTextReadsAsTheEmptyOne) {
  option(vtString).allowValue("a")->allowDeprecatedValue(7, "a");
  EXPECT_EQ("a", outcome("a"));
  EXPECT_EQ("!Ambiguous value for option 'level'. Possible values follows: 'a'", outcome(""));
  EXPECT_EQ("!Option 'level' does not allow value '7'. Possible values follows: 'a'", outcome("7"));
}

TEST_F(Validation, EveryMessageNamesTheOptionByItsFirstName) {
  option(vtS32).synonym("zz");
  EXPECT_EQ("!Option 'level' can not parse '' value, requires a type 'integer' here.", outcome(""));
}

TEST_F(Validation, TheEmptyTextIsNoNumberAndNothingIsThrown) {
  for (const variant_type_t type : {vtBool, vtS32, vtU32, vtS64, vtU64, vtDouble}) {
    const std::string name = option(type).getTypeName();
    SCOPED_TRACE(name);
    bool passed = true;
    EXPECT_NO_THROW(passed = check(""));
    EXPECT_FALSE(passed);
    EXPECT_EQ("Option 'level' can not parse '' value, requires a type '" + name + "' here.", error);
  }
}

TEST_F(Validation, NothingIsWrittenForARefusal) {
  renamed();
  EXPECT_FALSE(check("x"));
  EXPECT_EQ("", warning);
}

}  // namespace
}  // namespace kivo_3_3::testing
