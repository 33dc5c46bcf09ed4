#include "reference/scenarios/values.h"

#include <cstdio>
#include <cstdlib>

namespace kivo_3_3::scenarios {

using std::string;

namespace {

struct TypeWord {
  const char* word;
  variant_type_t type;
};

constexpr TypeWord typeWords[] = {
    {"bool", vtBool},
    {"s8", vtS8},
    {"u8", vtU8},
    {"s16", vtS16},
    {"u16", vtU16},
    {"s32", vtS32},
    {"u32", vtU32},
    {"s64", vtS64},
    {"u64", vtU64},
    {"float", vtFloat},
    {"double", vtDouble},
    {"string", vtString},
    {"wide", vtWideString},
    {"reference", vtStringReference},
    {"block", vtBlock},
    {"object", vtObject},
    {"strange", static_cast<variant_type_t>(99)},
    {"negative", static_cast<variant_type_t>(-1)},
};

const char* wordOf(variant_type_t type) {
  for (const TypeWord& known : typeWords)
    if (known.type == type)
      return known.word;
  return "null";
}

template <class Integer>
variant_t integerOf(const string& text) {
  const bool isNegative = !text.empty() && text[0] == '-';
  return isNegative ? static_cast<Integer>(std::strtoll(text.c_str(), nullptr, 0))
                    : static_cast<Integer>(std::strtoull(text.c_str(), nullptr, 0));
}

// No value for a type that is not an integer.
variant_t integerOf(variant_type_t type, const string& text) {
  switch (type) {
    case vtS8:
      return integerOf<signed char>(text);
    case vtU8:
      return integerOf<unsigned char>(text);
    case vtS16:
      return integerOf<short>(text);
    case vtU16:
      return integerOf<unsigned short>(text);
    case vtS32:
      return integerOf<s32_t>(text);
    case vtU32:
      return integerOf<u32_t>(text);
    case vtS64:
      return integerOf<s64_t>(text);
    case vtU64:
      return integerOf<u64_t>(text);
    default:
      return {};
  }
}

}  // namespace

variant_type_t typeOf(const string& word) {
  for (const TypeWord& known : typeWords)
    if (word == known.word)
      return known.type;
  return vtNull;
}

variant_t valueOf(const string& kind, const string& text, const char* buffer) {
  switch (typeOf(kind)) {
    case vtBool:
      return text == "1";
    case vtFloat:
      return std::strtof(text.c_str(), nullptr);
    case vtDouble:
      return std::strtod(text.c_str(), nullptr);
    case vtString:
      return text.c_str();
    case vtStringReference:
      return variant_t(buffer, true);
    default:
      return integerOf(typeOf(kind), text);
  }
}

string shownKind(const variant_t& value) {
  string kind = wordOf(value.type());
  const bool isUnsigned = (value.type() & 1) != 0;
  if (value.can_get<u64_t>())
    return kind + ":" +
           (isUnsigned ? std::to_string(value.get<u64_t>()) : std::to_string(value.get<s64_t>()));
  if (value.can_get<double>()) {
    char hexadecimal[40] = "";
    std::snprintf(hexadecimal, sizeof hexadecimal, ":%a", value.get<double>());
    return kind + hexadecimal;
  }
  return kind;
}

}  // namespace kivo_3_3::scenarios
