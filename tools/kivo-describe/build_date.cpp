#include "build_date.h"

#include <charconv>
#include <cstddef>
#include <ctime>
#include <stdexcept>
#include <string_view>

// The time of the build must not get into a page: the same description makes the same page.

namespace kivo_describe {
namespace {

constexpr std::time_t endOf9999 = 253402300799;  // seconds since 1970

}  // namespace

std::string buildDate(const char* secondsSince1970) {
  const std::string_view text = secondsSince1970 != nullptr ? secondsSince1970 : "";
  if (text.empty())
    return "";
  std::time_t seconds = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), seconds);
  if (error != std::errc() || end != text.data() + text.size() || seconds < 0 ||
      seconds > endOf9999)
    throw std::invalid_argument("SOURCE_DATE_EPOCH is no number of seconds since 1970: '" +
                                std::string(text) + "'");
  std::tm date = {};
  gmtime_r(&seconds, &date);
  char day[sizeof "9999-12-31"];
  const std::size_t length = std::strftime(day, sizeof day, "%Y-%m-%d", &date);
  return {day, length};
}

}  // namespace kivo_describe
