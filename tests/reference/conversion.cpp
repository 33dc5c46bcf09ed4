#include "reference/conversion.h"

#include <sstream>

namespace kivo_3_3::reference {

namespace {

template <class T>
std::string numberToText(const variant_t& value, const std::locale& locale) {
  const T number = value.get<T>();
  std::ostringstream stream;
  stream.imbue(locale);
  stream << number;
  return stream.str();
}

std::string textToText(const variant_t& value) {
  const char* text = value.get<const char*>();
  return text != nullptr ? text : "";
}

// White space before and after the number is accepted, anything else after it is not. A bool
// is written 1 or 0.
template <class T>
variant_t textToNumber(const std::string& text) {
  std::istringstream stream(text);
  T number = T();
  stream >> number;
  if (stream.fail())
    return variant_t();
  char rest = '\0';
  if (!stream.eof() && stream >> rest)
    return variant_t();
  return variant_t(number);
}

bool areHexadecimalDigits(const std::string& text) {
  return text.find_first_not_of("1234567890ABCDEFabcdef") == std::string::npos;
}

bool isHexadecimal(const std::string& text) {
  const std::string prefix = text.substr(0, 2);
  if ((prefix == "0x" || prefix == "0X") && areHexadecimalDigits(text.substr(2)))
    return true;
  const char last = text.at(text.size() - 1);
  return (last == 'h' || last == 'H') && areHexadecimalDigits(text.substr(0, text.size() - 1));
}

// The only conversion that reads hexadecimal numbers: 0x1F, 1Fh. Unlike the other conversions, it
// ignores what follows the number.
variant_t textToUnsigned64(const std::string& text) {
  std::istringstream stream(text);
  u64_t number = 0;
  if (isHexadecimal(text))
    stream >> std::hex;
  stream >> number;
  return stream.fail() ? variant_t() : variant_t(number);
}

}  // namespace

std::string toText(variant_type_t type, const variant_t& value, const std::locale& locale) {
  switch (static_cast<int>(type)) {
    case vtBool:
      return numberToText<bool>(value, locale);
    case vtS32:
      return numberToText<s32_t>(value, locale);
    case vtU32:
      return numberToText<u32_t>(value, locale);
    case vtS64:
      return numberToText<s64_t>(value, locale);
    case vtU64:
      return numberToText<u64_t>(value, locale);
    case vtDouble:
      return numberToText<double>(value, locale);
    case vtString:
      return textToText(value);
    default:
      return std::string();
  }
}

bool canBecomeText(variant_type_t type, const variant_t& value) {
  switch (static_cast<int>(type)) {
    case vtBool:
    case vtS32:
    case vtU32:
    case vtS64:
    case vtU64:
      return value.can_get<u64_t>();
    case vtDouble:
      return value.can_get<double>();
    case vtString:
      return value.can_get<const char*>();
    default:
      return false;
  }
}

variant_t fromText(variant_type_t type, const std::string& text) {
  switch (static_cast<int>(type)) {
    case vtBool:
      return textToNumber<bool>(text);
    case vtS32:
      return textToNumber<s32_t>(text);
    case vtU32:
      return textToNumber<u32_t>(text);
    case vtS64:
      return textToNumber<s64_t>(text);
    case vtU64:
      return textToUnsigned64(text);
    case vtDouble:
      return textToNumber<double>(text);
    case vtString:
      return variant_t(text.c_str());
    default:
      return variant_t();
  }
}

std::string typeName(variant_type_t type) {
  switch (static_cast<int>(type)) {
    case vtBool:
      return "undefined";
    case vtS32:
      return "integer";
    case vtU32:
      return "unsigned integer";
    case vtS64:
      return "64 bit integer";
    case vtU64:
      return "unsigned 64 bit or hex";
    case vtDouble:
      return "double";
    case vtString:
      return "string";
    default:
      return std::string();
  }
}

}  // namespace kivo_3_3::reference
