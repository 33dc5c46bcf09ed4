// Implements the UTF-8 encoder and decoder.

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

// The smallest character that takes this number of bytes.
constexpr char32_t smallest[] = {0, 0, 0x80, 0x800, 0x10000};

// The number of bytes of a character outside of ASCII that begins with this byte; 0 if none does.
std::size_t lengthFromLead(unsigned char lead) {
  if ((lead & 0xE0) == 0xC0)
    return 2;
  if ((lead & 0xF0) == 0xE0)
    return 3;
  return (lead & 0xF8) == 0xF0 ? 4 : 0;
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

std::size_t utf8_to_utf32(std::string_view text, char32_t& character) {
  const auto lead = static_cast<unsigned char>(text.front());
  if (lead < 0x80) {
    character = lead;
    return 1;
  }
  const std::size_t length = lengthFromLead(lead);
  if (length == 0 || text.size() < length)
    return 0;
  char32_t decoded = lead & (0x7Fu >> length);
  for (const char tail : text.substr(1, length - 1)) {
    if ((static_cast<unsigned char>(tail) & 0xC0) != 0x80)
      return 0;
    decoded = decoded << 6 | (static_cast<unsigned char>(tail) & 0x3F);
  }
  const bool isTooLong = decoded < smallest[length];
  if (isTooLong || decoded > lastCharacter || isSurrogate(decoded))
    return 0;
  character = decoded;
  return length;
}

}  // namespace BEDROCK
