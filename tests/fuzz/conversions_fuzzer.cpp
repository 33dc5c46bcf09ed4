// Compares the conversions between values and text with the standard streams, under several
// locales. Each input is used twice: as a text, and as the bits of a number.

#include <cstring>

#include "fuzz/fuzz.h"
#include "fuzz/locales.h"
#include "fuzz/parsing.h"
#include "fuzz/script.h"
#include "options/value_conversion.h"
#include "support/number_streams.h"

namespace kivo_3_3::fuzzing {
namespace {

using std::string;
using testing::NumericType;
using testing::numericTypes;

void checkRead(const string& text) {
  for (const NumericType& type : numericTypes)
    if (type.mayRead(text))
      expectEqual("a text is read as by a stream", text + " " + exactly(type.read(text)),
                  text + " " + exactly(textToValue(type.type, text.c_str())));
}

void checkWritten(const variant_t& value) {
  Garbage garbage;
  for (const NumericType& type : numericTypes)
    if (type.mayWrite(value))
      expectEqual("a value is written as by a stream", type.write(value),
                  valueToText(type.type, value, garbage));
}

void checkWrittenBits(u64_t bits) {
  double number = 0;
  std::memcpy(&number, &bits, sizeof number);
  const variant_t values[] = {number,
                              static_cast<float>(number),
                              (bits & 1) != 0,
                              bits,
                              static_cast<s64_t>(bits),
                              static_cast<u32_t>(bits),
                              static_cast<s32_t>(bits),
                              static_cast<short>(bits),
                              static_cast<unsigned char>(bits)};
  for (const variant_t& value : values)
    checkWritten(value);
}

}  // namespace
}  // namespace kivo_3_3::fuzzing

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace kivo_3_3;
  const std::string text = fuzzing::textOf(data, size);
  u64_t bits = 0;
  std::memcpy(&bits, data, std::min(size, sizeof bits));
  fuzzing::underEveryLocale([&] {
    fuzzing::checkRead(text);
    fuzzing::checkWrittenBits(bits);
  });
  return 0;
}
