#include "text.h"

#include <gtest/gtest.h>

namespace kivo_describe {
namespace {

TEST(Text, RunsOfWhiteSpaceAndControlCharactersBecomeBlanks) {
  const std::pair<std::string, std::string> cases[] = {
      {"", ""},
      {" \t\r\n\v\f", ""},
      {" a \n b ", "a b"},
      {std::string("a\0b", 3), "a b"},
      {"a\x1F\x7F\xC2\x80\xC2\x9F"
       "b",
       "a b"},
      {"a\xC2\xA0"
       "b",
       "a\xC2\xA0"
       "b"},                                             // a no-break space is a character
      {"\xC3\x80\xE2\x80\x89", "\xC3\x80\xE2\x80\x89"},  // 0x80 and 0x89 inside of characters
      {"a\xC2", "a\xC2"},
  };
  for (const auto& [text, expected] : cases)
    EXPECT_EQ(expected, squeezed(text));
}

TEST(Text, CharactersAreCountedNotBytes) {
  EXPECT_EQ(0U, countOfCharacters(""));
  EXPECT_EQ(4U, countOfCharacters("a\xC3\xA9\xE4\xB8\xAD\xF0\x9F\x98\x80"));
}

TEST(Text, IsSplitAtEachBlank) {
  EXPECT_EQ((Texts{"a", "", "b"}), splitAtBlanks("a  b"));
  EXPECT_EQ((Texts{""}), splitAtBlanks(""));
  EXPECT_EQ((Texts{"", ""}), splitAtBlanks(" "));
}

TEST(Text, AWordHasNoWhiteSpace) {
  for (const char* const text : {"a", "-", "\xC3\xA9", "a'b", "a\x7F"})
    EXPECT_TRUE(isWord(text)) << text;
  for (const char* const text : {"", " ", "a b", "a\tb", "a\n"})
    EXPECT_FALSE(isWord(text)) << text;
}

TEST(Text, ToolNames) {
  for (const char* const name : {"a", "Z", "0", "_", "a_-.+9", "7zip", "g++"})
    EXPECT_TRUE(isToolName(name)) << name;
  for (const char* const name : {"", "-a", ".a", "+a", "a b", "a/b", "\xC3\xA9", "a\n", "a@", "a`"})
    EXPECT_FALSE(isToolName(name)) << name;
}

}  // namespace
}  // namespace kivo_describe
