#include "tool/value_text.h"

#include <charconv>
#include <cmath>
#include <cstring>
#include <iterator>
#include <limits>
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
      return isSigned ? use(0LL) : use(0ULL);
  }
}

bool isNumber(const VariableType& type) {
  return type.kind == Kind::integer || type.kind == Kind::natural || type.kind == Kind::real;
}

std::string text(long double number) {
  char buffer[64];
  const auto end = std::to_chars(std::begin(buffer), std::end(buffer), static_cast<double>(number),
                                 std::chars_format::general, 6);
  return std::string(std::begin(buffer), end.ptr);
}

template <class T>
std::string numberText(T number) {
  if constexpr (std::is_floating_point_v<T>)
    return text(number);
  else
    return std::to_string(number);
}

std::string numberText(const VariableType& type, const void* value) {
  return withNumberType(type, [&](auto zero) { return numberText(load<decltype(zero)>(value)); });
}

std::string choiceText(const Declaration& declaration, const void* value) {
  for (const DeclaredChoice& choice : declaration.choices) {
    if (!choice.value.empty() && std::memcmp(choice.value.data(), value, choice.value.size()) == 0)
      return choice.text;
  }
  return "";
}

}  // namespace

std::string valueText(const Declaration& declaration, const void* value) {
  const VariableType& type = *declaration.type;
  if (type.kind == Kind::enumeration || (isNumber(type) && !declaration.choices.empty()))
    return choiceText(declaration, value);
  if (isNumber(type))
    return numberText(type, value);
  if (type.kind == Kind::boolean)
    return load<bool>(value) ? "true" : "";
  if (type.kind == Kind::character)
    return load<char>(value) != '\0' ? std::string(1, load<char>(value)) : "";
  Text shown;
  type.show(value, shown);
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
    return declaration.shownDefault;
  if (declaration.variable == nullptr || declaration.use == Use::flag ||
      declaration.use == Use::count)
    return "";
  std::string all;
  const char separator = declaration.separator != '\0' ? declaration.separator : ' ';
  for (unsigned long index = 0;; ++index) {
    const void* const value = declaration.type->at(declaration.variable, index);
    if (value == nullptr)
      return all;
    all += (index != 0 ? std::string(1, separator) : "") + valueText(declaration, value);
  }
}

void setDefault(IOption& option, const Declaration& declaration) {
  const std::string text = defaultText(declaration);
  if (text.empty())
    return;
  const VariableType& type = *declaration.type;
  if (type.kind == Kind::boolean)
    option.defaultValue(true);
  else if (isNumber(type) && declaration.choices.empty())
    withNumberType(type, [&](auto zero) {
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

bool putNumber(const VariableType& type, const variant_t& number, void* value) {
  return withNumberType(type, [&](auto zero) {
    using Number = decltype(zero);
    Number stored{};
    bool fits = true;
    if constexpr (std::is_floating_point_v<Number>) {
      const double given = number.get<double>();
      stored = static_cast<Number>(given);
      fits = std::isfinite(stored) || !std::isfinite(given);
    } else if constexpr (std::is_signed_v<Number>) {
      stored = static_cast<Number>(number.get<s64_t>());
      fits = stored == number.get<s64_t>();
    } else {
      stored = static_cast<Number>(number.get<u64_t>());
      fits = stored == number.get<u64_t>();
    }
    if (fits)
      std::memcpy(value, &stored, sizeof stored);
    return fits;
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
