#include <filesystem>
#include <random>
#include <sstream>

#include "textkit_fixture.h"

// The output of textkit is right: counts are compared with wc, searches with grep, hashes with the
// published values of FNV-1a.

namespace end_to_end {
namespace {

const char* const licences[] = {"GPL-3", "Apache-2.0", "Artistic"};

std::string licence(const std::string& name) { return "/usr/share/common-licenses/" + name; }

// The fields of each line, with one blank between them: wc pads its columns differently.
std::string fields(const std::string& text) {
  std::istringstream lines(text);
  std::string all;
  for (std::string line; std::getline(lines, line); all += '\n') {
    std::istringstream words(line);
    for (std::string word; words >> word;)
      all += (all.empty() || all.back() == '\n' ? "" : " ") + word;
  }
  return all;
}

std::string randomText(std::mt19937& random, const std::string& alphabet, std::size_t atMost) {
  std::string text(random() % (atMost + 1), '\0');
  for (char& c : text)
    c = alphabet[random() % alphabet.size()];
  return text;
}

class TextkitCount : public Textkit {};
class TextkitSearch : public Textkit {
 protected:
  // The output of grep with status 0: its own exit status says whether there was a match.
  Outcome grep(Arguments arguments) const {
    arguments.insert(arguments.begin(), {"grep", "-aF"});
    return prints(tool(arguments).out);
  }
};
class TextkitHash : public Textkit {};

TEST_F(TextkitCount, CountsWhatWcCountsInRandomTexts) {
  std::mt19937 random(1);
  for (int round = 0; round < 60; ++round) {
    const std::string text = randomText(random, "ab.  \t\r\v\f\n\n", 200);
    SCOPED_TRACE(testing::PrintToString(text));
    write("text", text);
    const Outcome wc = tool({"wc", "-lwc", "text"});
    EXPECT_EQ(fields(wc.out), fields(textkit({"-count", "text"}).out));
  }
}

TEST_F(TextkitCount, EndsTheTableOfSeveralFilesWithTheSumsAsWcDoes) {
  write("one", "a b\nc\n");
  write("two", std::string("\0\xFF x\n\n", 6));
  write("empty", "");
  const Outcome wc = tool({"wc", "-lwc", "one", "empty"});
  EXPECT_EQ(fields(wc.out), fields(textkit({"-count", "one", "empty"}).out));
  EXPECT_EQ(prints("2 3  6 one\n2 2  6 two\n0 0  0 empty\n4 5 12 total\n"),
            textkit({"-count", "one", "two", "empty"}));
}

TEST_F(TextkitCount, CountsWhatWcCountsInLicences) {
  for (const char* name : licences) {
    SCOPED_TRACE(name);
    if (!std::filesystem::exists(licence(name)))
      GTEST_SKIP() << "no licence texts on this system";
    const Outcome wc = tool({"wc", "-lwc", licence(name)});
    EXPECT_EQ(fields(wc.out), fields(textkit({"-count", licence(name)}).out));
  }
}

TEST_F(TextkitCount, CountsCharactersAsWcDoesInUtf8) {
  write("text", "na\xC3\xAFve \xE2\x80\x93 \xF0\x9F\x99\x82\n");
  const Outcome wc = tool({"env", "LC_ALL=C.UTF-8", "wc", "-m", "text"});
  EXPECT_EQ(wc, textkit({"-count", "-what=chars", "text"}));
}

TEST_F(TextkitCount, CountsBlankLinesAsGrepFindsThem) {
  write("text", "\n \t\na\n\r\nb\n  ");
  const Outcome grep = tool({"grep", "-acv", "[^[:space:]]", "text"});
  EXPECT_EQ("4\n", grep.out);
  EXPECT_EQ(prints("4 text\n"), textkit({"-count", "-what=blank", "text"}));
}

TEST_F(TextkitCount, ShowsTheColumnsInTheOrderAskedFor) {
  write("text", "a b\n");
  EXPECT_EQ(prints("4 1 2 text\n"), textkit({"-count", "-what=bytes,lines", "-w", "wo", "text"}));
}

TEST_F(TextkitCount, ReadsStandardInputWithoutFiles) {
  EXPECT_EQ(prints("1 2 8 (standard input)\n"), textkit({"-count"}, "one two\n"));
}

TEST_F(TextkitCount, WritesCsvWithHeadingsAndWithoutSums) {
  write("a,\"b\"", "x\n");
  write("c", "");
  EXPECT_EQ(prints("file,lines,words,bytes\n\"a,\"\"b\"\"\",1,1,2\nc,0,0,0\n"),
            textkit({"-count", "-format=csv", "a,\"b\"", "c"}));
}

TEST_F(TextkitCount, LeavesOutFilesBelowTheRatioOfFilledLines) {
  write("half", "a\n\nb\n \n");
  write("full", "a\nb");
  write("empty", "");
  EXPECT_EQ(prints("4 half\n1 full\n5 total\n"),
            textkit({"-count", "-what=lines", "-min-ratio=0.5", "half", "full", "empty"}));
  EXPECT_EQ(prints("1 full\n"),
            textkit({"-count", "-what=lines", "-min-ratio=0.51", "-f=csv", "-f=p", "full"}));
  EXPECT_EQ(prints(""), textkit({"-count", "-min-ratio=0.51", "half"}));
}

TEST_F(TextkitCount, SkipsBytesAsTailDoes) {
  const std::string text = "one two\nthree\n";
  write("text", text);
  const struct {
    const char* skip;
    const char* tail;
  } cases[] = {{"0", "+1"}, {"4", "+5"}, {"99", "+100"}, {"-5", "5"}, {"-99", "99"}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.skip);
    const std::string rest = tool({"tail", "-c", c.tail, "text"}).out;
    const std::string wc = fields(tool({"wc", "-lwc"}, rest).out);
    EXPECT_EQ(wc.substr(0, wc.find('\n')) + " (standard input)\n",
              fields(textkit({"-count", "-skip=" + std::string(c.skip)}, text).out));
  }
  EXPECT_EQ(prints("2 3 14 text\n"), textkit({"-count", "-skip=-9223372036854775808", "text"}));
}

TEST_F(TextkitSearch, FindsWhatGrepFindsInRandomTexts) {
  std::mt19937 random(2);
  const struct {
    Arguments textkit;
    Arguments grep;
  } cases[] = {
      {{"-pattern=ab"}, {"-e", "ab"}},
      {{"-pattern=aa,bB"}, {"-e", "aa", "-e", "bB"}},
      {{"-pattern=Ab", "-ignore-case"}, {"-e", "Ab", "-i"}},
      {{"-pattern=ab", "-line-number", "-limit=2"}, {"-e", "ab", "-n", "-m", "2"}},
      {{"-pattern=ab", "-n", "-context=1"}, {"-e", "ab", "-n", "-C", "1"}},
      {{"-pattern=ab", "-n", "-context=-2"}, {"-e", "ab", "-n", "-B", "2"}},
      {{"-pattern=aa", "-n", "-context=2", "-limit=1"}, {"-e", "aa", "-n", "-C", "2", "-m", "1"}},
      {{"-pattern=a", "-limit=0", "-context=3"}, {"-e", "a", "-m", "0", "-C", "3"}},
      {{"-literal=a,b", "-n"}, {"-e", "a,b", "-n"}},
  };
  for (int round = 0; round < 15; ++round) {
    write("one", randomText(random, "abAB,\n\n", 120));
    write("two", randomText(random, "abAB,\n\n", 120));
    for (const auto& c : cases) {
      Arguments search = {"-search", "one"};
      search.insert(search.end(), c.textkit.begin(), c.textkit.end());
      Arguments expected = c.grep;
      expected.push_back("one");
      EXPECT_EQ(grep(expected), textkit(search)) << testing::PrintToString(search);
      search.push_back("two");
      expected.push_back("two");
      EXPECT_EQ(grep(expected), textkit(search)) << testing::PrintToString(search);
    }
  }
}

TEST_F(TextkitSearch, FindsWhatGrepFindsInLicences) {
  Arguments files;
  for (const char* name : licences) {
    if (!std::filesystem::exists(licence(name)))
      GTEST_SKIP() << "no licence texts on this system";
    files.push_back(licence(name));
  }
  Arguments search = {"-search", "-pattern=warranty,liability", "-i", "-n", "-context=1"};
  search.insert(search.end(), files.begin(), files.end());
  Arguments expected = {"-e", "warranty", "-e", "liability", "-i", "-n", "-C", "1"};
  expected.insert(expected.end(), files.begin(), files.end());
  const Outcome found = textkit(search);
  EXPECT_LT(1000U, found.out.size());
  EXPECT_EQ(grep(expected), found);
}

TEST_F(TextkitSearch, TakesBinaryBytesForText) {
  const std::string text("\0x\xFF\n\x80y", 6);
  write("text", text);
  EXPECT_EQ(prints(std::string("1:\0x\xFF\n", 6)), textkit({"-search", "-p", "x", "-n", "text"}));
  EXPECT_EQ(grep({"-e", "y", "text"}), textkit({"-search", "-p", "y", "text"}));
}

TEST_F(TextkitSearch, SucceedsWithoutAMatch) {
  write("text", "a\n");
  EXPECT_EQ(prints(""), textkit({"-search", "-pattern=x", "text"}));
  EXPECT_EQ(prints(""), textkit({"-search", "-pattern=x"}));
}

TEST_F(TextkitSearch, WritesCsvThatTellsMatchFromContext) {
  write("text", "first\nx, \"y\"\nlast\n\nx");
  EXPECT_EQ(prints("file,line,kind,text\n"
                   "text,1,context,first\n"
                   "text,2,match,\"x, \"\"y\"\"\"\n"
                   "text,4,context,\n"
                   "text,5,match,x\n"),
            textkit({"-search", "-pattern=x", "-context=-1", "-format=csv", "text"}));
}

TEST_F(TextkitSearch, NumbersLinesFromWhereTheSkippedPartEnds) {
  write("text", "x1\nx2\nx3\n");
  EXPECT_EQ(prints("1:x2\n2:x3\n"), textkit({"-search", "-p=x", "-n", "-skip=3", "text"}));
}

TEST_F(TextkitHash, GivesThePublishedValues) {
  const struct {
    const char* text;
    const char* hash;
  } cases[] = {
      {"", "cbf29ce484222325"},
      {"a", "af63dc4c8601ec8c"},
      {"foobar", "85944171f73967e8"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.text);
    EXPECT_EQ(prints(std::string(c.hash) + " (standard input)\n"), textkit({"-hash"}, c.text));
  }
}

TEST_F(TextkitHash, StartsFromTheBasisInAnyForm) {
  // The hash of "foobar" can be computed in two steps: the hash of "foo" is the basis for "bar".
  for (const char* basis : {"0xdcb27518fed9d577", "dcb27518fed9d577h", "15902901984413996407"}) {
    SCOPED_TRACE(basis);
    EXPECT_EQ(prints("85944171f73967e8 (standard input)\n"),
              textkit({"-hash", "-basis", basis}, "bar"));
  }
  EXPECT_EQ(prints("dcb27518fed9d577 (standard input)\n"), textkit({"-hash"}, "foo"));
}

TEST_F(TextkitHash, AndCountTogetherFollowTheOrderGiven) {
  write("text", "foobar");
  EXPECT_EQ(prints("85944171f73967e8 1 text\n"),
            textkit({"-hash", "-count", "-what=words", "text"}));
  EXPECT_EQ(prints("file,words,hash\ntext,1,85944171f73967e8\n"),
            textkit({"-count", "-checksum", "-what=words", "-format=csv", "text"}));
  EXPECT_EQ(prints("1 85944171f73967e8 text\n1 85944171f73967e8 text\n2                  total\n"),
            textkit({"-c", "-x", "-what=words", "text", "text"}));
}

TEST_F(TextkitHash, AndCountTogetherTakeTheBasis) {
  EXPECT_EQ(prints("6 765104e111a7551d (standard input)\n"),
            textkit({"-count", "-hash", "-what=bytes", "-basis=0", "-skip=0"}, "foobar"));
}

}  // namespace
}  // namespace end_to_end
