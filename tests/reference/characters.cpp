#include "reference/characters.h"

namespace kivo_3_3::reference {

namespace {

unsigned int byteOf(char character) { return static_cast<unsigned char>(character); }

// The number of bytes that a character with this first byte has; 0 for a byte that is never first.
std::size_t lengthFrom(unsigned int first) {
  if (first < 0x80)
    return 1;
  if (first >= 0xC2 && first <= 0xDF)
    return 2;
  if (first >= 0xE0 && first <= 0xEF)
    return 3;
  return first >= 0xF0 && first <= 0xF4 ? 4 : 0;
}

// Some first bytes allow only a part of all second bytes: no character has a shorter form, is one
// of the surrogates, or lies above U+10FFFF.
bool mayFollow(unsigned int first, unsigned int second) {
  switch (first) {
    case 0xE0:
      return second >= 0xA0;
    case 0xED:
      return second <= 0x9F;
    case 0xF0:
      return second >= 0x90;
    case 0xF4:
      return second <= 0x8F;
    default:
      return true;
  }
}

}  // namespace

bool isCharacter(const std::string& item) {
  if (item.empty() || lengthFrom(byteOf(item[0])) != item.size())
    return false;
  for (std::size_t i = 1; i < item.size(); ++i)
    if (byteOf(item[i]) < 0x80 || byteOf(item[i]) > 0xBF)
      return false;
  return item.size() == 1 || mayFollow(byteOf(item[0]), byteOf(item[1]));
}

std::vector<std::string> charactersOf(const std::string& text) {
  std::vector<std::string> all;
  for (std::size_t begin = 0; begin < text.size(); begin += all.back().size()) {
    const std::string item = text.substr(begin, lengthFrom(byteOf(text[begin])));
    all.push_back(isCharacter(item) ? item : text.substr(begin, 1));
  }
  return all;
}

}  // namespace kivo_3_3::reference
