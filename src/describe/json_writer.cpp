// Implements the JSON writer. An object in a list begins a line, so that two descriptions can be
// compared line by line.

#include "describe/json_writer.h"

#include "bedrock/unicode.h"

namespace kivo_3_3 {

namespace {

constexpr std::string_view replacement = "\xEF\xBF\xBD";  // U+FFFD

// Calls `visit` with each character of `text` and its bytes; for a byte that is not UTF-8, with
// U+FFFD and its bytes.
template <class Visit>
void forEachCharacter(std::string_view text, Visit visit) {
  while (!text.empty()) {
    char32_t character = 0xFFFD;
    const std::size_t length = BEDROCK::utf8_to_utf32(text, character);
    visit(character, length != 0 ? text.substr(0, length) : replacement);
    text.remove_prefix(length != 0 ? length : 1);
  }
}

bool isControl(char32_t character) {
  return character < 0x20 || (character >= 0x7F && character < 0xA0);
}

// Two digits suffice for every control character.
void appendEscaped(char32_t control, std::string& json) {
  constexpr std::string_view digits = "0123456789abcdef";
  (json += "\\u00") += digits[control >> 4];
  json += digits[control & 0xF];
}

}  // namespace

std::string asUtf8(std::string_view text) {
  std::string valid;
  forEachCharacter(text, [&](char32_t, std::string_view bytes) { valid += bytes; });
  return valid;
}

void JsonWriter::beginObject() {
  const bool isInList = !m_json.empty() && m_json.back() != ':';
  separate();
  m_json += isInList ? "\n{" : "{";
  m_isFirst = true;
}

void JsonWriter::beginList() {
  separate();
  m_json += '[';
  m_isFirst = true;
}

void JsonWriter::end(char bracket) {
  m_json += bracket;
  m_isFirst = false;
}

void JsonWriter::key(std::string_view name) {
  separate();
  quote(name);
  m_json += ':';
  m_isFirst = true;  // no comma before the value
}

void JsonWriter::text(std::string_view value) {
  separate();
  quote(value);
}

void JsonWriter::literal(std::string_view value) {
  separate();
  m_json += value;
}

void JsonWriter::separate() {
  if (!m_isFirst)
    m_json += ',';
  m_isFirst = false;
}

void JsonWriter::quote(std::string_view text) {
  m_json += '"';
  forEachCharacter(text, [&](char32_t character, std::string_view bytes) {
    if (isControl(character))
      appendEscaped(character, m_json);
    else if (character == '"' || character == '\\')
      (m_json += '\\') += bytes;
    else
      m_json += bytes;
  });
  m_json += '"';
}

}  // namespace kivo_3_3
