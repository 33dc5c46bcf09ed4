// Compares the conversions with the standard streams, which define how numbers are written: many
// texts are read and many values written, under several global locales.

#include <gtest/gtest.h>

#include <cstring>
#include <limits>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include "options/value_conversion.h"
#include "support/global_locale.h"
#include "support/number_streams.h"

namespace kivo_3_3::testing {
namespace {

using std::string;

// The type tag and the exact value, a double to its last bit.
string exactly(const variant_t& value) {
  std::ostringstream out;
  out.imbue(std::locale::classic());
  out << value.type() << ":";
  if (value.type() == vtDouble)
    out << std::hexfloat << value.get<double>();
  else if (value.can_get<u64_t>())
    out << value.get<u64_t>();
  return out.str();
}

void expectReadAsByStream(const string& text) {
  for (const NumericType& type : numericTypes) {
    if (!type.mayRead(text))
      continue;
    ASSERT_EQ(exactly(type.read(text)), exactly(textToValue(type.type, text.c_str())))
        << "\"" << text << "\" as " << typeName(type.type);
  }
}

void expectWrittenAsByStream(const variant_t& value) {
  Garbage garbage;
  for (const NumericType& type : numericTypes) {
    if (!type.mayWrite(value))
      continue;
    ASSERT_EQ(type.write(value), valueToText(type.type, value, garbage))
        << exactly(value) << " as " << typeName(type.type);
  }
}

template <class T>
void expectBoundsWrittenAsByStream() {
  expectWrittenAsByStream(std::numeric_limits<T>::min());
  expectWrittenAsByStream(std::numeric_limits<T>::max());
}

// Runs `check` under the classic locale and under two others.
template <class Check>
void underEveryLocale(Check check) {
  const struct {
    const char* name;
    std::locale locale;
  } cases[] = {{"classic", std::locale::classic()},
               {"decimal comma and grouping", localeWithDecimalComma()},
               {"underscore as space", localeWithUnderscoreAsSpace()}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    const GlobalLocale global(c.locale);
    check();
  }
}

using Random = std::mt19937;

std::size_t below(std::size_t end, Random& random) {
  return std::uniform_int_distribution<std::size_t>(0, end - 1)(random);
}

// One to five random pieces in a row: sometimes a number, often nearly one.
string randomText(Random& random) {
  static const char* const pieces[] = {
      "0", "00",   "1",   "7",  "9",   "12",  "42",         "123",        "255",
      "+", "-",    ".",   ",",  " ",   "  ",  "\t",         "\n",         "\v",
      "e", "E",    "e+",  "E-", "e5",  "0x",  "0X",         "x",          "h",
      "H", "F",    "ff",  "A",  "inf", "nan", "infinity",   "_",          "\xA0",
      "p", "true", "1e3", ".5", "5.",  "1.2", "4294967295", "2147483648", "9223372036854775807"};
  string text;
  for (std::size_t count = 1 + below(5, random); count != 0; --count)
    text += pieces[below(std::size(pieces), random)];
  return text;
}

string randomDigits(std::size_t count, Random& random) {
  string digits;
  for (; count != 0; --count)
    digits += static_cast<char>('0' + below(10, random));
  return digits;
}

// A random decimal number of up to 22 digits, sometimes with a sign, a fraction, an exponent or a
// blank after it.
string randomNumber(Random& random) {
  string text = below(4, random) == 0 ? "-" : "";
  text += randomDigits(1 + below(22, random), random);
  if (below(2, random) == 0)
    text += (below(2, random) == 0 ? "." : ",") + randomDigits(below(25, random), random);
  if (below(4, random) == 0)
    text += "e" + std::to_string(static_cast<int>(below(700, random)) - 350);
  return text + (below(8, random) == 0 ? " " : "");
}

u64_t randomBits(Random& random) {
  const u64_t bits = std::uniform_int_distribution<u64_t>()(random);
  return bits >> below(64, random);
}

double randomDouble(Random& random) {
  const u64_t bits = std::uniform_int_distribution<u64_t>()(random);
  double value = 0;
  std::memcpy(&value, &bits, sizeof value);
  return value;
}

// Splits a text at its bars (|).
std::vector<string> piecesOf(const char* joined) {
  std::vector<string> pieces;
  std::istringstream stream(joined);
  for (string piece; std::getline(stream, piece, '|');)
    pieces.push_back(piece);
  return pieces;
}

TEST(ConversionLikeStreams, TextsAtTheEdges) {
  const char* const families[] = {
      "| |0|-0|+0|00|1|01|2|-1|+1|+-1|-+1|--1|- 1|+ 1|-|+|true|false|10|0 0",
      "12 | 12| 12 |12x|12 x|1 2|x12|-5 |\t\n\v\f\r 5 \r\f\v\n\t|5\t.|_5_|5_|_|5 _|1\xA0|\xA0|1",
      "0x|0X|0x1F|0X1f|1Fh|1FH|FF|0x1G|12abc|0h|h|H|xh|0xh|0x1Fh|00x1|-0x1|-1h|+1h",
      "1h |0x |0x-1|0x+1|0x 1|0x0x1|0x.|1 h|1.000h|0x1.000|0x1,000|1,000h|x1|1x1|Hh",
      "0xFFFFFFFFFFFFFFFF|0x10000000000000000|FFFFFFFFFFFFFFFFh|0000000000000000Fh",
      "10000000000000000h|0x00000000000000000000000000F|99999999999999999999999999",
      "3.5|3.|.5|.|-.5|+.5|-.|1.5.5|1e|1e+|1e5|1E-5|1e5.5|1e 5|1e05|1e+05x|e5|0.1",
      "1e308|1e309|-1e309|1e-307|1e-400|1.7976931348623157e308|1.7976931348623159e308",
      "2.2250738585072014e-308|5e-324|4e-324|2e-324|0.30000000000000004|9007199254740993",
      "inf|-inf|nan|infinity|NAN|0x1p3|0x1.8p1",
      "1,5|1,|,5|1.234|1,234|1.234.567|1.23.456|1.234,5|1234.567|12.345.6|.123|1..234",
      "1.234.|-1.234|1.234.567,25|1.234,567.8|1,234,567.25|2.147.483.647|2.147.483.648",
      "18.446.744.073.709.551.615|18.446.744.073.709.551.616|9.223.372.036.854.775.808"};
  underEveryLocale([&] {
    for (const char* family : families)
      for (const string& text : piecesOf(family))
        expectReadAsByStream(text);
  });
}

TEST(ConversionLikeStreams, TextsAroundEveryBound) {
  const char* const bounds[] = {"2147483647", "4294967295", "9223372036854775807",
                                "18446744073709551615", "99999999999999999999"};
  underEveryLocale([&] {
    for (const string bound : bounds) {
      for (int last = '0'; last <= '9'; ++last) {
        const string number = bound.substr(0, bound.size() - 1) + static_cast<char>(last);
        for (const char* before : {"", "-", "+", "0", "-000", " ", "- "})
          for (const char* behind : {"", " ", "0", "x", ".", ".0", "h"})
            expectReadAsByStream(before + number + behind);
      }
    }
  });
}

TEST(ConversionLikeStreams, LongNumbersThatStreamsStillRead) {
  underEveryLocale([&] {
    for (const std::size_t length : {20u, 100u, 298u, 299u, 300u, 301u, 308u, 309u, 310u, 400u}) {
      expectReadAsByStream(string(length, '0') + "7");
      expectReadAsByStream(string(length, '9'));
      expectReadAsByStream("-" + string(length, '1') + ".5");
      expectReadAsByStream("0." + string(length, '0') + "1");
      expectReadAsByStream("1." + string(length, '3'));
    }
  });
}

TEST(ConversionLikeStreams, RandomTexts) {
  underEveryLocale([] {
    Random random(20240607);
    for (int round = 0; round < 6'000; ++round)
      ASSERT_NO_FATAL_FAILURE(expectReadAsByStream(randomText(random)));
  });
}

TEST(ConversionLikeStreams, RandomNumbers) {
  underEveryLocale([] {
    Random random(77);
    for (int round = 0; round < 6'000; ++round)
      ASSERT_NO_FATAL_FAILURE(expectReadAsByStream(randomNumber(random)));
  });
}

TEST(ConversionLikeStreams, IntegersAtTheEdges) {
  const s64_t values[] = {0, 1, -1, 9, 10, 999, 1000, -1000, 1234567, 4294967295, 1000000000000};
  underEveryLocale([&] {
    for (const s64_t value : values)
      expectWrittenAsByStream(value);
    expectBoundsWrittenAsByStream<bool>();
    expectBoundsWrittenAsByStream<s32_t>();
    expectBoundsWrittenAsByStream<u32_t>();
    expectBoundsWrittenAsByStream<s64_t>();
    expectBoundsWrittenAsByStream<u64_t>();
  });
}

TEST(ConversionLikeStreams, DoublesAtTheEdges) {
  using Double = std::numeric_limits<double>;
  const double values[] = {0.0,        -0.0,      0.1,      0.5,           1.0,      100000.0,
                           1000000.0,  1234567.0, 123456.0, 999999.5,      999999.4, 1e-4,
                           9.99999e-5, 1e-5,      1e15,     0.000123456789};
  const double extremes[] = {Double::max(),        Double::lowest(),   Double::min(),
                             Double::denorm_min(), Double::epsilon(),  Double::infinity(),
                             -Double::infinity(),  Double::quiet_NaN()};
  underEveryLocale([&] {
    for (const double value : values)
      expectWrittenAsByStream(value);
    for (const double value : extremes)
      expectWrittenAsByStream(value);
    expectWrittenAsByStream(0.1f);
  });
}

TEST(ConversionLikeStreams, RandomValues) {
  underEveryLocale([] {
    Random random(4711);
    for (int round = 0; round < 4'000; ++round) {
      const u64_t bits = randomBits(random);
      const variant_t values[] = {bits,
                                  static_cast<s64_t>(bits),
                                  static_cast<s32_t>(bits),
                                  static_cast<u32_t>(bits),
                                  randomDouble(random),
                                  static_cast<double>(static_cast<s64_t>(bits)) / 1000};
      for (const variant_t& value : values)
        ASSERT_NO_FATAL_FAILURE(expectWrittenAsByStream(value));
    }
  });
}

}  // namespace
}  // namespace kivo_3_3::testing
