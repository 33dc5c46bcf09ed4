#pragma once

// Texts as characters instead of bytes.

#include <string>
#include <vector>

namespace kivo_3_3::reference {

// The characters of a text in UTF-8, each as its bytes. Each byte that belongs to no character is
// an item of its own.
std::vector<std::string> charactersOf(const std::string& text);

// Whether an item of charactersOf() is a character, and not a byte that belongs to none.
bool isCharacter(const std::string& item);

}  // namespace kivo_3_3::reference
