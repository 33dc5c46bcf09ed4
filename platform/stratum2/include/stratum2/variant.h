#pragma once

// The value that tools and the library exchange. Tools compile parts of it into themselves, so a
// changed layout, number or inline function breaks tools that are not compiled again.

#include <bedrock/export.h>

#include <atomic>
#include <cfloat>
#include <cstddef>
#include <type_traits>
#include <utility>

namespace stratum2 {

using s32_t = int;
using u32_t = unsigned int;
using s64_t = long long;
using u64_t = unsigned long long;

/// The kind of value that a variant holds. The numbers are part of the binary interface.
///
/// 0 to 9 are the integer kinds, and the odd ones are unsigned. 10 and 11 are the floating-point
/// kinds. variant_t::operator<() orders values of different kinds by these numbers.
enum variant_type_t : int {
  vtBool = 0,
  vtByte = 1,
  vtS8 = 2,
  vtU8 = 3,
  vtS16 = 4,
  vtU16 = 5,
  vtS32 = 6,
  vtU32 = 7,
  vtS64 = 8,
  vtU64 = 9,
  vtFloat = 10,
  vtDouble = 11,
  vtString = 12,
  vtWideString = 13,
  vtStringReference = 14,
  vtWideStringReference = 15,
  vtBlock = 16,
  vtNull = 17,
  vtObject = 18
};

class text_pool_t;

/// Compares two texts byte by byte, as unsigned bytes. Returns a negative number if `left` comes
/// before `right`, zero if they are equal, and a positive number if `left` comes after `right`.
int string_compare(const char* left, const char* right);

/// Allocates the texts that variants own and share.
class allocator_t {
 public:
  /// Throws std::bad_alloc when memory runs out.
  void* allocate(std::size_t bytes);
  void free(void* memory) noexcept;
};

/// One value of a kind known only at run time: a bool, an integer, a floating-point
/// number, a text, or nothing (`vtNull`, the kind of a default-constructed variant).
///
/// Copies are cheap: all copies share one text with an atomic reference count, and the last
/// variant that shares the text frees it.
class BEDROCK_API variant_t {
 public:
  variant_t() noexcept : m_type(vtNull) { m_value.m_signed = 0; }
  variant_t(bool value) noexcept : variant_t(vtBool, value ? s64_t{1} : s64_t{0}) {}
  variant_t(signed char value) noexcept : variant_t(vtS8, s64_t{value}) {}
  variant_t(unsigned char value) noexcept : variant_t(vtU8, u64_t{value}) {}
  variant_t(short value) noexcept : variant_t(vtS16, s64_t{value}) {}
  variant_t(unsigned short value) noexcept : variant_t(vtU16, u64_t{value}) {}
  variant_t(int value) noexcept : variant_t(vtS32, s64_t{value}) {}
  variant_t(unsigned int value) noexcept : variant_t(vtU32, u64_t{value}) {}
  variant_t(long value) noexcept : variant_t(vtS64, s64_t{value}) {}
  variant_t(unsigned long value) noexcept : variant_t(vtU64, u64_t{value}) {}
  variant_t(long long value) noexcept : variant_t(vtS64, s64_t{value}) {}
  variant_t(unsigned long long value) noexcept : variant_t(vtU64, u64_t{value}) {}
  variant_t(float value) noexcept : m_type(vtFloat) { m_value.m_double = double{value}; }
  variant_t(double value) noexcept : m_type(vtDouble) { m_value.m_double = value; }

  /// Holds a copy of `text`. With `reference`, the variant only points to `text`, and the text
  /// must outlive the variant and all its copies. Null counts as the empty text.
  variant_t(const char* text, bool reference = false);

  variant_t(const variant_t& other) noexcept : m_value(other.m_value), m_type(other.m_type) {
    if (ownsData())
      retain();
  }
  variant_t(variant_t&& other) noexcept : m_value(other.m_value), m_type(other.m_type) {
    other.m_type = vtNull;
  }
  variant_t& operator=(const variant_t& other) noexcept {
    variant_t copy(other);
    swap(copy);
    return *this;
  }
  variant_t& operator=(variant_t&& other) noexcept {
    variant_t moved(static_cast<variant_t&&>(other));
    swap(moved);
    return *this;
  }
  ~variant_t() {
    if (ownsData())
      release();
  }

  variant_type_t type() const noexcept { return m_type; }

  /// Whether get<T>() can read this value: an integer kind as any integer type or bool, any
  /// number as `double` or `float`, a text as `const char*`.
  template <class T>
  bool can_get() const noexcept;

  /// The value as `T`. An integer is true as bool if it is not zero. An integer too wide for `T`
  /// loses its upper bits. A text lives until the last variant that shares it is destroyed.
  ///
  /// If can_get<T>() is false, get() calls the assertion handler. If the handler returns, get()
  /// returns zero or a null pointer.
  template <class T>
  T get() const;

  /// Compares numbers by value, whatever their kinds, and texts by content.
  bool operator==(const variant_t& var) const;
  bool operator!=(const variant_t& var) const { return !(*this == var); }

  /// Orders numbers by value and texts byte by byte. Of two other values of different kinds, the
  /// one with the higher kind number is the lesser: `vtNull` comes before texts.
  /// An unsigned number of 2^63 or more is ordered as if it were negative when it is compared with
  /// a signed integer. A list that mixes both therefore has no order by value.
  bool operator<(const variant_t& var) const;

 private:
  struct data_t {
    std::size_t m_bytes;
    std::atomic<int> m_references;
    unsigned int m_offset;  // bytes from the start of its text_pool_t chunk; 0 without a chunk
  };
  union value_t {
    s64_t m_signed;
    u64_t m_unsigned;
    double m_double;
    data_t* m_data;
    const char* m_reference;
  };

  friend class text_pool_t;

  explicit variant_t(data_t* data) noexcept : m_type(vtString) { m_value.m_data = data; }
  variant_t(variant_type_t type, s64_t value) noexcept : m_type(type) { m_value.m_signed = value; }
  variant_t(variant_type_t type, u64_t value) noexcept : m_type(type) {
    m_value.m_unsigned = value;
  }

  void swap(variant_t& other) noexcept {
    std::swap(m_value, other.m_value);
    std::swap(m_type, other.m_type);
  }

  bool ownsData() const noexcept { return m_type == vtString; }
  bool isText() const noexcept { return m_type == vtString || m_type == vtStringReference; }
  bool isInteger() const noexcept { return m_type >= vtBool && m_type <= vtU64; }
  bool isUnsigned() const noexcept { return (m_type & 1) != 0; }
  bool isNegative() const noexcept { return !isUnsigned() && m_value.m_signed < 0; }
  bool isNumber() const noexcept { return m_type >= vtBool && m_type <= vtDouble; }

  // The text; only for a variant with isText().
  const char* text() const noexcept {
    return ownsData() ? reinterpret_cast<const char*>(m_value.m_data + 1) : m_value.m_reference;
  }
  // The number; only for a variant with isNumber().
  double number() const noexcept {
    if (!isInteger())
      return m_value.m_double;
    return rounded(isUnsigned() ? static_cast<double>(m_value.m_unsigned)
                                : static_cast<double>(m_value.m_signed));
  }
  // An x87 register keeps every digit of a 64-bit integer; memory keeps those of a double.
  static double rounded(double number) noexcept {
#if FLT_EVAL_METHOD == 0
    return number;
#else
    volatile double inMemory = number;
    return inMemory;
#endif
  }

  void retain() noexcept;
  void release() noexcept;
  [[gnu::visibility("hidden")]] static void free(data_t* data) noexcept;
  static void reportUnsuitableRead();

  static allocator_t m_mem;

  value_t m_value;
  variant_type_t m_type;
};

template <class T>
bool variant_t::can_get() const noexcept {
  static_assert(std::is_arithmetic<T>::value || std::is_same<T, const char*>::value,
                "a variant gives numbers, bool and const char*");
  if constexpr (std::is_same<T, const char*>::value)
    return isText();
  else if constexpr (std::is_floating_point<T>::value)
    return isNumber();
  else
    return isInteger();
}

template <class T>
T variant_t::get() const {
  if (!can_get<T>()) {
    reportUnsuitableRead();
    return T();
  }
  if constexpr (std::is_same<T, const char*>::value)
    return text();
  else if constexpr (std::is_floating_point<T>::value)
    return static_cast<T>(number());
  else if constexpr (std::is_same<T, bool>::value)
    return m_value.m_signed != 0;
  else
    return static_cast<T>(m_value.m_signed);
}

}  // namespace stratum2
