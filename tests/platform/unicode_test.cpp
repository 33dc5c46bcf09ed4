#include "bedrock/unicode.h"

#include <gtest/gtest.h>

namespace kivo_3_3::testing {
namespace {

using BEDROCK::utf32_to_utf8;

TEST(Utf32ToUtf8, EveryLengthBeginsAndEndsWhereItShould) {
  const struct {
    char32_t character;
    const char* bytes;
  } cases[] = {
      {0x01, "\x01"},
      {0x2D, "-"},
      {0x7F, "\x7F"},
      {0x80, "\xC2\x80"},
      {0xAA, "\xC2\xAA"},  // alternating bits
      {0x7FF, "\xDF\xBF"},
      {0x800, "\xE0\xA0\x80"},
      {0xD7FF, "\xED\x9F\xBF"},
      {0xE000, "\xEE\x80\x80"},
      {0xFFFF, "\xEF\xBF\xBF"},
      {0x10000, "\xF0\x90\x80\x80"},
      {0x8AAAA, "\xF2\x8A\xAA\xAA"},
      {0x8A56A, "\xF2\x8A\x95\xAA"},
      {0x10FFFF, "\xF4\x8F\xBF\xBF"},
  };
  for (const auto& c : cases)
    EXPECT_EQ(c.bytes, utf32_to_utf8(c.character)) << std::hex << std::uint32_t{c.character};
}

TEST(Utf32ToUtf8, TypographicDashesTakeThreeBytes) {
  EXPECT_EQ("\xE2\x80\x92", utf32_to_utf8(0x2012));
  EXPECT_EQ("\xE2\x80\x93", utf32_to_utf8(0x2013));
  EXPECT_EQ("\xE2\x80\x94", utf32_to_utf8(0x2014));
  EXPECT_EQ("\xE2\x80\x95", utf32_to_utf8(0x2015));
  EXPECT_EQ("\xE2\x81\x93", utf32_to_utf8(0x2053));
}

TEST(Utf32ToUtf8, NulIsOneByte) { EXPECT_EQ(std::string(1, '\0'), utf32_to_utf8(0)); }

TEST(Utf32ToUtf8, WhatIsNoCharacterGivesTheFailureText) {
  for (const char32_t number : {0xD800u, 0xDBFFu, 0xDC00u, 0xDFFFu, 0x110000u, 0xFFFFFFFFu})
    EXPECT_EQ("-1", utf32_to_utf8(number)) << std::hex << std::uint32_t{number};
}

}  // namespace
}  // namespace kivo_3_3::testing
