#include "hash.h"

namespace textkit {

std::uint64_t fnv1a(std::string_view text, std::uint64_t basis) {
  constexpr std::uint64_t prime = 0x100000001b3;
  std::uint64_t hash = basis;
  for (const char c : text) {
    hash ^= static_cast<unsigned char>(c);
    hash *= prime;
  }
  return hash;
}

std::string hashText(std::uint64_t hash) {
  std::string text(16, '0');
  for (auto digit = text.rbegin(); digit != text.rend(); ++digit) {
    *digit = "0123456789abcdef"[hash % 16];
    hash /= 16;
  }
  return text;
}

}  // namespace textkit
