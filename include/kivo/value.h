#pragma once

#include <stratum2/variant.h>

#include <climits>
#include <utility>

namespace kivo_3_3 {

using stratum2::s32_t;
using stratum2::s64_t;
using stratum2::u32_t;
using stratum2::u64_t;
using stratum2::variant_t;
using stratum2::variant_type_t;

using stratum2::vtBlock;
using stratum2::vtBool;
using stratum2::vtByte;
using stratum2::vtDouble;
using stratum2::vtFloat;
using stratum2::vtNull;
using stratum2::vtObject;
using stratum2::vtS16;
using stratum2::vtS32;
using stratum2::vtS64;
using stratum2::vtS8;
using stratum2::vtString;
using stratum2::vtStringReference;
using stratum2::vtU16;
using stratum2::vtU32;
using stratum2::vtU64;
using stratum2::vtU8;
using stratum2::vtWideString;
using stratum2::vtWideStringReference;

/// The bounds of the range that contains every position. `lastPosition` also means "no position".
constexpr int firstPosition = 0;
/// See firstPosition.
constexpr int lastPosition = INT_MAX;

/// One value as a query returns it or a handler receives it.
///
/// A plain record that can be copied freely. A copy points to the same text. The text belongs to
/// the result that returned the value and lives as long as that result; in a handler, the text
/// lives until the handler returns. Equal texts of one result have one address. You can keep the
/// typed value as long as you like: all copies of it, from handlers and from queries, share its
/// characters.
class Value {
 public:
  /// "No value": returned by a query if there is no value, or no further value.
  Value() : text(nullptr), isEmpty(1), position(lastPosition) {}

  /// A value. The text is not copied and keeps its owner.
  Value(const char* valueText, variant_t typedValue, int valuePosition)
      : text(valueText), isEmpty(0), position(valuePosition), value(std::move(typedValue)) {}

  /// The text of a value, null for "no value". The typed value is read from `value`.
  template <class T>
  T as() const = delete;

  /// The text of the value as the user wrote it; an abbreviated allowed value is completed.
  /// Null for "no value" and for an occurrence of an option that takes no value.
  const char* text;
  /// 1 when this is "no value", 0 otherwise.
  s32_t isEmpty;
  /// The position of the value in command-line order: a larger position is later.
  int position;
  /// The value in the type of its option; `vtNull` if there is no value.
  variant_t value;
};

/// The text, null for "no value".
template <>
inline const char* Value::as<const char*>() const {
  return isEmpty == 0 ? text : nullptr;
}

}  // namespace kivo_3_3
