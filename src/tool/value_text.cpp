#include "tool/value_text.h"

#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>
#include <locale>
#include <new>
#include <sstream>
#include <string_view>
#include <system_error>
#include <type_traits>

namespace kivo_3_3::tool_glue {
namespace {

template <class T>
T load(const void* value) {
  T number;
  std::memcpy(&number, value, sizeof number);
  return number;
}

// Calls `use` with a zero of the type of numbers.
template <class Use>
auto withNumberType(const VariableType& type, Use use) {
  if (type.kind == Kind::real) {
    if (type.bytes == sizeof(float))
      return use(float{});
    return type.bytes == sizeof(double) ? use(double{}) : use(static_cast<long double>(0));
  }
  const bool isSigned = type.kind == Kind::integer;
  switch (type.bytes) {
    case 1:
      return isSigned ? use(static_cast<signed char>(0)) : use(static_cast<unsigned char>(0));
    case 2:
      return isSigned ? use(short{}) : use(static_cast<unsigned short>(0));
    case 4:
      return isSigned ? use(int{}) : use(0U);
    default:
      if (isSigned)
        return use(0LL);
      return use(0ULL);
  }
}

// The type in which a number is read before it becomes a `Number`.
template <class Number>
using Widest =
    std::conditional_t<std::is_floating_point_v<Number>,
                       std::conditional_t<std::is_same_v<Number, long double>, long double, double>,
                       std::conditional_t<std::is_signed_v<Number>, s64_t, u64_t>>;

template <class Number, class Given>
bool fits(Number stored, Given given) {
  if constexpr (std::is_floating_point_v<Number>)
    return std::isfinite(stored) || !std::isfinite(given);
  else
    return stored == given;
}

// The digits of a hexadecimal number, 0x1F or 1Fh; empty for another text.
std::string_view hexadecimalDigits(std::string_view text) {
  const bool hasPrefix = text.substr(0, 2) == "0x" || text.substr(0, 2) == "0X";
  if (hasPrefix)
    text.remove_prefix(2);
  else if (!text.empty() && (text.back() == 'h' || text.back() == 'H'))
    text.remove_suffix(1);
  else
    return {};
  const bool isDigits = text.find_first_not_of("0123456789ABCDEFabcdef") == std::string_view::npos;
  return isDigits ? text : std::string_view();
}

bool isWideNatural(const VariableType& type) {
  return type.kind == Kind::natural && type.bytes == sizeof(u64_t);
}

// Reads a number as the library does: in the global locale, and with 64 bits and without a sign in
// hexadecimal too. Letters after the number are refused.
template <class T>
bool readText(const VariableType& type, const char* text, T& number) {
  if constexpr (std::is_same_v<T, u64_t>) {
    const std::string_view digits = hexadecimalDigits(text);
    if (isWideNatural(type) && !digits.empty())
      return std::from_chars(digits.data(), digits.data() + digits.size(), number, 16).ec ==
             std::errc();
  }
  std::istringstream stream{std::string(text)};
  stream.exceptions(std::ios::badbit);  // memory that runs out is no wrong number
  stream >> number;
  char rest = 0;
  return !stream.fail() && (stream.eof() || !(stream >> rest));
}

// Whether the parser reads a text for the type too mildly: of an unsigned number of 64 bits it
// passes over letters after the number, and it has no long double.
bool isReadHere(const VariableType& type, std::string_view text) {
  if (type.kind == Kind::real)
    return type.bytes > sizeof(double);
  return isWideNatural(type) && text.find_first_not_of("0123456789") != std::string_view::npos;
}

bool isNumber(const VariableType& type) {
  return type.kind == Kind::integer || type.kind == Kind::natural || type.kind == Kind::real;
}

// As the library shows numbers. Not every standard library writes a long double without a stream.
template <class T>
std::string numberText(T number) {
  if constexpr (std::is_floating_point_v<T>) {
    std::ostringstream text;
    text.imbue(std::locale::classic());
    text.exceptions(std::ios::badbit);  // lets std::bad_alloc out
    text << number;
    return text.str();
  } else {
    return std::to_string(number);
  }
}

std::string numberText(const VariableType& type, const void* value) {
  return withNumberType(type, [&](auto zero) { return numberText(load<decltype(zero)>(value)); });
}

std::string choiceText(const Declaration& declaration, const void* value) {
  for (const DeclaredChoice& choice : declaration.choices) {
    if (!choice.value.empty() && std::memcmp(choice.value.data(), value, choice.value.size()) == 0)
      return std::string(choice.text);
  }
  return "";
}

}  // namespace

std::string valueText(const Declaration& declaration, const void* value) {
  const VariableType& type = *declaration.type;
  std::string choice = choiceText(declaration, value);
  if (!choice.empty() || (type.kind == Kind::enumeration && !declaration.function))
    return choice;
  if (isNumber(type))
    return numberText(type, value);
  if (type.kind == Kind::boolean)
    return load<bool>(value) ? "true" : "";
  if (type.kind == Kind::character)
    return std::string(load<char>(value) != '\0' ? 1 : 0, load<char>(value));
  Text shown;
  try {
    type.show(value, shown);
  } catch (const std::bad_alloc&) {
    throw;
  } catch (...) {
    throw NoText{std::current_exception()};
  }
  return shown.characters;
}

std::string rangeText(const Declaration& declaration) {
  if (declaration.lowest.empty())
    return "";
  return numberText(*declaration.type, declaration.lowest.data()) + " to " +
         numberText(*declaration.type, declaration.highest.data());
}

std::string limitsText(const VariableType& type) {
  return withNumberType(type, [](auto zero) {
    using Limits = std::numeric_limits<decltype(zero)>;
    return numberText(Limits::lowest()) + " to " + numberText(Limits::max());
  });
}

std::string defaultText(const Declaration& declaration) {
  if (!declaration.shownDefault.empty())
    return std::string(declaration.shownDefault);
  if (declaration.variable == nullptr || declaration.isRequired)
    return "";
  if (declaration.use == Use::flag)
    return load<bool>(declaration.variable) ? "true" : "";
  if (declaration.use == Use::count)
    return load<int>(declaration.variable) != 0 ? numberText(load<int>(declaration.variable)) : "";
  std::string all;
  const char separator = declaration.separator != '\0' ? declaration.separator : ' ';
  for (unsigned long index = 0;; ++index) {
    const void* const value = declaration.type->at(declaration.variable, index);
    if (value == nullptr)
      return all;
    if (index != 0)
      all += separator;
    all += valueText(declaration, value);
  }
}

std::string shownDefault(const Declaration& declaration) {
  const bool isNumberList = declaration.isList() && declaration.variable != nullptr &&
                            isNumber(*declaration.type) &&
                            declaration.type->at(declaration.variable, 1) != nullptr;
  const bool isText = isNumberList || declaration.use == Use::flag || declaration.use == Use::count;
  return isText ? defaultText(declaration) : std::string(declaration.shownDefault);
}

void setDefault(IOption& option, const Declaration& declaration) {
  const std::string text = defaultText(declaration);
  if (text.empty())
    return;
  const variant_type_t type = parserType(declaration);
  if (type == vtBool)
    option.defaultValue(true);
  else if (type != vtString)
    withNumberType(*declaration.type, [&](auto zero) {
      using Number = decltype(zero);
      const auto number = load<Number>(declaration.type->at(declaration.variable, 0));
      if constexpr (std::is_floating_point_v<Number>)
        option.defaultValue(static_cast<double>(number));
      else
        option.defaultValue(number);
    });
  else
    option.defaultValue(text.c_str());
}

bool putNumber(const VariableType& type, const char* text, const variant_t& typed, void* value) {
  const bool isRead = typed.type() != vtNull && typed.type() != vtString && !isReadHere(type, text);
  return withNumberType(type, [&](auto zero) {
    using Number = decltype(zero);
    Widest<Number> given{};
    if (isRead)
      given = typed.get<Widest<Number>>();
    else if (!readText(type, text, given))
      return false;
    const auto stored = static_cast<Number>(given);
    const bool isNegative =
        std::is_unsigned_v<Number> && given != 0 && std::strchr(text, '-') != nullptr;
    if (!fits(stored, given) || isNegative)
      return false;
    std::memcpy(value, &stored, sizeof stored);
    return true;
  });
}

bool isInRange(const Declaration& declaration, const void* value) {
  if (declaration.lowest.empty())
    return true;
  return withNumberType(*declaration.type, [&](auto zero) {
    using Number = decltype(zero);
    const auto number = load<Number>(value);
    return load<Number>(declaration.lowest.data()) <= number &&
           number <= load<Number>(declaration.highest.data());
  });
}

}  // namespace kivo_3_3::tool_glue
