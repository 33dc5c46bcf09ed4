#include <gtest/gtest.h>
#include <kivo/text_layout.h>

#include <algorithm>
#include <random>
#include <sstream>
#include <stdexcept>
#include <type_traits>
#include <vector>

namespace kivo_3_3::testing {
namespace {

using std::string;

TEST(Paragraph, OfAnEmptyBodyIsEmptyWhateverItsHead) {
  EXPECT_EQ("", paragraphString("", "-head", 10, 20));
  EXPECT_EQ("", paragraphString("", "a head beyond its column", 10, 20));
  EXPECT_EQ("", paragraphString("", "", 10, 20));
}

TEST(Paragraph, PadsAHeadThatIsShorterThanTheIndent) {
  EXPECT_EQ("-x    body\n", paragraphString("body", "-x", 6, 20));
  EXPECT_EQ("-long body\n", paragraphString("body", "-long", 6, 20));
  EXPECT_EQ("      body\n", paragraphString("body", "", 6, 20));
}

TEST(Paragraph, FollowsAHeadThatReachesTheIndentAfterOneSpace) {
  EXPECT_EQ("-level body\n", paragraphString("body", "-level", 6, 20));
  EXPECT_EQ("-level, -l body\n", paragraphString("body", "-level, -l", 6, 20));
}

TEST(Paragraph, BeginsBelowAHeadThatLeavesNoRoom) {
  EXPECT_EQ("1234567 a\n    bc\n", paragraphString("a bc", "1234567", 4, 6));
  EXPECT_EQ("12345678\n    a bc\n", paragraphString("a bc", "12345678", 4, 6));
  EXPECT_EQ("123456789\n    a bc\n", paragraphString("a bc", "123456789", 4, 6));
}

TEST(Paragraph, BreaksAWordThatIsLongerThanTheRoomWithoutAHyphen) {
  EXPECT_EQ("  abcd\n  efgh\n  ij\n", paragraphString("abcdefghij", "", 2, 5));
  EXPECT_EQ("  abcd\n  efgh\n", paragraphString("abcdefgh", "", 2, 5));
  EXPECT_EQ("  ab\n  cdef\n  gh\n", paragraphString("ab cdefgh", "", 2, 5));
}

TEST(Paragraph, BreaksALongWordEarlierWhereTheHeadTakesRoom) {
  EXPECT_EQ("xyz ab\n  cdef\n  ghij\n", paragraphString("abcdefghij", "xyz", 2, 5));
  EXPECT_EQ("1234567 a\n    bcdef\n    g\n", paragraphString("abcdefg", "1234567", 4, 6));
}

TEST(Paragraph, BreaksAtANewlineAndKeepsNoBlankLines) {
  EXPECT_EQ("  one\n  two\n", paragraphString("one\ntwo", "", 2, 20));
  EXPECT_EQ("  one\n  two\n", paragraphString("one\n\ntwo", "", 2, 20));
  EXPECT_EQ("  one\n  two three\n", paragraphString("one\n \n  \n two three", "", 2, 20));
  EXPECT_EQ("-x  one\n    two\n", paragraphString("one\ntwo", "-x", 4, 20));
}

TEST(Paragraph, BreaksOnceAtANewlineRightAfterAFullLine) {
  EXPECT_EQ("  abcd\n  ef\n", paragraphString("abcd\nef", "", 2, 5));
}

TEST(Paragraph, DropsSpacesAndNewlinesBeforeTheBody) {
  EXPECT_EQ("-x  body\n", paragraphString(" \n\n  body", "-x", 4, 20));
}

TEST(Paragraph, KeepsASpaceThatFitsAtTheEndOfALine) {
  EXPECT_EQ("  abc \n  def\n", paragraphString("abc def", "", 2, 5));
  EXPECT_EQ("  one \n  two\n", paragraphString("one \ntwo", "", 2, 20));
  EXPECT_EQ("  one \n", paragraphString("one ", "", 2, 20));
}

TEST(Paragraph, DropsTheSpacesAtWhichALineWasBroken) {
  EXPECT_EQ("  abc\n  def\n", paragraphString("abc def", "", 2, 4));
  EXPECT_EQ("  abc\n  def\n", paragraphString("abc    def", "", 2, 4));
}

TEST(Paragraph, KeepsSpacesInsideALine) {
  EXPECT_EQ("  a  b\n", paragraphString("a  b", "", 2, 20));
  // The line is cut before the last of the two spaces, so it ends with the first one.
  EXPECT_EQ("  a \n  bcd\n", paragraphString("a  bcd", "", 2, 5));
}

TEST(Paragraph, CutsBackToTheLastSpaceWhereAWordDoesNotFit) {
  EXPECT_EQ("  abc\n  de\n", paragraphString("abc de", "", 2, 6));
  EXPECT_EQ("  a bc\n  def\n", paragraphString("a bc def", "", 2, 7));
}

TEST(Paragraph, FillsALineToTheLastColumn) {
  EXPECT_EQ("  abcde\n  fghij\n", paragraphString("abcde fghij", "", 2, 6));
  EXPECT_EQ("xyz ab\n  cd\n", paragraphString("ab cd", "xyz", 2, 5));
}

TEST(Paragraph, BreaksAtNoOtherWhiteSpace) {
  EXPECT_EQ("  a\tb\n  cd\n", paragraphString("a\tbcd", "", 2, 4));
  EXPECT_EQ("  \t\r\n", paragraphString("\t\r", "", 2, 4));
}

TEST(Paragraph, WithoutAnIndentBeginsEveryLineAfterTheHeadWithASpace) {
  EXPECT_EQ("h aa \n bb\n cc\n", paragraphString("aa bb cc", "h", 0, 6));
  EXPECT_EQ(" aaaa\n bb\n", paragraphString("aaaa bb", "", 0, 6));
  EXPECT_EQ(" a\n b\n", paragraphString("ab", "", 0, 3));
}

// Blanks after the last word are wrapped like any text. They are dropped, so their line has only
// its padding.
TEST(Paragraph, EndsWithALineOfPaddingWhereBlanksAreLeftOver) {
  EXPECT_EQ("  one\n  \n", paragraphString("one\n", "", 2, 20));
  EXPECT_EQ("  abcd\n  \n", paragraphString("abcd ", "", 2, 5));
  EXPECT_EQ("-x  \n", paragraphString(" \n ", "-x", 4, 20));
  EXPECT_EQ(" one\n \n", paragraphString("one\n", "", 0, 20));
  EXPECT_EQ("12345678\n", paragraphString(" ", "12345678", 4, 6));
}

TEST(Paragraph, InAColumnOfWidthTwoHasOneCharacterALine) {
  EXPECT_EQ(" a\n b\n c\n", paragraphString("ab c", "", 1, 2));
  EXPECT_EQ("head\n a\n b\n", paragraphString("ab", "head", 1, 2));
}

// The room of a line is the width minus one in unsigned arithmetic: for width 0 the largest number.
TEST(Paragraph, InAColumnOfWidthZeroHasUnlimitedRoom) {
  const string body(5000, 'x');
  EXPECT_EQ("-h  " + body + " y\n", paragraphString(body + " y", "-h", 4, 0));
  EXPECT_EQ("-head " + body + "\n", paragraphString(body, "-head", 4, 0));
  EXPECT_EQ("    one\n    two\n", paragraphString("one\ntwo", "", 4, 0));
}

TEST(Paragraph, InAColumnOfWidthZeroHasUnlimitedRoomWithoutAnIndentToo) {
  const string body(5000, 'x');
  EXPECT_EQ(" " + body + " y\n", paragraphString(body + " y", "", 0, 0));
  EXPECT_EQ("-head " + body + "\n", paragraphString(body, "-head", 0, 0));
  EXPECT_EQ(" one\n two\n", paragraphString("one\ntwo", "", 0, 0));
  EXPECT_EQ("-h one\n two\n", paragraphString("one\n \ntwo", "-h", 0, 0));
}

// The text of the error that wrapping raises; empty if wrapping raises none.
string raised(const string& text, const string& head, unsigned int indent, unsigned int width) {
  try {
    paragraphString(text, head, indent, width);
  } catch (const std::out_of_range& error) {
    return error.what();
  }
  return "";
}

bool isOutOfRangeAccess(const string& text) {
  return text.find("basic_string::at: __n (which is " + std::to_string(string::npos) +
                   ") >= this->size() (which is ") == 0;
}

TEST(Paragraph, InAColumnOfWidthOneIsOutOfRange) {
  for (const char* head : {"", "-x", "-head", "a head far beyond its column"})
    for (const char* text : {"x", "some words", "\n x"})
      EXPECT_PRED1(isOutOfRangeAccess, raised(text, head, 5, 1)) << head << ", " << text;
  EXPECT_EQ("", raised("", "-head", 5, 1));
}

// Without an indent every line begins with a space, which leaves such a column no room for text.
// Without the error, wrapping would never end.
TEST(Paragraph, WithoutAnIndentInAColumnOfWidthOneOrTwoIsOutOfRangeToo) {
  for (const unsigned int width : {1u, 2u})
    for (const char* head : {"", "h", "head"})
      for (const char* text : {"x", "some words", "\n x"})
        EXPECT_PRED1(isOutOfRangeAccess, raised(text, head, 0, width))
            << width << ", " << head << ", " << text;
  EXPECT_EQ("", raised("", "head", 0, 2));
  EXPECT_EQ("", raised("x", "head", 0, 3));
}

TEST(WrappedText, IsTheParagraphOfItsHeadAndBodyInWhatTheIndentLeaves) {
  const WordWrappedText wrapped("-head", "a body of several words", 10, 30);
  EXPECT_STREQ("-head     a body of several\n          words\n", wrapped.getText());
  EXPECT_EQ(paragraphString("a body of several words", "-head", 10, 20), wrapped.getText());
}

TEST(WrappedText, TakesTheHeadFirst) {
  EXPECT_STREQ("", WordWrappedText("head", "", 10, 30).getText());
  EXPECT_STREQ("          body\n", WordWrappedText("", "body", 10, 30).getText());
}

TEST(WrappedText, DerivesTheWidthInUnsignedArithmetic) {
  const string body(100, 'x');
  EXPECT_EQ("          " + body + "\n", WordWrappedText("", body.c_str(), 10, 10).getText());
  EXPECT_EQ("          " + body + "\n", WordWrappedText("", body.c_str(), 10, 3).getText());
  EXPECT_THROW(WordWrappedText("", "body", 10, 11), std::out_of_range);
  EXPECT_THROW(WordWrappedText("", "body", 0, 2), std::out_of_range);
}

TEST(WrappedText, TakesNullTextsForEmptyOnes) {
  EXPECT_STREQ("", WordWrappedText("head", nullptr, 10, 30).getText());
  EXPECT_STREQ("          body\n", WordWrappedText(nullptr, "body", 10, 30).getText());
}

TEST(WrappedText, HoldsItsOwnTextAndNothingElse) {
  WordWrappedText kept("", "kept", 1, 20);
  const char* const text = kept.getText();
  {
    const WordWrappedText copy(kept);
    EXPECT_STREQ(" kept\n", copy.getText());
    EXPECT_NE(text, copy.getText());
  }
  EXPECT_EQ(text, kept.getText());
  EXPECT_STREQ(" kept\n", text);
  EXPECT_FALSE(std::is_polymorphic<WordWrappedText>::value);
  EXPECT_EQ(sizeof(string), sizeof(WordWrappedText));
}

// A naive reference: the rules of wrapping, applied one by one to a text whose front is erased as
// it is wrapped.
string chunkByTheLetter(const string& text, unsigned int room) {
  string chunk;
  while (chunk.size() < room && chunk.size() < text.size() && text[chunk.size()] != '\n')
    chunk += text[chunk.size()];
  if (text.size() > chunk.size()) {
    const char next = text[chunk.size()];
    if (next != ' ' && next != '\n' && chunk.at(chunk.size() - 1) != ' ') {
      const std::size_t space = text.rfind(' ', chunk.size());
      chunk = space == string::npos ? text : text.substr(0, space);
    }
  }
  if (chunk.size() > room)
    chunk = chunk.substr(0, room);
  return chunk;
}

string wrapByTheLetter(string text, const string& head, unsigned int indent, unsigned int width) {
  string output;
  string line = head;
  while (!text.empty()) {
    while (!text.empty() && (text.front() == ' ' || text.front() == '\n'))
      text.erase(0, 1);
    const auto length = static_cast<unsigned int>(line.size());
    unsigned int room = width - 1;
    if (length < indent) {
      while (line.size() < indent)
        line += ' ';
    } else {
      if (length - indent + 1 >= width - 1) {
        output += line + "\n";
        line = "";
        continue;
      }
      line += " ";
      room = indent + width - 1 - length - 1;
    }
    const string chunk = chunkByTheLetter(text, room);
    line += chunk;
    text.erase(0, chunk.size());
    output += line + "\n";
    line = "";
  }
  return output;
}

struct Layout {
  string text;
  string head;
  unsigned int indent;
  unsigned int width;
};

bool canTakeCharacters(const Layout& layout) {
  return layout.width != 1 && (layout.indent != 0 || layout.width != 2);
}

string wrap(const Layout& layout) {
  return paragraphString(layout.text, layout.head, layout.indent, layout.width);
}

string wrapByTheLetter(const Layout& layout) {
  return wrapByTheLetter(layout.text, layout.head, layout.indent, layout.width);
}

std::ostream& operator<<(std::ostream& out, const Layout& layout) {
  return out << "indent " << layout.indent << ", width " << layout.width << ", head "
             << ::testing::PrintToString(layout.head) << ", text "
             << ::testing::PrintToString(layout.text);
}

TEST(ShortParagraphs, MatchTheNaiveReference) {
  std::vector<string> texts = {""};
  for (std::size_t i = 0; i < texts.size() && texts[i].size() < 6; ++i)
    for (const char c : {'a', ' ', '\n'})
      texts.push_back(texts[i] + c);
  ASSERT_EQ(1093u, texts.size());
  for (const string& text : texts)
    for (const char* head : {"", "h", "hh", "hhh", "hhhh", "hhhhhhh"})
      for (unsigned int indent = 0; indent != 5; ++indent)
        for (const unsigned int width : {0u, 2u, 3u, 4u, 5u, 6u}) {
          const Layout layout = {text, head, indent, width};
          if (!canTakeCharacters(layout))
            continue;
          ASSERT_EQ(wrapByTheLetter(layout), wrap(layout)) << layout;
        }
}

class RandomLayouts {
 public:
  Layout next() {
    const Layout layout = {text(), string(upTo(45), 'h'), upTo(40), 2 + upTo(70)};
    return canTakeCharacters(layout) ? layout : next();
  }

 private:
  unsigned int upTo(unsigned int most) {
    return static_cast<unsigned int>(m_numbers()) % (most + 1);
  }

  string blanks() {
    string run;
    for (unsigned int i = upTo(1) == 0 ? 1 : upTo(5); i != 0; --i)
      run += upTo(4) == 0 ? '\n' : ' ';
    return run;
  }

  string word() {
    string letters;
    for (unsigned int i = 1 + (upTo(9) == 0 ? upTo(150) : upTo(10)); i != 0; --i)
      letters += static_cast<char>('a' + upTo(25));
    return letters;
  }

  string text() {
    string words = upTo(3) == 0 ? blanks() : "";
    for (unsigned int i = upTo(40); i != 0; --i)
      words += word() + (i != 1 || upTo(3) == 0 ? blanks() : "");
    return words;
  }

  std::mt19937 m_numbers{20240229};
};

constexpr int randomRuns = 20000;

std::vector<string> linesOf(const string& paragraph) {
  std::vector<string> lines;
  std::istringstream stream(paragraph);
  for (string line; std::getline(stream, line);)
    lines.push_back(line);
  return lines;
}

string withoutBlanks(const string& text) {
  string letters;
  for (const char c : text)
    if (c != ' ' && c != '\n')
      letters += c;
  return letters;
}

TEST(RandomParagraphs, MatchTheNaiveReference) {
  RandomLayouts layouts;
  for (int i = 0; i != randomRuns; ++i) {
    const Layout layout = layouts.next();
    ASSERT_EQ(wrapByTheLetter(layout), wrap(layout)) << layout;
  }
}

TEST(RandomParagraphs, HaveLinesThatEndWithANewlineAndFitTheColumn) {
  RandomLayouts layouts;
  for (int i = 0; i != randomRuns; ++i) {
    const Layout layout = layouts.next();
    const string paragraph = wrap(layout);
    ASSERT_EQ(layout.text.empty(), paragraph.empty()) << layout;
    if (paragraph.empty())
      continue;
    ASSERT_EQ('\n', paragraph.back()) << layout;
    const std::vector<string> lines = linesOf(paragraph);
    const std::size_t longest = layout.indent + layout.width - 1;
    for (std::size_t line = 0; line != lines.size(); ++line)
      ASSERT_TRUE(lines[line].size() <= longest || (line == 0 && lines[line] == layout.head))
          << layout << ", line " << line;
  }
}

TEST(RandomParagraphs, HoldTheHeadAndThenAllOfTheBodyInOrder) {
  RandomLayouts layouts;
  for (int i = 0; i != randomRuns; ++i) {
    const Layout layout = layouts.next();
    const string paragraph = wrap(layout);
    if (layout.text.empty())
      continue;
    ASSERT_EQ(layout.head, paragraph.substr(0, layout.head.size())) << layout;
    ASSERT_EQ(withoutBlanks(layout.text), withoutBlanks(paragraph.substr(layout.head.size())))
        << layout;
  }
}

TEST(RandomParagraphs, HaveTheirBodyAtTheIndentOnEveryFurtherLine) {
  RandomLayouts layouts;
  for (int i = 0; i != randomRuns; ++i) {
    const Layout layout = layouts.next();
    const std::vector<string> lines = linesOf(wrap(layout));
    const string ahead(std::max(layout.indent, 1u), ' ');
    for (std::size_t line = 1; line < lines.size(); ++line) {
      ASSERT_EQ(ahead, lines[line].substr(0, ahead.size())) << layout;
      if (line + 1 < lines.size()) {
        ASSERT_NE(' ', lines[line].at(ahead.size())) << layout;
      }
    }
  }
}

}  // namespace
}  // namespace kivo_3_3::testing
