// Implements the UTF-8 encoder. A mistake here makes the reference model disagree with the library
// about typographic dashes.

#include "bedrock/unicode.h"

namespace BEDROCK {

namespace {

constexpr char32_t lastCharacter = 0x10FFFF;

bool isSurrogate(char32_t character) { return character >= 0xD800 && character <= 0xDFFF; }

char leadByte(char32_t mark, char32_t bits) { return static_cast<char>(mark | bits); }

// The continuation byte with the six bits of `character` from bit `shift` upwards.
char tailByte(char32_t character, unsigned shift) {
  return static_cast<char>(0x80 | ((character >> shift) & 0x3F));
}

}  // namespace

std::string utf32_to_utf8(char32_t character) {
  if (character > lastCharacter || isSurrogate(character))
    return "-1";
  if (character < 0x80)
    return {static_cast<char>(character)};
  if (character < 0x800)
    return {leadByte(0xC0, character >> 6), tailByte(character, 0)};
  if (character < 0x10000)
    return {leadByte(0xE0, character >> 12), tailByte(character, 6), tailByte(character, 0)};
  return {leadByte(0xF0, character >> 18), tailByte(character, 12), tailByte(character, 6),
          tailByte(character, 0)};
}

}  // namespace BEDROCK
