#include "completion.h"

#include <gtest/gtest.h>

#include "bash_completion.h"
#include "fish_completion.h"
#include "sample_description.h"
#include "shell_text.h"
#include "zsh_completion.h"

// What scripts are made of. What shells make of the scripts is tested in the folder "completion".

namespace kivo_describe {
namespace {

using testing::option;
using testing::replaced;
using testing::toolWith;

CompletedOption only(const std::string& json) {
  return makeCompletion(readDescription(toolWith(json))).own.options.at(0);
}

TEST(Completion, OffersNamesThatCanBeTyped) {
  const CompletedOption found =
      only(option(R"("a","b c","d=e","-f","g\u0001","","\u00e9")", "", "boolean"));
  EXPECT_EQ((Texts{"a", "\u00e9", "no-a"}), found.offered);
  EXPECT_EQ(14U, found.names.size());  // each one, and its "no-" form
}

TEST(Completion, OffersNoNamesOfHiddenPositionalAndDeprecatedOptions) {
  const std::string plain = option(R"("a")");
  EXPECT_EQ((Texts{"a"}), only(plain).offered);
  EXPECT_EQ(Texts(), only(replaced(plain, R"("hidden":false)", R"("hidden":true)")).offered);
  EXPECT_EQ(Texts(),
            only(replaced(plain, R"("positional":false)", R"("positional":true)")).offered);
  EXPECT_EQ(Texts(), only(option(R"("a")", R"(,"annotations":{"deprecated":[""]})")).offered);
}

TEST(Completion, OffersAllowedValuesThatCanBeTyped) {
  const CompletedOption found =
      only(replaced(option(R"("a")", R"(,"allowed":["x","","y,z","w\u0007","old"],)"
                                     R"("deprecated":[{"value":"old","replacement":"x"}])"),
                    R"("separator":null)", R"("separator":",")"));
  EXPECT_EQ((Texts{"x"}), found.values);
  EXPECT_EQ("values", valueKind(found));
}

TEST(Completion, OffersFilesForTextsByTheirHint) {
  const auto kindWith = [](const std::string& hint) {
    return valueKind(only(option(R"("a")", R"(,"annotations":{"hint":[")" + hint + R"("]})")));
  };
  EXPECT_EQ("files", valueKind(only(option(R"("a")"))));
  EXPECT_EQ("files", kindWith("file"));
  EXPECT_EQ("folders", kindWith("directory"));
  EXPECT_EQ("nothing", kindWith("none"));
  EXPECT_EQ("nothing", valueKind(only(option(R"("a")", "", "integer"))));
  EXPECT_EQ("none", valueKind(only(option(R"("a")", "", "boolean"))));
}

TEST(Completion, IdentifiersOfToolsKeepApart) {
  EXPECT_EQ("_kivo_fx_2dtool", identifierOf("fx-tool"));
  EXPECT_EQ("_kivo_fx_5f2dtool", identifierOf("fx_2dtool"));
}

// A name in which every character has a meaning to some shell.
TEST(Completion, TextsAreQuotedAsAWhole) {
  const Completion completion =
      makeCompletion(readDescription(toolWith(option(R"("$(x)'\\\n\tb","a'b")"))));
  EXPECT_NE(std::string::npos, bashCompletion(completion).find(R"($'$(x)\'\\\002\002b\na\'b')"));
  EXPECT_NE(std::string::npos, zshCompletion(completion).find(R"($'$(x)\'\\\x0a\x09b')"));
  EXPECT_NE(std::string::npos, zshCompletion(completion).find(R"('a'\''b')"));
  EXPECT_NE(std::string::npos, fishCompletion(completion).find(R"('.$(x)\'\\'\x01''\x02'b')"));
}

}  // namespace
}  // namespace kivo_describe
