// The description of whole tools, to the character.

#include <fcntl.h>
#include <gtest/gtest.h>
#include <kivo/kivo.h>
#include <unistd.h>

#include <climits>
#include <cstdio>
#include <limits>
#include <string>

#include "allocation/allocation_limit.h"
#include "support/console_capture.h"
#include "support/global_locale.h"

namespace kivo_3_3::testing {
namespace {

using std::string;

constexpr const char* emptyRest =
    R"("together":[],"unknownArguments":"passed over","dashArguments":"positional",)"
    R"("leftoverArguments":"kept")";

class Described : public ::testing::Test {
 protected:
  string described() { return describe(*parser, {"tool", "1.0", "Does it."}); }

  // What the description says about the only option.
  string option() {
    const string whole = described();
    const std::size_t begin = whole.find("\"options\":[\n") + 12;
    return whole.substr(begin, whole.find("],\"together\"") - begin);
  }

  ParserHandle parser = makeParser();
};

TEST_F(Described, AToolWithoutDeclarationsHasEveryRequiredField) {
  EXPECT_EQ(string(R"({"schema":"kivo-description/1",)"
                   R"("tool":{"name":"tool","version":"1.0","summary":"Does it."},)"
                   R"("sections":[],"options":[],)") +
                emptyRest + "}",
            described());
}

TEST_F(Described, NullTextsOfTheToolAreEmpty) {
  EXPECT_EQ(string(R"({"schema":"kivo-description/1",)"
                   R"("tool":{"name":"","version":"","summary":""},"sections":[],"options":[],)") +
                emptyRest + "}",
            describe(*parser, {nullptr, nullptr, nullptr}));
}

TEST_F(Described, FlagsSayWhatHappensToArguments) {
  parser = makeParser(parserFlags::unknownArgumentIsError |
                      parserFlags::dashArgumentsAreNeverPositional |
                      parserFlags::leftoverArgumentsArePositional | parserFlags::noTokenizer);
  parser->option("a", "", vtString);
  EXPECT_NE(string::npos,
            described().find(R"("together":[],"unknownArguments":"error",)"
                             R"("dashArguments":"options","leftoverArguments":"positional"})"));
  EXPECT_NE(string::npos, described().find(R"("separator":null)"));
}

TEST_F(Described, AnOptionHasItsNamesTypeAndText) {
  parser->option("level,l", "How much\nto do \"it\".", vtS32)->synonym("depth");
  EXPECT_EQ(R"({"names":["level","l","depth"],"kind":"option","type":"integer",)"
            R"("description":"How much\u000ato do \"it\".","section":"","hidden":false,)"
            R"("separator":",","positional":false})",
            option());
}

TEST_F(Described, TypesAreNamedAsInMessages) {
  const struct {
    variant_type_t type;
    const char* name;
  } cases[] = {{vtNull, "none"},
               {vtBool, "boolean"},
               {vtS32, "integer"},
               {vtU32, "unsigned integer"},
               {vtS64, "64 bit integer"},
               {vtU64, "unsigned 64 bit or hex"},
               {vtDouble, "double"},
               {vtString, "string"},
               {stratum2::vtFloat, "other"}};
  for (const auto& [type, name] : cases) {
    SCOPED_TRACE(name);
    parser = makeParser();
    parser->option("a", "", type);
    EXPECT_NE(string::npos, option().find("\"type\":\"" + string(name) + "\","));
  }
}

TEST_F(Described, APositionalOptionAndTheOptionFileAreOptionsLikeOthers) {
  parser->option("file", "", vtString)->positional()->tokenize('\xE4');
  parser->addOptionFileOption("More options", "");
  EXPECT_EQ(R"({"names":["file"],"kind":"option","type":"string","description":"","section":"",)"
            R"("hidden":false,"separator":")"
            "\uFFFD"
            R"(","positional":true},)"
            "\n"
            R"({"names":["option-file"],"kind":"option","type":"string",)"
            R"("description":"More options","section":"","hidden":false,"separator":",",)"
            R"("positional":false})",
            option());
}

TEST_F(Described, SectionsAreInOrderOfFirstUseWithTheFirstIntroduction) {
  parser->option("a", "", vtNull, "Second:two");
  parser->option("b", "", vtNull, "First:one");
  parser->option("c", "", vtNull, "Second:other");
  parser->option("d", "", vtNull, "kivo_hidden:not shown");
  parser->option("e", "", vtNull);
  EXPECT_NE(
      string::npos,
      described().find("\"sections\":[\n"
                       R"({"heading":"Second","introduction":"two","hidden":false},)"
                       "\n"
                       R"({"heading":"First","introduction":"one","hidden":false},)"
                       "\n"
                       R"({"heading":"kivo_hidden","introduction":"not shown","hidden":true},)"
                       "\n"
                       R"({"heading":"","introduction":"","hidden":false}],)"));
  EXPECT_NE(string::npos, described().find(R"("section":"kivo_hidden","hidden":true)"));
}

TEST_F(Described, AModifierNamesTheActionsThatShareATagInOrderOfDeclaration) {
  parser->action("zero,z", "", vtNull);
  parser->action("pack,p", "", vtNull)->tag("both");
  parser->action("list", "", vtNull)->tag("both");
  parser->modifier("x", "both,p", "", vtNull);
  parser->modifier("y", "list,pack", "", vtNull);
  parser->modifier("none", "nobody", "", vtNull);
  parser->option("tagged", "", vtNull)->tag("z");
  const string whole = described();
  EXPECT_NE(string::npos, whole.find(R"({"names":["x"],"kind":"modifier","type":"none",)"
                                     R"("description":"","section":"","hidden":false,)"
                                     R"("separator":",","positional":false,)"
                                     R"("actions":["pack","list"]})"));
  EXPECT_NE(string::npos, whole.find(R"("positional":false,"actions":["pack","list"]},)"
                                     "\n"
                                     R"({"names":["none"])"));
  EXPECT_NE(string::npos, whole.find(R"("positional":false,"actions":[]},)"));
  EXPECT_NE(string::npos, whole.find(R"({"names":["tagged"],"kind":"modifier","type":"none",)"
                                     R"("description":"","section":"","hidden":false,)"
                                     R"("separator":",","positional":false,"actions":["zero"]}])"));
  EXPECT_NE(string::npos, whole.find(R"({"names":["list"],"kind":"action",)"));
}

TEST_F(Described, ASynonymIsNoTag) {
  parser->action("pack", "", vtNull)->synonym("store");
  parser->modifier("x", "store", "", vtNull);
  EXPECT_NE(string::npos, described().find(R"("actions":[])"));
}

TEST_F(Described, ValuesAreTextsAsUsersTypeThem) {
  parser->option("a", "", vtString)
      ->allowValue("plain")
      ->allowValue("")
      ->allowDeprecatedValue("old", "plain")
      ->allowDeprecatedValue("ancient", "plain")
      ->defaultValue("plain");
  EXPECT_NE(string::npos,
            option().find(R"("allowed":["plain",""],"deprecated":[)"
                          "\n"
                          R"({"value":"ancient","replacement":"plain"},)"
                          "\n"
                          R"({"value":"old","replacement":"plain"}],"default":"plain"})"));
}

TEST_F(Described, NumbersAreTextsInTheClassicLocale) {
  const GlobalLocale locale(localeWithDecimalComma());
  parser->option("a", "", vtU64)
      ->allowValue(static_cast<u64_t>(1234567))
      ->allowDeprecatedValue(static_cast<u64_t>(7654321), static_cast<u64_t>(1234567))
      ->defaultValue(std::numeric_limits<u64_t>::max());
  EXPECT_NE(string::npos, option().find(R"("allowed":["1234567"],"deprecated":[)"
                                        "\n"
                                        R"({"value":"7654321","replacement":"1234567"}],)"
                                        R"("default":"18446744073709551615"})"));
  parser = makeParser();
  parser->option("a", "", vtDouble)->defaultValue(1234.5);
  EXPECT_NE(string::npos, option().find(R"("default":"1234.5"})"));
}

TEST_F(Described, TheDefaultOfABooleanIsABoolean) {
  for (const bool isOn : {true, false}) {
    parser = makeParser();
    parser->option("a", "", vtBool)->defaultValue(isOn);
    EXPECT_NE(string::npos, option().find(isOn ? R"("default":true})" : R"("default":false})"));
  }
}

TEST_F(Described, AnEmptyOrMissingDefaultIsLeftOut) {
  parser->option("a", "", vtString)->defaultValue("");
  parser->option("b", "", vtS32)->defaultValue(variant_t());
  parser->option("c", "", vtNull)->defaultValue(1);
  parser->option("d", "", vtBool)->defaultValue("on");
  parser->option("e", "", stratum2::vtFloat)->defaultValue(1.5);
  EXPECT_EQ(string::npos, described().find("default"));
}

TEST_F(Described, AValueThatNobodyCanTypeIsLeftOutAndCallsNoAssertionHandler) {
  parser->option("a", "", vtS32)
      ->allowValue("ten")
      ->allowValue(variant_t("ten", true))
      ->allowValue(variant_t())
      ->allowDeprecatedValue("nine", 9)
      ->defaultValue("none");
  parser->option("b", "", vtNull)->allowValue(1)->allowDeprecatedValue(1, 2);
  parser->option("c", "", stratum2::vtFloat)->allowValue(1.5)->allowDeprecatedValue(1.5, 2.5);
  const string whole = described();
  for (const char* const key : {"\"allowed\"", "\"deprecated\"", "\"default\""})
    EXPECT_EQ(string::npos, whole.find(key)) << key;
  parser->option("d", "", vtString)
      ->allowValue(5)
      ->allowValue("five")
      ->allowDeprecatedValue("old", 5)
      ->allowDeprecatedValue(4, "five");
  EXPECT_NE(string::npos, described().find(R"("allowed":["five"],"deprecated":[)"
                                           "\n"
                                           R"({"value":"old","replacement":""}]})"));
}

TEST_F(Described, TextsThatBecomeEqualAreOne) {
  parser->allowSimultaneousActions({"\xFE", "\xFF", "\U0001F600"});
  parser->option("a", "", vtNull, "\xFF:one");
  parser->option("b", "", vtNull, "\xFE:two");
  const string whole = described();
  EXPECT_NE(string::npos, whole.find("\"together\":[[\"\uFFFD\",\"\U0001F600\"]]"));
  EXPECT_NE(string::npos, whole.find("\"sections\":[\n{\"heading\":\"\uFFFD\",\"introduction\":"
                                     "\"one\",\"hidden\":false}],"));
}

TEST_F(Described, ASectionIsFirstUsedByARejectedDeclarationToo) {
  parser->option("a", "", vtNull);
  parser->option("a", "", vtNull, "Rejected:one");
  parser->option("b", "", vtNull, "Rejected:two");
  EXPECT_NE(string::npos,
            described().find(R"({"heading":"Rejected","introduction":"one","hidden":false}])"));
}

TEST_F(Described, EachFlagHasItsField) {
  const struct {
    int flag;
    const char* rest;
  } cases[] = {{parserFlags::unknownArgumentIsError,
                R"("error","dashArguments":"positional","leftoverArguments":"kept")"},
               {parserFlags::dashArgumentsAreNeverPositional,
                R"("passed over","dashArguments":"options","leftoverArguments":"kept")"},
               {parserFlags::leftoverArgumentsArePositional,
                R"("passed over","dashArguments":"positional","leftoverArguments":"positional")"}};
  for (const auto& [flag, rest] : cases) {
    parser = makeParser(flag);
    EXPECT_NE(string::npos, described().find(string(R"("unknownArguments":)") + rest)) << flag;
  }
}

TEST_F(Described, ActionsGivenTogetherAreSortedAndNeedNotBeDeclared) {
  parser->allowSimultaneousActions({"pack", "list"});
  parser->allowSimultaneousActions({});
  EXPECT_NE(string::npos, described().find(R"("together":[["list","pack"],[]],)"));
}

TEST_F(Described, ARejectedDeclarationIsLeftOutAndSoIsOneWithoutNames) {
  parser->option("a", "", vtNull);
  parser->option("a", "again", vtNull);
  parser->option("", "nameless", vtNull);
  EXPECT_EQ(R"({"names":["a"],"kind":"option","type":"none","description":"","section":"",)"
            R"("hidden":false,"separator":",","positional":false})",
            option());
}

TEST_F(Described, AnnotationsAreListsByKey) {
  parser->option("level,l", "", vtS32);
  EXPECT_TRUE(annotate(*parser, "l", "range", "1 to 9"));
  EXPECT_TRUE(annotate(*parser, "level", "environment", "LEVEL"));
  EXPECT_TRUE(annotate(*parser, "level", "environment", ""));
  EXPECT_TRUE(annotate(*parser, nullptr, "footer", "Bye."));
  EXPECT_NE(string::npos, option().find(R"("positional":false,"annotations":)"
                                        R"({"environment":["LEVEL",""],"range":["1 to 9"]}})"));
  EXPECT_NE(string::npos, described().find(R"("kept","annotations":{"footer":["Bye."]}})"));
}

TEST_F(Described, KeysOfAnnotationsThatLookAlikeAreOne) {
  annotate(*parser, nullptr, "\xFF", "one");
  annotate(*parser, nullptr, "\xFE", "two");
  EXPECT_NE(string::npos, described().find("{\"\uFFFD\":[\"one\",\"two\"]}"));
}

TEST_F(Described, OnlyNamesOfOptionsAreAnnotated) {
  parser->option("color", "", vtBool);
  const string before = described();
  EXPECT_FALSE(annotate(*parser, "no-color", "range", "x"));
  EXPECT_FALSE(annotate(*parser, "col", "range", "x"));
  EXPECT_FALSE(annotate(*parser, "mono", "range", "x"));
  EXPECT_FALSE(annotate(*parser, "", "range", "x"));
  EXPECT_FALSE(annotate(*parser, "color", nullptr, "x"));
  EXPECT_FALSE(annotate(*parser, "color", "range", nullptr));
  EXPECT_FALSE(annotate(*parser, nullptr, nullptr, "x"));
  EXPECT_EQ(before, described());
}

TEST_F(Described, ASynonymIsAnnotatedEvenIfItIsTheNegationOfAnotherName) {
  parser->option("color", "", vtBool);
  parser->option("mono", "", vtNull)->synonym("no-color")->synonym("m");
  EXPECT_TRUE(annotate(*parser, "no-color", "a", "x"));
  EXPECT_TRUE(annotate(*parser, "m", "a", "y"));
  EXPECT_NE(string::npos, described().find(R"({"names":["mono","no-color","m"],)"));
  EXPECT_NE(string::npos,
            described().find(R"("positional":false,"annotations":{"a":["x","y"]}}])"));
}

TEST_F(Described, AnAnnotationIsAddedOrNotThereWhenMemoryRunsOut) {
  const char* const key = "a key too long to be kept without memory of its own";
  const char* const text = "a text too long to be kept without memory of its own";
  for (const char* const option : {"level", static_cast<const char*>(nullptr)}) {
    for (const int known : {0, 1, 2}) {
      bool isAdded = false;
      for (long allowed = 0; !isAdded; ++allowed) {
        parser = makeParser();
        parser->option("level", "", vtS32);
        for (int count = 0; count < known; ++count)
          annotate(*parser, option, key, text);
        const string before = described();
        {
          const AllocationLimit limit(allowed, Failing::forEver);
          isAdded = annotate(*parser, option, key, text);
          EXPECT_EQ(!isAdded, limit.reached());
        }
        EXPECT_EQ(isAdded, before != described());
      }
    }
  }
}

TEST_F(Described, CommandsHaveDeclarationsOfTheirOwn) {
  const ParserHandle add = makeParser(parserFlags::unknownArgumentIsError);
  add->option("force", "", vtNull);
  annotate(*add, nullptr, "footer", "Bye.");
  const ParserHandle list = makeParser();
  const CommandInfo commands[] = {{"remote add", "Adds one.", add.get()},
                                  {nullptr, nullptr, list.get()}};
  EXPECT_EQ(string(R"({"schema":"kivo-description/1",)"
                   R"("tool":{"name":"tool","version":"","summary":""},"sections":[],)"
                   R"("options":[],)") +
                emptyRest +
                R"(,"commands":[)"
                "\n"
                R"({"words":"remote add","summary":"Adds one.","sections":[)"
                "\n"
                R"({"heading":"","introduction":"","hidden":false}],"options":[)"
                "\n"
                R"({"names":["force"],"kind":"option","type":"none","description":"",)"
                R"("section":"","hidden":false,"separator":",","positional":false}],)"
                R"("together":[],"unknownArguments":"error","dashArguments":"positional",)"
                R"("leftoverArguments":"kept","annotations":{"footer":["Bye."]}},)"
                "\n"
                R"({"words":"","summary":"","sections":[],"options":[],)" +
                emptyRest + "}]}",
            describe(*parser, {"tool", "", ""}, commands, 2));
}

TEST_F(Described, NoCommandsAreNoList) {
  const CommandInfo command = {"a", "", parser.get()};
  EXPECT_EQ(described(), describe(*parser, {"tool", "1.0", "Does it."}, &command, 0));
  EXPECT_EQ(described(), describe(*parser, {"tool", "1.0", "Does it."}, nullptr, 3));
}

TEST_F(Described, TheTextIsTheSameEachTimeAndLivesAsLongAsTheParser) {
  parser->option("a", "", vtNull);
  const ToolInfo tool = {"tool", "", ""};
  const char* const first = describe(*parser, tool);
  parser->option("b", "", vtNull);
  const char* const second = describe(*parser, tool);
  EXPECT_STRNE(first, second);
  EXPECT_EQ(second, describe(*parser, tool));
}

// Forwards nothing; only its address matters.
class ForeignParser : public IParser {
 public:
  void destroy() override {}
  int createResult(IParseResult**) override { return status::exceptionCaught; }
  IOption* option(const char*, const char*, variant_type_t, const char*) override {
    return nullptr;
  }
  IOption* action(const char*, const char*, variant_type_t, const char*) override {
    return nullptr;
  }
  IOption* modifier(const char*, const char*, const char*, variant_type_t, const char*) override {
    return nullptr;
  }
  bool isOptionDeclared(const char*, bool, const char*) override { return false; }
  int parseArgsVector(int, const char* const*, IParseResult*) override { return 0; }
  int parseStream(const char*, IParseResult*) override { return 0; }
  const char* getErrorDesc() override { return ""; }
  const char* getDescription(bool) override { return ""; }
  const char* getDescription(const char*, bool) override { return ""; }
  const char* getActionModifiersDescription(const char*, bool) override { return ""; }
  const char* getGlobalModifiersDescription(bool) override { return ""; }
  void addHandler(EventHandler*) override {}
  void removeHandler(EventHandler*) override {}
  bool addOptionFileOption(const char*, const char*) override { return false; }
  bool allowSimultaneousActions(const std::set<string>&) override { return false; }
};

TEST_F(Described, AForeignParserIsNotDescribed) {
  ForeignParser foreign;
  EXPECT_STREQ("", describe(foreign, {"tool", "", ""}));
  EXPECT_FALSE(annotate(foreign, nullptr, "footer", "x"));
  EXPECT_EQ(nullptr, resolveName(foreign, "a"));
  EXPECT_EQ(nullptr, nearestName(foreign, "abc"));
  for (IParser* const other : {static_cast<IParser*>(&foreign), static_cast<IParser*>(nullptr)}) {
    const CommandInfo command = {"a", "", other};
    EXPECT_STREQ("", describe(*parser, {"tool", "", ""}, &command, 1));
  }
}

TEST_F(Described, TheDescriptionIsEmptyAndNothingIsAddedWhenMemoryRunsOut) {
  parser->action("list", "", vtNull);
  parser->modifier("level", "list", "", vtString)->allowValue("a value too long for no memory");
  const string whole = described();
  bool isWhole = false;
  for (long allowed = 0; !isWhole; ++allowed) {
    const ParserHandle other = makeParser();
    other->action("list", "", vtNull);
    other->modifier("level", "list", "", vtString)->allowValue("a value too long for no memory");
    string text;
    {
      const AllocationLimit limit(allowed, Failing::forEver);
      const char* const answer = describe(*other, {"tool", "1.0", "Does it."});
      isWhole = !limit.reached();
      EXPECT_EQ(isWhole, *answer != '\0');
      const AllocationLimit none(0, Failing::forEver);
      EXPECT_FALSE(annotate(*other, nullptr, "a key too long for no memory", "text"));
      EXPECT_FALSE(annotate(*other, "level", "a key too long for no memory", "text"));
    }
    EXPECT_EQ(whole, describe(*other, {"tool", "1.0", "Does it."}));
  }
}

class Asked : public Described {
 protected:
  // What is written to standard output, then the answer, then the status.
  string asked(std::initializer_list<const char*> arguments) {
    std::vector<const char*> argv(arguments);
    int status = -1;
    ::testing::internal::CaptureStdout();
    const bool isAsked = describeIfAsked(*parser, {"tool", "1.0", "Does it."},
                                         static_cast<int>(argv.size()), argv.data(), &status);
    return ::testing::internal::GetCapturedStdout() + (isAsked ? "asked " : "not asked ") +
           std::to_string(status);
  }
};

TEST_F(Asked, TheFirstArgumentAsksForTheDescription) {
  parser->option("a", "", vtNull);
  EXPECT_EQ(described() + "\nasked 0", asked({"tool", "kivooption=kivodescribe=json"}));
  EXPECT_EQ(described() + "\nasked 0", asked({"tool", "kivooption=kivodescribe=json", "-x"}));
}

TEST_F(Asked, OtherArgumentsDoNot) {
  EXPECT_EQ("not asked -1", asked({}));
  EXPECT_EQ("not asked -1", asked({"kivooption=kivodescribe=json"}));
  EXPECT_EQ("not asked -1", asked({"tool", nullptr}));
  EXPECT_EQ("not asked -1", asked({"tool", "-x", "kivooption=kivodescribe=json"}));
  EXPECT_EQ("not asked -1", asked({"tool", "kivooption=kivodescribe=JSON"}));
  EXPECT_EQ("not asked -1", asked({"tool", "kivooption=kivodescribe=json "}));
  EXPECT_EQ("not asked -1", asked({"tool", "-kivooption=kivodescribe=json"}));
  EXPECT_FALSE(describeIfAsked(*parser, {"", "", ""}, 2, nullptr));
}

TEST_F(Asked, ArgumentsAfterTheLastOneDoNot) {
  const char* const argv[] = {"tool", "kivooption=kivodescribe=json"};
  EXPECT_FALSE(describeIfAsked(*parser, {"", "", ""}, 1, argv));
  EXPECT_FALSE(describeIfAsked(*parser, {"", "", ""}, 0, argv));
  EXPECT_FALSE(describeIfAsked(*parser, {"", "", ""}, -1, argv));
}

TEST_F(Asked, TheStatusIsOneIfTheDescriptionCannotBeWritten) {
  const char* const argv[] = {"tool", "kivooption=kivodescribe=json"};
  int status = -1;
  std::fflush(stdout);
  const int output = dup(STDOUT_FILENO);
  const int full = open("/dev/full", O_WRONLY);
  dup2(full, STDOUT_FILENO);
  EXPECT_TRUE(describeIfAsked(*parser, {"tool", "", ""}, 2, argv, &status));
  dup2(output, STDOUT_FILENO);
  close(full);
  close(output);
  std::clearerr(stdout);
  EXPECT_EQ(1, status);
}

TEST_F(Asked, TheStatusIsOneIfThereIsNoDescription) {
  ForeignParser foreign;
  const char* const argv[] = {"tool", "kivooption=kivodescribe=json"};
  int status = -1;
  ::testing::internal::CaptureStdout();
  EXPECT_TRUE(describeIfAsked(foreign, {"tool", "", ""}, 2, argv, &status));
  EXPECT_TRUE(describeIfAsked(foreign, {"tool", "", ""}, 2, argv));
  EXPECT_EQ("", ::testing::internal::GetCapturedStdout());
  EXPECT_EQ(1, status);
}

}  // namespace
}  // namespace kivo_3_3::testing
