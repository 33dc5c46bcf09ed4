#include "manual_page.h"

#include <gtest/gtest.h>

#include "sample_description.h"
#include "support/golden_file.h"

// The manual page as roff. The folder "pages" tests what readers of roff make of it.

namespace kivo_describe {
namespace {

Page pageOf(std::vector<Block> blocks) { return {"fx", "Does it.", std::move(blocks)}; }

// The page after the line of the NAME section.
std::string body(std::vector<Block> blocks) {
  const std::string text = manualPage(pageOf(std::move(blocks)), "");
  const std::string before = "fx \\- Does it.\n";
  return text.substr(text.find(before) + before.size());
}

std::string shown(const std::string& text) { return body({Paragraph{{{own(text)}}}}); }

TEST(ManualPage, BeginsWithTitleAndDate) {
  EXPECT_EQ(
      ".\\\" -*- coding: utf-8 -*-\n.TH \"F\\-X\" \"1\" \"2024-02-29\" \"f\\-x\" \"\"\n"
      ".nh\n.ad l\n.SH NAME\nf\\-x \\- Does it.\n",
      manualPage({"f-x", "Does it.", {}}, "2024-02-29"));
}

TEST(ManualPage, WithoutASummaryTheNameIsStillExplained) {
  EXPECT_EQ(
      ".\\\" -*- coding: utf-8 -*-\n.TH \"FX\" \"1\" \"\" \"fx\" \"\"\n"
      ".nh\n.ad l\n.SH NAME\nfx \\- command\\-line tool\n",
      manualPage({"fx", "", {}}, ""));
}

TEST(ManualPage, NoCharacterKeepsAMeaningToRoff) {
  EXPECT_EQ(".PP\n\\e\\-\\(aq\\(ga\\(ha\\(ti\\(dq %#.\n", shown("\\-'`^~\" %#."));
  EXPECT_EQ(".PP\n\\&.TP x\n", shown(".TP x"));
  EXPECT_EQ(".PP\n\\(aqbr\n", shown("'br"));
  EXPECT_EQ(".PP\n\\efB\n", shown("\\fB"));
}

TEST(ManualPage, NoParagraphBeginsRightAfterAHeading) {
  EXPECT_EQ(".SH A\nx\n.PP\ny\n",
            body({Heading{1, "A"}, Paragraph{{{own("x")}}}, Paragraph{{{own("y")}}}}));
  EXPECT_EQ(".SS A\nx\n", body({Heading{2, "A"}, Paragraph{{{own("x")}}}}));
}

TEST(ManualPage, TheThirdLevelOfHeadingsIsBold) {
  EXPECT_EQ(".SS A\n\\fBB\\fR\n.PP\nx\n",
            body({Heading{2, "A"}, Heading{3, "B"}, Paragraph{{{own("x")}}}}));
  EXPECT_EQ(".PP\n\\fBA\\fR\n.PP\nx\n", body({Heading{3, "A"}, Paragraph{{{own("x")}}}}));
}

TEST(ManualPage, ItemsHaveALabelAndLines) {
  EXPECT_EQ(".TP\n\\fB\\-a\\fR \\fIFILE\\fR\nx\n.br\ny\n",
            body({Item{{literal("-a"), own(" "), variable("FILE")}, {{own("x")}, {own("y")}}}}));
  EXPECT_EQ(".TP\n\\fB\\-a\\fR\n\\&\n", body({Item{{literal("-a")}, {}}}));
}

TEST(ManualPage, OfATool) {
  for (const std::string name : {"textkit", "archive"}) {
    const std::string json = testing::contentsOf(
        (name == "textkit" ? DESCRIPTION_FOLDER "/" : PAGE_FOLDER "/") + name + ".json");
    kivo_3_3::testing::compareWithFile(PAGE_FOLDER "/" + name + ".1",
                                       manualPage(makePage(readDescription(json)), "2024-02-29"));
  }
}

}  // namespace
}  // namespace kivo_describe
