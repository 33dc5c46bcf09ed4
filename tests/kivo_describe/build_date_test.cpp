#include "build_date.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>
#include <stdexcept>

namespace kivo_describe {
namespace {

TEST(BuildDate, IsTheDayInUniversalTime) {
  EXPECT_EQ("1970-01-01", buildDate("0"));
  EXPECT_EQ("1970-01-01", buildDate("86399"));
  EXPECT_EQ("1970-01-02", buildDate("86400"));
  EXPECT_EQ("2024-02-29", buildDate("1709164800"));
  EXPECT_EQ("9999-12-31", buildDate("253402300799"));
}

// Sets the time zone while the object exists.
class TimeZone {
 public:
  explicit TimeZone(const char* name) {
    setenv("TZ", name, 1);
    tzset();
  }
  TimeZone(const TimeZone&) = delete;
  TimeZone& operator=(const TimeZone&) = delete;
  ~TimeZone() {
    unsetenv("TZ");
    tzset();
  }
};

TEST(BuildDate, IsTheSameInEveryTimeZone) {
  for (const char* const zone : {"EAST-14", "WEST12"}) {
    const TimeZone there(zone);
    EXPECT_EQ("1970-01-01", buildDate("86399")) << zone;
    EXPECT_EQ("1970-01-02", buildDate("86400")) << zone;
  }
}

TEST(BuildDate, ThereIsNoneWithoutANumber) {
  EXPECT_EQ("", buildDate(nullptr));
  EXPECT_EQ("", buildDate(""));
}

TEST(BuildDate, OtherTextsAreRefused) {
  for (const char* const text :
       {"x", "1x", " 1", "-1", "1.5", "253402300800", "99999999999999999999"})
    EXPECT_THROW(buildDate(text), std::invalid_argument) << text;
}

}  // namespace
}  // namespace kivo_describe
