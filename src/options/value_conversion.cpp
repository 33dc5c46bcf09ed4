// In the classic locale numbers are converted without a stream; the result must be the one that a
// stream would give.

#include "options/value_conversion.h"

#include <algorithm>
#include <charconv>
#include <iterator>
#include <limits>
#include <sstream>
#include <string_view>
#include <type_traits>
#include <utility>

#include "base/begins_with.h"
#include "base/white_space.h"
#include "bedrock/standard_library.h"

namespace kivo_3_3 {

namespace {

constexpr std::string_view hexDigits = "1234567890ABCDEFabcdef";

bool areHexDigits(std::string_view text) {
  return text.find_first_not_of(hexDigits) == std::string_view::npos;
}

bool isHexadecimal(std::string_view text) {
  const bool prefixed = beginsWith(text, "0x") || beginsWith(text, "0X");
  if (prefixed && areHexDigits(text.substr(2)))
    return true;
  const char last = text.at(text.size() - 1);
  return (last == 'h' || last == 'H') && areHexDigits(text.substr(0, text.size() - 1));
}

bool isDigit(char character) { return character >= '0' && character <= '9'; }

// Reads a text as formatted stream input in the classic locale does.
class ClassicReader {
 public:
  explicit ClassicReader(std::string_view text)
      : m_next(text.data()), m_end(text.data() + text.size()) {
    skipSpace();
  }

  // Reads a decimal integer; false if there is none or it does not fit. An unsigned type accepts a
  // minus sign too: the magnitude must fit, and the value wraps.
  template <class T>
  bool readInteger(T& value) {
    const bool negative = m_next != m_end && *m_next == '-';
    if (negative || (m_next != m_end && *m_next == '+'))
      ++m_next;
    u64_t magnitude = 0;
    if (!readMagnitude(magnitude, 10) || magnitude > largestMagnitude<T>(negative))
      return false;
    value = static_cast<T>(negative ? 0 - magnitude : magnitude);
    return true;
  }

  // Reads digits without a sign.
  bool readMagnitude(u64_t& value, int base) {
    const auto [end, problem] = std::from_chars(m_next, m_end, value, base);
    m_next = end;
    return problem == std::errc();
  }

  // Reads a number that needs no stream: digits with at most one decimal point after the first
  // digit, and an optional minus. False means that the number has another form, not that it is
  // wrong.
  bool readPlainDouble(double& value) {
    const char* first = m_next != m_end && *m_next == '-' ? m_next + 1 : m_next;
    const char* point = std::find_if_not(first, m_end, isDigit);
    if (point == first)
      return false;
    const char* last =
        point != m_end && *point == '.' ? std::find_if_not(point + 1, m_end, isDigit) : point;
    if (last - first > longestPlainDouble || (last != m_end && !isClassicSpace(*last)))
      return false;
    value = BEDROCK::readDouble(m_next, last);
    m_next = last;
    return true;
  }

  bool onlySpaceIsLeft() {
    skipSpace();
    return m_next == m_end;
  }

 private:
  // Characters without the sign: a number of 300 neither overflows nor underflows a double.
  static constexpr std::ptrdiff_t longestPlainDouble = 300;

  template <class T>
  static u64_t largestMagnitude(bool negative) {
    const auto largest = static_cast<u64_t>(std::numeric_limits<T>::max());
    return negative && std::is_signed<T>::value ? largest + 1 : largest;
  }

  void skipSpace() {
    while (m_next != m_end && isClassicSpace(*m_next))
      ++m_next;
  }

  const char* m_next;
  const char* m_end;
};

// A stream treats every exception as a failed conversion. With this mask it rethrows
// std::bad_alloc.
void letMemoryFailureOut(std::ios& stream) { stream.exceptions(std::ios::badbit); }

template <class T>
[[gnu::cold]] bool readThroughStream(std::string_view text, T& value) {
  std::istringstream stream{std::string(text)};
  letMemoryFailureOut(stream);
  stream >> value;
  if (stream.fail())
    return false;
  char rest = 0;
  return stream.eof() || !(stream >> rest);
}

template <class T>
bool readClassic(ClassicReader& reader, T& value) {
  return reader.readInteger(value) && reader.onlySpaceIsLeft();
}

bool readClassic(ClassicReader& reader, bool& value) {
  long number = 0;
  if (!readClassic(reader, number) || (number != 0 && number != 1))
    return false;
  value = number == 1;
  return true;
}

template <class T>
bool read(std::string_view text, T& value, bool isClassic) {
  if (!isClassic)
    return readThroughStream(text, value);
  ClassicReader reader(text);
  return readClassic(reader, value);
}

bool read(std::string_view text, double& value, bool isClassic) {
  if (isClassic) {
    ClassicReader reader(text);
    if (reader.readPlainDouble(value))
      return reader.onlySpaceIsLeft();
  }
  return readThroughStream(text, value);
}

template <class T>
[[gnu::cold]] std::string writeThroughStream(T value) {
  std::ostringstream stream;
  letMemoryFailureOut(stream);
  stream << value;
  return stream.str();
}

// Like fromStringToNumber(), in the classic locale or in the global one.
template <class T>
bool readUnsigned(std::string_view text, T& value, bool isClassic) {
  const bool hexadecimal = isHexadecimal(text);
  if (isClassic) {
    if (!hexadecimal)
      return ClassicReader(text).readInteger(value);
    const std::size_t prefix = text.find_first_of("xX") == 1 ? 2 : 0;
    return ClassicReader(text.substr(prefix)).readMagnitude(value, 16);
  }
  std::istringstream stream{std::string(text)};
  letMemoryFailureOut(stream);
  stream >> (hexadecimal ? std::hex : std::dec) >> value;
  return !stream.fail();
}

template <class T>
std::string writeClassic(T value) {
  char buffer[std::numeric_limits<T>::digits10 + 3];
  const auto written = std::to_chars(std::begin(buffer), std::end(buffer), value);
  return std::string(std::begin(buffer), written.ptr);
}

// Six significant digits, the default precision of a stream.
std::string writeClassic(double value) {
  char buffer[32];
  const auto written =
      std::to_chars(std::begin(buffer), std::end(buffer), value, std::chars_format::general, 6);
  return std::string(std::begin(buffer), written.ptr);
}

class OperationToString {
 public:
  OperationToString(const variant_t& input, std::string& output, bool isAlwaysClassic)
      : m_input(input), m_output(output), m_isAlwaysClassic(isAlwaysClassic) {}

  template <class T>
  bool execute() {
    const T value = m_input.get<T>();
    const bool isClassic = m_isAlwaysClassic || isClassicLocale();
    m_output += isClassic ? writeClassic(value) : writeThroughStream(value);
    return true;
  }

 private:
  const variant_t& m_input;
  std::string& m_output;
  bool m_isAlwaysClassic;
};

// A boolean has the same text in every locale.
template <>
bool OperationToString::execute<bool>() {
  m_output += m_input.get<bool>() ? "1" : "0";
  return true;
}

template <>
bool OperationToString::execute<const char*>() {
  const char* const text = m_input.get<const char*>();
  m_output += text != nullptr ? text : "";
  return true;
}

class OperationFromString {
 public:
  OperationFromString(std::string_view input, bool isClassic)
      : m_input(input), m_isClassic(isClassic) {}

  template <class T>
  bool execute() {
    T value{};
    if (!read(m_input, value, m_isClassic))
      return false;
    m_output = value;
    return true;
  }

  variant_t takeOutput() { return std::move(m_output); }

 private:
  std::string_view m_input;
  bool m_isClassic;
  variant_t m_output;
};

template <>
bool OperationFromString::execute<const char*>() {
  m_output = std::string(m_input).c_str();
  return true;
}

template <>
bool OperationFromString::execute<u64_t>() {
  u64_t value = 0;
  if (m_input.empty() || !readUnsigned(m_input, value, m_isClassic))
    return false;
  m_output = value;
  return true;
}

class OperatorGetTypeName {
 public:
  template <class T>
  bool execute() {
    // Named like this since 3.0; tools depend on it.
    if constexpr (std::is_same<T, bool>::value)
      m_output = "undefined";
    else if constexpr (std::is_same<T, s32_t>::value)
      m_output = "integer";
    else if constexpr (std::is_same<T, u32_t>::value)
      m_output = "unsigned integer";
    else if constexpr (std::is_same<T, s64_t>::value)
      m_output = "64 bit integer";
    else if constexpr (std::is_same<T, u64_t>::value)
      m_output = "unsigned 64 bit or hex";
    else if constexpr (std::is_same<T, double>::value)
      m_output = "double";
    else
      m_output = "string";
    return true;
  }

  const char* output() const { return m_output; }

 private:
  const char* m_output = "";
};

// Runs the operation for the type of an option. For a type that options do not have, does nothing
// and returns false.
template <class Operation>
bool executeFor(variant_type_t type, Operation& operation) {
  switch (type) {
    case vtBool:
      return operation.template execute<bool>();
    case vtS32:
      return operation.template execute<s32_t>();
    case vtU32:
      return operation.template execute<u32_t>();
    case vtS64:
      return operation.template execute<s64_t>();
    case vtU64:
      return operation.template execute<u64_t>();
    case vtDouble:
      return operation.template execute<double>();
    case vtString:
      return operation.template execute<const char*>();
    default:
      return false;
  }
}

}  // namespace

bool appendValue(variant_type_t type, const variant_t& value, std::string& text) {
  OperationToString operation(value, text, false);
  return executeFor(type, operation);
}

bool appendClassicValue(variant_type_t type, const variant_t& value, std::string& text) {
  OperationToString operation(value, text, true);
  return executeFor(type, operation);
}

bool canBecomeText(variant_type_t type, const variant_t& value) {
  switch (type) {
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
      return true;
  }
}

const char* valueToText(variant_type_t type, const variant_t& value, Garbage& garbage) {
  std::string text;
  return appendValue(type, value, text) ? garbage.keep(text.c_str()) : nullptr;
}

variant_t textToValue(variant_type_t type, std::string_view text) {
  return textToValue(type, text, isClassicLocale());
}

variant_t textToValue(variant_type_t type, std::string_view text, bool isClassic) {
  OperationFromString operation(text, isClassic);
  executeFor(type, operation);
  return operation.takeOutput();
}

const char* typeName(variant_type_t type) {
  OperatorGetTypeName operation;
  executeFor(type, operation);
  return operation.output();
}

template <class T>
bool fromStringToNumber(std::string_view text, T& value) {
  return readUnsigned(text, value, isClassicLocale());
}

template bool fromStringToNumber<u64_t>(std::string_view text, u64_t& value);

}  // namespace kivo_3_3
