#pragma once

#include <string>

namespace notebook {

/// A day of the Gregorian calendar, from the year 0 to 9999.
struct Date {
  int year = 1;
  int month = 1;
  int day = 1;
};

bool operator<(const Date& left, const Date& right);

/// Reads "2026-05-01". Returns null, or what was expected; kivo::Tool finds both functions by their
/// names, so that an option can have a variable of this type.
const char* parseValue(const char* text, Date& date);
std::string formatValue(const Date& date);

}  // namespace notebook
