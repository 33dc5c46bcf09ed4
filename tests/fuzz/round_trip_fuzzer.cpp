// Converts values to text and back. The outcome must be the same value of the same type. A double
// keeps only six digits: its second text must equal the first one, and the values may differ after
// these digits.
//
// Each input is used twice: as the text of a value, and as the bits of a value. The texts of
// infinity and "not a number" do not convert back.

#include <cmath>
#include <cstring>
#include <limits>
#include <stdexcept>

#include "fuzz/fuzz.h"
#include "fuzz/locales.h"
#include "fuzz/parsing.h"
#include "fuzz/script.h"
#include "options/value_conversion.h"

namespace kivo_3_3::fuzzing {
namespace {

using std::string;

constexpr variant_type_t exactTypes[] = {vtBool, vtS32, vtU32, vtS64, vtU64, vtString};
constexpr variant_type_t typesWithoutText[] = {vtNull, vtFloat, vtWideString, vtBlock};

// Differ by at most half a unit in the sixth digit, or by the smallest double.
bool areClose(double left, double right) {
  return std::abs(left - right) <=
         5.01e-6 * std::abs(left) + std::numeric_limits<double>::denorm_min();
}

void checkDouble(const variant_t& value) {
#ifndef __GLIBCXX__  // the streams of others refuse numbers that are not normalised
  constexpr double aboveSmallest = 1.01 * std::numeric_limits<double>::min();
  if (value.get<double>() != 0 && std::abs(value.get<double>()) < aboveSmallest)
    return;
#endif
  Garbage garbage;
  const char* text = valueToText(vtDouble, value, garbage);
  const variant_t again = textToValue(vtDouble, text);
  if (!std::isfinite(value.get<double>())) {
    expectEqual("what is no number reads as nothing", exactly({}), exactly(again));
    return;
  }
  expect(again.type() == vtDouble && areClose(value.get<double>(), again.get<double>()),
         "a double keeps six digits", exactly(value) + " " + text + " " + exactly(again));
  expectEqual("a double settles after one turn", text, valueToText(vtDouble, again, garbage));
}

// `value` is of the type or can be read as it.
void checkExact(variant_type_t type, const variant_t& value) {
  Garbage garbage;
  const char* text = valueToText(type, value, garbage);
  const bool isEmptyNumber = *text == '\0' && type == vtU64;
  expect(!isEmptyNumber, "a number has a text", exactly(value));
  expectEqual("a value comes back", exactly(value), exactly(textToValue(type, text)));
}

void checkText(const string& text) {
  for (const variant_type_t type : exactTypes) {
    if (type == vtU64 && text.empty())
      continue;  // the parser never converts an empty text
    const variant_t value = textToValue(type, text.c_str());
    if (value.type() == vtNull)
      continue;
    expect(value.type() == type, "a value has the kind that was asked for", exactly(value));
    checkExact(type, value);
  }
  const variant_t number = textToValue(vtDouble, text.c_str());
  if (number.type() != vtNull)
    checkDouble(number);
  for (const variant_type_t type : typesWithoutText) {
    Garbage garbage;
    expectEqual("other types convert nothing", exactly({}),
                exactly(textToValue(type, text.c_str())));
    expect(valueToText(type, variant_t(text.c_str()), garbage) == nullptr,
           "other types have no text", text);
  }
}

void checkBits(u64_t bits) {
  double number = 0;
  std::memcpy(&number, &bits, sizeof number);
  checkDouble(number);
  checkExact(vtBool, (bits & 1) != 0);
  checkExact(vtS32, static_cast<s32_t>(bits));
  checkExact(vtU32, static_cast<u32_t>(bits));
  checkExact(vtS64, static_cast<s64_t>(bits));
  checkExact(vtU64, bits);
}

}  // namespace
}  // namespace kivo_3_3::fuzzing

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace kivo_3_3;
  const std::string text = fuzzing::textOf(data, size);
  u64_t bits = 0;
  std::memcpy(&bits, data, std::min(size, sizeof bits));
  fuzzing::underEveryLocale([&] {
    fuzzing::checkText(text);
    fuzzing::checkBits(bits);
  });
  return 0;
}
