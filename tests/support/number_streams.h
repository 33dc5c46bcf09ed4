#pragma once

// Reads and writes numbers with the standard streams, which follow the global locale. The
// conversions of the library are compared with these functions.

#include <kivo/value.h>

#include <sstream>
#include <string>

namespace kivo_3_3::testing {

// The whole text must be one number, with optional white space around it.
template <class T>
variant_t readByStream(const std::string& text) {
  std::istringstream stream(text);
  T value{};
  if (!(stream >> value))
    return {};
  char rest = 0;
  return stream.eof() || !(stream >> rest) ? variant_t(value) : variant_t();
}

inline bool isHexadecimal(const std::string& text) {
  const auto areDigits = [](const std::string& part) {
    return part.find_first_not_of("0123456789abcdefABCDEF") == std::string::npos;
  };
  const bool isPrefixed = text.size() > 1 && text[0] == '0' && (text[1] == 'x' || text[1] == 'X');
  const bool isSuffixed = text.back() == 'h' || text.back() == 'H';
  return (isPrefixed && areDigits(text.substr(2))) ||
         (isSuffixed && areDigits(text.substr(0, text.size() - 1)));
}

// Ignores what follows the number.
template <>
inline variant_t readByStream<u64_t>(const std::string& text) {
  std::istringstream stream(text);
  u64_t value = 0;
  stream >> (isHexadecimal(text) ? std::hex : std::dec) >> value;
  return stream ? variant_t(value) : variant_t();
}

template <class T>
std::string writtenByStream(const variant_t& value) {
  std::ostringstream stream;
  stream << value.get<T>();
  return stream.str();
}

struct NumericType {
  variant_type_t type;
  variant_t (*read)(const std::string&);
  std::string (*write)(const variant_t&);

  // The parser never converts an empty text to vtU64, and readByStream() cannot.
  bool mayRead(const std::string& text) const { return type != vtU64 || !text.empty(); }
  bool mayWrite(const variant_t& value) const {
    return type == vtDouble ? value.can_get<double>() : value.can_get<u64_t>();
  }
};

inline const NumericType numericTypes[] = {
    {vtBool, readByStream<bool>, writtenByStream<bool>},
    {vtS32, readByStream<s32_t>, writtenByStream<s32_t>},
    {vtU32, readByStream<u32_t>, writtenByStream<u32_t>},
    {vtS64, readByStream<s64_t>, writtenByStream<s64_t>},
    {vtU64, readByStream<u64_t>, writtenByStream<u64_t>},
    {vtDouble, readByStream<double>, writtenByStream<double>}};

}  // namespace kivo_3_3::testing
