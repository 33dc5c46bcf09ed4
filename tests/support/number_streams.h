#pragma once

// The standard streams, which say what numbers look like under the global locale: the
// reference that the conversions are held against.

#include <kivo/value.h>

#include <sstream>
#include <string>

namespace kivo_3_3::testing {

// A whole text is a number with white space around it.
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

// What stands behind the number is not looked at here.
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

  // An empty text is not to be asked for the one type.
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
