#include "markdown.h"

#include <gtest/gtest.h>

#include "sample_description.h"
#include "support/golden_file.h"

// The page as Markdown. The folder "pages" tests what a renderer makes of it.

namespace kivo_describe {
namespace {

// The page without its heading.
std::string body(std::vector<Block> blocks) {
  const std::string text = markdown({"fx", "Does it.", std::move(blocks)});
  EXPECT_EQ(0U, text.rfind("# fx\n\n", 0)) << text;
  return text.substr(6);
}

std::string shown(const Span& span) { return body({Paragraph{{{span}}}}); }

TEST(Markdown, NoCharacterKeepsAMeaning) {
  EXPECT_EQ("\\\\ \\`x\\` \\*a\\* \\_b\\_ !\\[c\\](d) \\<e\\> \\&amp; f\\|g \\~h\\~ \\#\n",
            shown(own("\\ `x` *a* _b_ ![c](d) <e> &amp; f|g ~h~ #")));
}

TEST(Markdown, SomeCharactersHaveAMeaningAtTheBeginningOfALine) {
  const std::pair<const char*, const char*> cases[] = {
      {"- a", "\\- a\n"},     {"+ a", "\\+ a\n"},   {"===", "\\===\n"}, {":--", "\\:--\n"},
      {"12. a", "12\\. a\n"}, {"1) a", "1\\) a\n"}, {"# a", "\\# a\n"}, {"> a", "\\> a\n"},
      {"12 a.", "12 a.\n"},   {"a - b", "a - b\n"}, {"12", "12\n"},     {". a", ". a\n"},
  };
  for (const auto& [text, expected] : cases) {
    EXPECT_EQ(expected, shown(own(text)));
    EXPECT_EQ(std::string("x\\\n") + expected, body({Paragraph{{{own("x")}, {own(text)}}}}));
  }
}

TEST(Markdown, LiteralsAreCodeWithEnoughBackquotes) {
  EXPECT_EQ("`-a`\n", shown(literal("-a")));
  EXPECT_EQ("``a`b\\*``\n", shown(literal("a`b\\*")));
  EXPECT_EQ("``` `` ```\n", shown(literal("``")));
  EXPECT_EQ("`` ` ``\n", shown(literal("`")));
}

TEST(Markdown, VariablesAreEmphasizedWhereThatIsSafe) {
  EXPECT_EQ("*FILE*\n", shown(variable("FILE")));
  EXPECT_EQ("\\<FILE\\>\n", shown(variable("<FILE>")));
}

TEST(Markdown, BlocksAreSeparatedAndItemsAreAList) {
  EXPECT_EQ("## A\n\nx\n\n- `-a`\\\n  y\\\n  z\n- `-b`\n\n### B\n\n#### C\n\nend\n",
            body({Heading{1, "A"}, Paragraph{{{own("x")}}},
                  Item{{literal("-a")}, {{own("y")}, {own("z")}}}, Item{{literal("-b")}, {}},
                  Heading{2, "B"}, Heading{3, "C"}, Paragraph{{{own("end")}}}}));
}

TEST(Markdown, OfATool) {
  for (const std::string name : {"textkit", "archive"}) {
    const std::string json = testing::contentsOf(
        (name == "textkit" ? DESCRIPTION_FOLDER "/" : PAGE_FOLDER "/") + name + ".json");
    kivo_3_3::testing::compareWithFile(PAGE_FOLDER "/" + name + ".md",
                                       markdown(makePage(readDescription(json))));
  }
}

}  // namespace
}  // namespace kivo_describe
