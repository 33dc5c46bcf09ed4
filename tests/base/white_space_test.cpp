#include "base/white_space.h"

#include <gtest/gtest.h>

#include <limits>
#include <optional>

#include "support/global_locale.h"

namespace kivo_3_3::testing {
namespace {

void expectAgreement(const std::locale& locale) {
  const WhiteSpace isSpace;
  for (int code = std::numeric_limits<char>::min(); code <= std::numeric_limits<char>::max();
       ++code)
    EXPECT_EQ(std::isspace(static_cast<char>(code), locale), isSpace(static_cast<char>(code)))
        << code;
}

TEST(WhiteSpace, IsWhatTheClassicLocaleSays) { expectAgreement(std::locale::classic()); }

TEST(WhiteSpace, IsWhatTheGlobalLocaleSays) {
  const std::locale locale = localeWithUnderscoreAsSpace();
  const GlobalLocale global(locale);
  expectAgreement(locale);
  EXPECT_TRUE(WhiteSpace()('_'));
  EXPECT_FALSE(WhiteSpace()(' '));
}

TEST(WhiteSpace, KeepsToTheLocaleItWasMadeUnder) {
  std::optional<WhiteSpace> isSpace;
  {
    const GlobalLocale global(localeWithUnderscoreAsSpace());
    isSpace.emplace();
  }
  EXPECT_TRUE((*isSpace)('_'));
  EXPECT_FALSE((*isSpace)(' '));
  EXPECT_FALSE(WhiteSpace()('_'));
}

TEST(WhiteSpace, OnlyTheClassicLocaleIsClassic) {
  EXPECT_TRUE(isClassicLocale());
  {
    const GlobalLocale global(localeWithDecimalComma());
    EXPECT_FALSE(isClassicLocale());
  }
  EXPECT_TRUE(isClassicLocale());
}

}  // namespace
}  // namespace kivo_3_3::testing
