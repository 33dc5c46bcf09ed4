// The conversions between values and text against the standard streams, which say what
// numbers look like, under several locales. The input is read as text and as bits.

#include <cstring>
#include <sstream>

#include "fuzz/fuzz.h"
#include "fuzz/locales.h"
#include "fuzz/parsing.h"
#include "fuzz/script.h"
#include "options/value_conversion.h"

namespace kivo_3_3::fuzzing {
namespace {

using std::string;

// A whole text is a number with white space around it.
template <class T>
variant_t readByStream(const string& text) {
  std::istringstream stream(text);
  T value{};
  if (!(stream >> value))
    return {};
  char rest = 0;
  return stream.eof() || !(stream >> rest) ? variant_t(value) : variant_t();
}

bool isHexadecimal(const string& text) {
  const auto areDigits = [](const string& part) {
    return part.find_first_not_of("0123456789abcdefABCDEF") == string::npos;
  };
  const bool isPrefixed = text.size() > 1 && text[0] == '0' && (text[1] == 'x' || text[1] == 'X');
  const bool isSuffixed = text.back() == 'h' || text.back() == 'H';
  return (isPrefixed && areDigits(text.substr(2))) ||
         (isSuffixed && areDigits(text.substr(0, text.size() - 1)));
}

// What stands behind the number is not looked at here.
template <>
variant_t readByStream<u64_t>(const string& text) {
  std::istringstream stream(text);
  u64_t value = 0;
  stream >> (isHexadecimal(text) ? std::hex : std::dec) >> value;
  return stream ? variant_t(value) : variant_t();
}

template <class T>
string writtenByStream(const variant_t& value) {
  std::ostringstream stream;
  stream << value.get<T>();
  return stream.str();
}

const struct {
  variant_type_t type;
  variant_t (*read)(const string&);
  string (*write)(const variant_t&);
} numericTypes[] = {{vtBool, readByStream<bool>, writtenByStream<bool>},
                    {vtS32, readByStream<s32_t>, writtenByStream<s32_t>},
                    {vtU32, readByStream<u32_t>, writtenByStream<u32_t>},
                    {vtS64, readByStream<s64_t>, writtenByStream<s64_t>},
                    {vtU64, readByStream<u64_t>, writtenByStream<u64_t>},
                    {vtDouble, readByStream<double>, writtenByStream<double>}};

void checkRead(const string& text) {
  for (const auto& type : numericTypes)
    if (type.type != vtU64 || !text.empty())  // an empty one is not to be asked
      expectEqual("a text is read as by a stream", text + " " + exactly(type.read(text)),
                  text + " " + exactly(textToValue(type.type, text.c_str())));
}

void checkWritten(const variant_t& value) {
  Garbage garbage;
  for (const auto& type : numericTypes)
    if (type.type == vtDouble || value.can_get<u64_t>())
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
