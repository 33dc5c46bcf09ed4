#include "date.h"

#include <array>
#include <string_view>
#include <tuple>

namespace notebook {
namespace {

constexpr std::string_view pattern = "0000-00-00";

bool hasPattern(std::string_view text) {
  if (text.size() != pattern.size())
    return false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool isDigit = text[i] >= '0' && text[i] <= '9';
    if (pattern[i] == '0' ? !isDigit : text[i] != pattern[i])
      return false;
  }
  return true;
}

int number(std::string_view digits) {
  int value = 0;
  for (const char digit : digits)
    value = 10 * value + (digit - '0');
  return value;
}

int daysOf(int year, int month) {
  constexpr std::array days = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  const bool isLeap = year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
  return days.at(static_cast<std::size_t>(month) - 1) + (isLeap && month == 2 ? 1 : 0);
}

// The number with zeros before it, `width` digits in all.
std::string padded(int value, std::size_t width) {
  const std::string digits = std::to_string(value);
  return std::string(width - digits.size(), '0') + digits;
}

}  // namespace

bool operator<(const Date& left, const Date& right) {
  return std::tie(left.year, left.month, left.day) < std::tie(right.year, right.month, right.day);
}

const char* parseValue(const char* text, Date& date) {
  const std::string_view given = text;
  if (!hasPattern(given))
    return "a date such as 2026-05-01";
  date = {number(given.substr(0, 4)), number(given.substr(5, 2)), number(given.substr(8, 2))};
  if (date.month < 1 || date.month > 12)
    return "a month from 01 to 12";
  if (date.day < 1 || date.day > daysOf(date.year, date.month))
    return "a day that its month has";
  return nullptr;
}

std::string formatValue(const Date& date) {
  return padded(date.year, 4) + '-' + padded(date.month, 2) + '-' + padded(date.day, 2);
}

}  // namespace notebook
