#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
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

  std::string_view text;
  std::uint32_t hash = 0;

 private:
  static constexpr std::size_t longestName = 32;

  // Byte by byte is quick enough for names, but not for all texts that are kept.
  static std::uint32_t hashOf(std::string_view name) {
    if (name.size() > longestName)
      return static_cast<std::uint32_t>(std::hash<std::string_view>()(name));
    std::uint32_t hash = 2166136261;
    for (const char character : name)
      hash = (hash ^ static_cast<unsigned char>(character)) * 16777619;
    return hash;
  }
};

inline bool operator==(const HashedName& left, const HashedName& right) {
  return left.hash == right.hash && left.text == right.text;
}

}  // namespace kivo_3_3
