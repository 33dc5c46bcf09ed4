#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <limits>
#include <optional>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "support/assertion_recorder.h"
#include "support/global_locale.h"
#include "tried.h"

// The types of variables, what each of them receives and what it refuses.

namespace shop {

struct Weight {
  int grams = 0;
};
const char* parseValue(const char* text, Weight& weight) {
  const std::string_view given = text;
  if (given.size() < 2 || given.back() != 'g')
    return "a weight such as 20g";
  weight.grams = std::stoi(text);
  return nullptr;
}
std::string formatValue(const Weight& weight) { return std::to_string(weight.grams) + "g"; }

enum class Coin { penny, crown };
std::string parseValue(const char* text, Coin& coin) {
  coin = *text == 'c' ? Coin::crown : Coin::penny;
  return *text == 'c' || *text == 'p' ? "" : "penny or crown";
}

}  // namespace shop

namespace kivo_3_3 {
namespace {

enum class Method { fast = 3, small = 7 };
enum Plain : unsigned char { low = 1, high = 200 };
enum class Door : bool { closed, open };

// What a variable of the type holds after "--n=TEXT", or what is printed instead.
template <class T>
std::string taken(const std::string& text) {
  T number{};
  Tried tool;
  tool.option("n", number, "");
  if (tool.run({("--n=" + text).c_str()}) != -1)
    return tool.err;
  std::ostringstream out;
  out << +number;
  return out.str();
}

std::string refused(const std::string& reason) {
  return "tool: " + reason + "\nTry 'tool --help'.\n";
}

std::string outside(const std::string& text, const std::string& limits) {
  return refused("Option 'n' does not take '" + text + "', expected: " + limits);
}

template <class T>
void takesItsLimits() {
  using Limits = std::numeric_limits<T>;
  SCOPED_TRACE(Limits::digits);
  const std::string lowest = std::to_string(Limits::lowest());
  const std::string highest = std::to_string(Limits::max());
  EXPECT_EQ(lowest, taken<T>(lowest));
  EXPECT_EQ(highest, taken<T>(highest));
  EXPECT_EQ(0U, taken<T>(highest + "0").find("tool: "));
}

TEST(ToolVariables, EveryIntegerTypeTakesItsLimitsAndNothingBeyond) {
  takesItsLimits<signed char>();
  takesItsLimits<unsigned char>();
  takesItsLimits<short>();
  takesItsLimits<unsigned short>();
  takesItsLimits<int>();
  takesItsLimits<unsigned int>();
  takesItsLimits<long>();
  takesItsLimits<unsigned long>();
  takesItsLimits<long long>();
  takesItsLimits<unsigned long long>();
}

TEST(ToolVariables, ANumberOutsideOfItsTypeIsRefusedWithTheLimits) {
  EXPECT_EQ(outside("128", "-128 to 127"), taken<signed char>("128"));
  EXPECT_EQ(outside("-129", "-128 to 127"), taken<signed char>("-129"));
  EXPECT_EQ(outside("256", "0 to 255"), taken<unsigned char>("256"));
  EXPECT_EQ(outside("-32769", "-32768 to 32767"), taken<short>("-32769"));
  EXPECT_EQ(outside("65536", "0 to 65535"), taken<unsigned short>("65536"));
  EXPECT_EQ(outside("1e39", "-3.40282e+38 to 3.40282e+38"), taken<float>("1e39"));
  if (hasLongDouble) {
    EXPECT_EQ(outside("1e5000", "-1.18973e+4932 to 1.18973e+4932"), taken<long double>("1e5000"));
  }
  EXPECT_EQ(
      refused("Value validation problem in argument '--n=1e999': Option 'n' can not parse '1e999'"
              " value, requires a type 'double' here."),
      taken<double>("1e999"));
}

TEST(ToolVariables, ANegativeNumberIsRefusedForAnUnsignedType) {
  EXPECT_EQ(outside("-1", "0 to 255"), taken<unsigned char>("-1"));
  EXPECT_EQ(outside("-1", "0 to 65535"), taken<unsigned short>("-1"));
  EXPECT_EQ(outside("-1", "0 to 4294967295"), taken<unsigned int>("-1"));
  EXPECT_EQ(outside("-1", "0 to 18446744073709551615"), taken<std::uint64_t>("-1"));
  EXPECT_EQ(outside(" -1", "0 to 18446744073709551615"), taken<unsigned long long>(" -1"));
}

TEST(ToolVariables, ANegativeZeroIsZeroForEveryType) {
  EXPECT_EQ("0", taken<unsigned char>("-0"));
  EXPECT_EQ("0", taken<unsigned short>("-0"));
  EXPECT_EQ("0", taken<unsigned int>("-0"));
  EXPECT_EQ("0", taken<unsigned long>("-0"));
  EXPECT_EQ("0", taken<unsigned long long>("-00"));
  EXPECT_EQ("0", taken<int>("-0"));
  EXPECT_EQ("-0", taken<double>("-0"));
}

// Where a sign is read as a number modulo a power of two, these come to small numbers.
TEST(ToolVariables, ANegativeNumberThatWrapsAroundIsRefused) {
  const char* const negative[] = {"-256",
                                  "-65280",
                                  "-65536",
                                  "-4294967295",
                                  "-4294967296",
                                  "-18446744073709551615",
                                  "-18446744073709551616"};
  for (const char* text : negative) {
    for (const std::string& printed :
         {taken<unsigned char>(text), taken<unsigned short>(text), taken<unsigned int>(text),
          taken<unsigned long>(text), taken<unsigned long long>(text)})
      EXPECT_EQ(0U, printed.find("tool: ")) << text << " is " << printed;
  }
}

TEST(ToolVariables, LettersAfterANumberAreRefused) {
  const auto wrong = [](const char* type) {
    return refused(
        "Value validation problem in argument '--n=12ab': Option 'n' can not parse"
        " '12ab' value, requires a type '" +
        std::string(type) + "' here.");
  };
  EXPECT_EQ(wrong("integer"), taken<signed char>("12ab"));
  EXPECT_EQ(wrong("integer"), taken<int>("12ab"));
  EXPECT_EQ(wrong("unsigned integer"), taken<unsigned int>("12ab"));
  EXPECT_EQ(wrong("64 bit integer"), taken<long long>("12ab"));
  EXPECT_EQ(wrong("double"), taken<double>("12ab"));
  if (hasLongDouble) {
    EXPECT_EQ(outside("12ab", "-1.18973e+4932 to 1.18973e+4932"), taken<long double>("12ab"));
  }
  EXPECT_EQ(outside("12ab", "0 to 18446744073709551615"), taken<std::uint64_t>("12ab"));
  EXPECT_EQ(outside("12.0", "0 to 18446744073709551615"), taken<unsigned long long>("12.0"));
}

TEST(ToolVariables, HexadecimalNumbersCountForUnsignedOnesOf64BitsAlone) {
  for (const char* text : {"0x1F", "0X1f", "1Fh", "1fH"}) {
    SCOPED_TRACE(text);
    EXPECT_EQ("31", taken<unsigned long long>(text));
    std::vector<std::string> all = {taken<long long>(text), taken<unsigned int>(text),
                                    taken<int>(text), taken<unsigned char>(text)};
#ifdef __GLIBCXX__  // the streams of others read hexadecimal numbers
    all.insert(all.end(), {taken<double>(text), taken<long double>(text)});
#endif
    for (const std::string& printed : all)
      EXPECT_EQ(0U, printed.find("tool: ")) << printed;
  }
  EXPECT_EQ("18446744073709551615", taken<std::uint64_t>("0xFFFFFFFFFFFFFFFF"));
  EXPECT_EQ(0U, taken<std::uint64_t>("0x1FFFFFFFFFFFFFFFF").find("tool: "));
  EXPECT_EQ(0U, taken<std::uint64_t>("0x").find("tool: "));
  EXPECT_EQ(0U, taken<std::uint64_t>("h").find("tool: "));
  EXPECT_EQ(0U, taken<std::uint64_t>("0x1G").find("tool: "));
}

TEST(ToolVariables, SpaceAroundANumberAndAPlusCountForNothing) {
  EXPECT_EQ("12", taken<int>(" 12 "));
  EXPECT_EQ("12", taken<unsigned long>("+12 "));
  EXPECT_EQ("0.5", taken<long double>(" 0.5 "));
}

TEST(ToolVariables, FloatingPointTypesKeepTheirDigits) {
  float single = 0;
  double twice = 0;
  long double most = 0;
  Tried tool;
  tool.option("single", single, "");
  tool.option("twice", twice, "");
  tool.option("most", most, "");
  EXPECT_EQ(-1, tool.run({"--single=0.1", "--twice=-1.5e300", "--most=0.1"}));
  EXPECT_EQ(0.1F, single);
  EXPECT_EQ(-1.5e300, twice);
  EXPECT_EQ(0.1L, most);
  if (hasLongDouble) {
    EXPECT_EQ("1e+400", taken<long double>("1e400"));
  }
}

TEST(ToolVariables, NumbersFollowTheGlobalLocale) {
  const testing::GlobalLocale locale(testing::localeWithDecimalComma());
  unsigned long long wide = 0;
  long double most = 0;
  double real = 0;
  int whole = 0;
  Tried tool;
  tool.option("wide", wide, "");
  tool.option("most", most, "");
  tool.option("real", real, "");
  tool.operand("whole", whole, "");
  EXPECT_EQ(-1, tool.run({"--wide=1.234", "--most=2,5", "--real=1.000,25", "1.234.567"}));
  EXPECT_EQ(1234U, wide);
  EXPECT_EQ(2.5L, most);
  EXPECT_EQ(1000.25, real);
  EXPECT_EQ(1234567, whole);
}

TEST(ToolVariables, TextsOfTheLayerIgnoreTheGlobalLocale) {
  const testing::GlobalLocale locale(testing::localeWithDecimalComma());
  double real = 1234.5;
  long whole = 1234567;
  Tried tool;
  tool.option("real", real, "Real.").range(0.5, 2000);
  tool.option("whole", whole, "Whole.");
  EXPECT_EQ(
      "Usage: tool [OPTION]...\n\nTries a tool.\n\nOptions:\n"
      "      --real=REAL    Real. From 0.5 to 2000. Default: 1234.5.\n"
      "      --whole=WHOLE  Whole. Default: 1234567.\n"
      "  -h, --help         Show this help.\n"
      "  -V, --version      Show the version.\n",
      tool.help());
  EXPECT_EQ(2, tool.run({"--real=2000,5"}));
  EXPECT_EQ(refused("Option 'real' does not take '2000,5', expected: 0.5 to 2000"), tool.err);
}

TEST(ToolVariables, ABooleanIsTurnedOnAndOff) {
  bool color = true;
  bool wide = false;
  std::optional<bool> maybe;
  std::optional<bool> never;
  Tried tool;
  tool.option("color", color, "");
  tool.option("wide,w", wide, "");
  tool.option("maybe", maybe, "");
  tool.option("never", never, "");
  EXPECT_EQ(-1, tool.run({"--no-color", "-w", "--no-maybe"}));
  EXPECT_FALSE(color);
  EXPECT_TRUE(wide);
  EXPECT_EQ(std::optional<bool>(false), maybe);
  EXPECT_EQ(std::nullopt, never);
}

TEST(ToolVariables, ACharIsOneCharacterAndTheOtherTwoAreNumbers) {
  char letter = ' ';
  signed char small = 0;
  unsigned char natural = 0;
  Tried tool;
  tool.option("letter", letter, "");
  tool.option("small", small, "");
  tool.option("natural", natural, "");
  EXPECT_EQ(-1, tool.run({"--letter=7", "--small=-7", "--natural=200"}));
  EXPECT_EQ('7', letter);
  EXPECT_EQ(-7, small);
  EXPECT_EQ(200, natural);
  for (const char* text : {"ab", "\xC3\xA4"}) {
    Tried other;
    other.option("letter", letter, "");
    EXPECT_EQ(2, other.run({"--letter", text}));
    EXPECT_EQ(refused("Option 'letter' does not take '" + std::string(text) +
                      "', expected: one character"),
              other.err);
  }
}

TEST(ToolVariables, TextsStayValidUntilTheToolIsDestroyed) {
  std::string text;
  const char* characters = nullptr;
  std::string_view view;
  std::filesystem::path path;
  std::vector<std::string_view> views;
  Tried tool;
  tool.option("text", text, "");
  tool.option("characters", characters, "");
  tool.option("view", view, "");
  tool.option("path", path, "");
  tool.rest("views", views, "");
  {
    const std::vector<std::string> words = {
        "--text=one", "--characters=two", "--view=three", "--path=/a/b", "four", "five"};
    EXPECT_EQ(-1, tool.run({words[0].c_str(), words[1].c_str(), words[2].c_str(), words[3].c_str(),
                            words[4].c_str(), words[5].c_str()}));
  }
  EXPECT_EQ("one", text);
  EXPECT_STREQ("two", characters);
  EXPECT_EQ("three", view);
  EXPECT_EQ("/a/b", path);
  EXPECT_EQ((std::vector<std::string_view>{"four", "five"}), views);
}

TEST(ToolVariables, EnumerationsReceiveTheValueOfTheirChoice) {
  Method method = Method::fast;
  Plain plain = low;
  Door door = Door::closed;
  std::optional<Method> maybe;
  std::vector<Plain> all = {low};
  Tried tool;
  tool.option("method", method, "").choices({{"fast", Method::fast}, {"small", Method::small}});
  tool.option("plain", plain, "").choices({{"low", low}, {"high", high}});
  tool.option("door", door, "").choices({{"closed", Door::closed}, {"open", Door::open}});
  tool.option("maybe", maybe, "").choices({{"fast", Method::fast}, {"small", Method::small}});
  tool.rest("all", all, "").choices({{"low", low}, {"high", high}});
  EXPECT_EQ(-1, tool.run({"--method=small", "--plain=high", "--door=o", "--maybe=s", "hi", "low"}));
  EXPECT_EQ(Method::small, method);
  EXPECT_EQ(high, plain);
  EXPECT_EQ(Door::open, door);
  EXPECT_EQ(std::optional<Method>(Method::small), maybe);
  EXPECT_EQ((std::vector<Plain>{high, low}), all);
}

TEST(ToolVariables, ChoicesMayStandForNumbersBooleansAndCharacters) {
  int level = 1;
  bool truth = false;
  char letter = 'x';
  unsigned long long wide = 12;
  double real = 0.5;
  Tried tool;
  tool.option("level", level, "").choices({{"low", 1}, {"high", 9}});
  tool.option("truth", truth, "").choices({{"yes", true}, {"no", false}});
  tool.option("letter", letter, "").choices({"x", "y"});
  tool.option("wide", wide, "").choices({"0x10", "12"});
  tool.option("real", real, "").choices({"0.5", "1.5"});
  EXPECT_EQ(-1, tool.run({"--level=h", "--truth=yes", "--letter=y", "--wide=0", "--real=1"}));
  EXPECT_EQ(9, level);
  EXPECT_TRUE(truth);
  EXPECT_EQ('y', letter);
  EXPECT_EQ(16U, wide);
  EXPECT_EQ(1.5, real);
}

TEST(ToolVariables, AnEnumerationNeedsChoicesThatStandForValues) {
  Method method = Method::fast;
  bool truth = false;
  const testing::AssertionRecorder mistakes;
  Tried tool;
  tool.option("method", method, "");
  tool.option("truth", truth, "").choices({"yes", "no"});
  EXPECT_EQ(2, tool.run({"--method=x"}));
  EXPECT_EQ(
      "option 'method' needs choices that stand for values; "
      "option 'truth' needs choices that stand for values",
      mistakes.expressions());
  EXPECT_EQ(
      refused("Option 'method' does not take 'x', expected: a choice that stands for a value"),
      tool.err);
}

TEST(ToolVariables, ATypeOfTheToolIsReadByItsOwnFunction) {
  shop::Weight weight;
  std::optional<shop::Coin> coin;
  std::vector<shop::Weight> weights;
  Tried tool;
  tool.option("weight", weight, "");
  tool.option("coin", coin, "");
  tool.rest("weights", weights, "");
  EXPECT_EQ(-1, tool.run({"--weight=20g", "--coin=crown", "1g", "2g"}));
  EXPECT_EQ(20, weight.grams);
  EXPECT_EQ(std::optional<shop::Coin>(shop::Coin::crown), coin);
  ASSERT_EQ(2U, weights.size());
  EXPECT_EQ(2, weights[1].grams);
}

TEST(ToolVariables, TheFunctionOfATypeTellsWhatItExpects) {
  shop::Weight weight;
  shop::Coin coin = shop::Coin::crown;
  Tried tool;
  tool.operand("weight", weight, "");
  tool.option("coin", coin, "");
  EXPECT_EQ(2, tool.run({"20"}));
  EXPECT_EQ(refused("Operand 'weight' does not take '20', expected: a weight such as 20g"),
            tool.err);
  Tried other;
  other.option("coin", coin, "");
  EXPECT_EQ(2, other.run({"--coin=x"}));
  EXPECT_EQ(refused("Option 'coin' does not take 'x', expected: penny or crown"), other.err);
  EXPECT_EQ(shop::Coin::crown, coin);
}

TEST(ToolVariables, AParserAtTheDeclarationReadsAnyType) {
  struct Point {
    int x = 0, y = 0;
  } point;
  std::vector<int> doubled;
  int factor = 2;
  Tried tool;
  tool.option("point", point, "", [](const char* text, Point& read) {
    return std::sscanf(text, "%dx%d", &read.x, &read.y) == 2 ? "" : "a point such as 1x2";
  });
  tool.option("doubled", doubled, "", [factor](const char* text, int& read) -> std::string {
    read = factor * std::stoi(text);
    return "";
  });
  EXPECT_EQ(-1, tool.run({"--point=3x4", "--doubled=5", "--doubled=6"}));
  EXPECT_EQ(7, point.x + point.y);
  EXPECT_EQ((std::vector<int>{10, 12}), doubled);
}

TEST(ToolVariables, WhatAParserExpectsIsPrinted) {
  int number = 0;
  Tried tool;
  tool.option("number", number, "", [](const char*, int&) { return "something else"; });
  EXPECT_EQ(2, tool.run({"--number=1"}));
  EXPECT_EQ(refused("Option 'number' does not take '1', expected: something else"), tool.err);
}

TEST(ToolVariables, AnOptionalIsEmptyWhenNotGiven) {
  std::optional<int> number;
  std::optional<std::string> text;
  std::optional<double> stays = 0.5;
  Tried tool;
  tool.option("number", number, "");
  tool.option("text", text, "");
  tool.option("stays", stays, "");
  EXPECT_EQ(-1, tool.run({"--number=3", "--number=4"}));
  EXPECT_EQ(std::optional<int>(4), number);
  EXPECT_EQ(std::nullopt, text);
  EXPECT_EQ(std::optional<double>(0.5), stays);
}

TEST(ToolVariables, AVectorTakesAllValuesAndSplitsOnlyAfterSplit) {
  std::vector<std::string> whole;
  std::vector<int> parts;
  std::vector<char> letters;
  Tried tool;
  tool.option("whole", whole, "");
  tool.option("parts", parts, "").split(',');
  tool.option("letters", letters, "").split(':');
  EXPECT_EQ(-1,
            tool.run({"--whole=a,b", "--parts=1,2", "--whole=c", "--parts=3", "--letters=a:b"}));
  EXPECT_EQ((std::vector<std::string>{"a,b", "c"}), whole);
  EXPECT_EQ((std::vector<int>{1, 2, 3}), parts);
  EXPECT_EQ((std::vector<char>{'a', 'b'}), letters);
}

TEST(ToolVariables, AVectorOfTheDefaultIsReplaced) {
  std::vector<int> numbers = {7, 8};
  std::vector<int> others = {7, 8};
  Tried tool;
  tool.option("numbers", numbers, "");
  tool.option("others", others, "");
  EXPECT_EQ(-1, tool.run({"--numbers=1"}));
  EXPECT_EQ((std::vector<int>{1}), numbers);
  EXPECT_EQ((std::vector<int>{7, 8}), others);
}

TEST(ToolVariables, NothingIsWrittenUntilTheWholeCommandLineIsRight) {
  int number = 1;
  std::string text = "before";
  std::vector<int> list = {1};
  bool flag = false;
  int count = 7;
  bool wasCalled = false;
  Tried tool;
  tool.option("number", number, "");
  tool.operand("text", text, "");
  tool.option("list", list, "").range(0, 9);
  tool.flag("flag", flag, "");
  tool.count("count", count, "");
  tool.each(
      "each", [&](const char*) { wasCalled = true; }, "");
  EXPECT_EQ(2, tool.run({"--number=2", "after", "--list=3", "--flag", "--count", "--each=x",
                         "--list=10"}));
  EXPECT_EQ(1, number);
  EXPECT_EQ("before", text);
  EXPECT_EQ((std::vector<int>{1}), list);
  EXPECT_FALSE(flag || wasCalled);
  EXPECT_EQ(7, count);
}

TEST(ToolVariables, DefaultsAreShownInTheHelp) {
  const char* none = nullptr;
  const char* characters = "c";
  std::string_view view = "v";
  std::filesystem::path path = "/p";
  shop::Weight weight{20};
  Method method = Method::small;
  bool truth = true;
  char letter = 'l';
  std::vector<int> list = {1, 2};
  std::optional<float> maybe = 0.1F;
  int level = 2;
  Tried tool("tool", "", "");
  tool.option("h,help", none, "n");
  tool.option("b", characters, "c");
  tool.option("c", view, "v");
  tool.option("d", path, "p");
  tool.option("e", weight, "w");
  tool.option("f", method, "m").choices({{"fast", Method::fast}, {"small", Method::small}});
  tool.option("g", truth, "t");
  tool.option("i", letter, "l");
  tool.option("j", list, "l").split(',');
  tool.option("k", maybe, "m");
  tool.option("l", level, "l").choices({"1", "2"});
  tool.option("m", level, "l").shownDefault("many");
  EXPECT_EQ(
      "Usage: tool [OPTION]...\n\nOptions:\n"
      "  -h, --help=H  n\n"
      "  -b=B          c Default: c.\n"
      "  -c=C          v Default: v.\n"
      "  -d=D          p Default: /p.\n"
      "  -e=E          w Default: 20g.\n"
      "  -f=F          m One of: fast, small. Default: small.\n"
      "  -g            t Default: true.\n"
      "  -i=I          l Default: l.\n"
      "  -j=J          l Default: 1,2.\n"
      "  -k=K          m Default: 0.1.\n"
      "  -l=L          l One of: 1, 2. Default: 2.\n"
      "  -m=M          l Default: many.\n",
      tool.help());
}

// What a description holds of an option after "positional".
std::string entry(const std::string& description, const std::string& name) {
  const std::string start = "\"positional\":";
  const std::size_t begin =
      description.find(start, description.find("\"names\":[\"" + name + "\"")) + start.size();
  return description.substr(begin, description.find('\n', begin) - begin);
}

TEST(ToolVariables, DefaultsAreInTheDescription) {
  std::vector<int> list = {1, 2};
  std::vector<int> one = {5};
  bool truth = true;
  bool choice = true;
  long double most = 0.5L;
  const char* none = nullptr;
  Tried tool;
  tool.option("list", list, "").split(',');
  tool.option("one", one, "");
  tool.option("truth", truth, "");
  tool.option("choice", choice, "").choices({{"yes", true}, {"no", false}});
  tool.option("most", most, "");
  tool.option("none", none, "");
  EXPECT_EQ(0, tool.run({"kivooption=kivodescribe=json"}));
  EXPECT_EQ("false,\"annotations\":{\"shownDefault\":[\"1,2\"]}},", entry(tool.out, "list"));
  EXPECT_EQ("false,\"default\":\"5\"},", entry(tool.out, "one"));
  EXPECT_EQ("false,\"default\":true},", entry(tool.out, "truth"));
  EXPECT_EQ("false,\"allowed\":[\"yes\",\"no\"],\"default\":\"yes\"},", entry(tool.out, "choice"));
  EXPECT_EQ("false,\"default\":\"0.5\"},", entry(tool.out, "most"));
  EXPECT_EQ("false},", entry(tool.out, "none"));
}

TEST(ToolVariables, ARangeHoldsBesideAParser) {
  const auto parser = [](const char* typed, int& value) {
    value = std::atoi(typed);
    return "";
  };
  Tried tool;
  int number = 1;
  tool.option("number", number, "A number.", parser).range(1, 10);
  EXPECT_EQ(2, tool.run({"--number=50"}));
  EXPECT_EQ("tool: Option 'number' does not take '50', expected: 1 to 10\nTry 'tool --help'.\n",
            tool.err);
  EXPECT_EQ(1, number);
}

TEST(ToolVariables, ChoicesThatStandForValuesCountMoreThanAParser) {
  Tried tool;
  int number = 1;
  tool.option("number", number, "A number.", [](const char*, int&) { return "a choice"; })
      .choices({{"one", 1}, {"two", 2}});
  EXPECT_EQ(-1, tool.run({"--number=two"})) << tool.err;
  EXPECT_EQ(2, number);
}

enum class Shade { light, dark };

std::string formatValue(Shade shade) { return shade == Shade::dark ? "dark" : "light"; }

TEST(ToolVariables, DefaultsAreShownBesideAParser) {
  Tried tool("tool", "", nullptr);
  Shade shade = Shade::dark;
  int number = 5;
  tool.option("shade", shade, "A shade.", [](const char*, Shade&) { return ""; });
  tool.option("number", number, "A number.", [](const char*, int&) { return ""; });
  const std::string help = tool.help();
  EXPECT_NE(std::string::npos, help.find("A shade. Default: dark.")) << help;
  EXPECT_EQ(0, tool.run({"kivooption=kivodescribe=json"}));
  EXPECT_NE(std::string::npos, tool.out.find("\"default\":\"dark\"")) << tool.out;
  EXPECT_NE(std::string::npos, tool.out.find("\"default\":\"5\"")) << tool.out;
}

// A type whose values cannot be assigned.
struct Stubborn {
  Stubborn() = default;
  Stubborn(const Stubborn&) = default;
  ~Stubborn() = default;
  Stubborn& operator=(const Stubborn&) = default;
  Stubborn& operator=(Stubborn&&) { throw std::runtime_error("no room"); }  // NOLINT
};
const char* parseValue(const char*, Stubborn&) { return nullptr; }

TEST(ToolVariables, AValueThatCannotBeAssignedEndsTheToolWithFour) {
  Tried tool;
  Stubborn stubborn;
  tool.option("stubborn", stubborn, "Stubborn.");
  EXPECT_EQ(4, tool.run({"--stubborn=x"}));
  EXPECT_EQ("tool: no room\nTry 'tool --help'.\n", tool.err);
}

}  // namespace
}  // namespace kivo_3_3
