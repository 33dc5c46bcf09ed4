#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace kivo_3_3 {

// A name and what tables find it by, which is worked out once. The text is kept elsewhere.
struct HashedName {
  HashedName() = default;
  // NOLINTNEXTLINE(google-explicit-constructor): a name is a text
  HashedName(std::string_view name) : text(name), hash(hashOf(name)) {}
  // NOLINTNEXTLINE(google-explicit-constructor)
  HashedName(const char* name) : HashedName(std::string_view(name)) {}

  // NOLINTNEXTLINE(google-explicit-constructor)
  operator std::string_view() const { return text; }

  friend bool operator==(const HashedName& left, const HashedName& right) {
    const std::size_t size = left.text.size();
    return left.hash == right.hash && size == right.text.size() &&
           (size <= eight || isSame(left.text.data(), right.text.data(), size));
  }

  std::string_view text;
  // Of the text alone; its highest bits are those that tell most. Up to eight characters and
  // their number are all of it: who has the same hash then, and is as long, has the same text.
  std::uint64_t hash = 0;

 private:
  static constexpr std::size_t eight = sizeof(std::uint64_t);
  static constexpr std::size_t four = sizeof(std::uint32_t);

  static std::uint64_t hashOf(std::string_view text) {
    std::uint64_t hash = text.size();
    for (std::size_t place = 0; place + eight < text.size(); place += eight)
      hash = mixed(hash ^ load<std::uint64_t>(text.data() + place));
    return mixed(hash ^ lastEight(text));
  }
  // Another for each. All bits have a share in the highest.
  static std::uint64_t mixed(std::uint64_t bits) { return bits * 0x9E3779B97F4A7C15; }
  // The last eight characters, or all where there are less; some may be there twice.
  static std::uint64_t lastEight(std::string_view text) {
    const char* const end = text.data() + text.size();
    if (text.size() >= eight)
      return load<std::uint64_t>(end - eight);
    if (text.size() >= four)
      return load<std::uint32_t>(text.data()) | load<std::uint32_t>(end - four) << 32;
    if (text.empty())
      return 0;
    const char* const middle = text.data() + text.size() / 2;
    return load<std::uint8_t>(text.data()) | load<std::uint8_t>(middle) << 8 |
           load<std::uint8_t>(end - 1) << 16;
  }
  // More than eight characters.
  static bool isSame(const char* left, const char* right, std::size_t size) {
    const std::size_t last = size - eight;
    for (std::size_t place = 0; place < last; place += eight)
      if (load<std::uint64_t>(left + place) != load<std::uint64_t>(right + place))
        return false;
    return load<std::uint64_t>(left + last) == load<std::uint64_t>(right + last);
  }
  template <class Integer>
  static std::uint64_t load(const char* text) {
    Integer integer;
    std::memcpy(&integer, text, sizeof(integer));
    return integer;
  }
};

}  // namespace kivo_3_3
