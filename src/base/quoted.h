#pragma once

// Composes the texts of messages. Tools and tests compare messages to the character.

#include <string>
#include <string_view>

namespace kivo_3_3 {

// Concatenates the parts of a message.
template <class... Parts>
std::string joined(const Parts&... parts) {
  std::string all;
  all.reserve((std::string_view(parts).size() + ...));
  (all.append(parts), ...);
  return all;
}

// A name or a value as messages show it: between single quotes.
inline std::string quoted(std::string_view text) { return joined("'", text, "'"); }

}  // namespace kivo_3_3
