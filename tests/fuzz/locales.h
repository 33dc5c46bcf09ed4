#pragma once

#include <locale>

#include "support/global_locale.h"

namespace kivo_3_3::fuzzing {

// Runs a check under the classic locale and under others.
template <class Check>
void underEveryLocale(Check check) {
  static const std::locale locales[] = {std::locale::classic(), testing::localeWithDecimalComma(),
                                        testing::localeWithUnderscoreAsSpace()};
  for (const std::locale& locale : locales) {
    const testing::GlobalLocale global(locale);
    check();
  }
}

}  // namespace kivo_3_3::fuzzing
