#pragma once

// Writes JSON. If a comma, a quote or an escape were wrong, no program could read what a tool says
// about itself.

#include <string>
#include <string_view>

namespace kivo_3_3 {

// The text with U+FFFD in place of each byte that is not UTF-8.
std::string asUtf8(std::string_view text);

// Builds a JSON text from calls in the order of the text. The caller makes sure that they fit: a
// key before each value in an object, and an end for each beginning. Any call may raise
// std::bad_alloc.
class JsonWriter {
 public:
  void beginObject();
  void endObject() { end('}'); }
  void beginList();
  void endList() { end(']'); }
  void key(std::string_view name);

  // Bytes that are not UTF-8 become U+FFFD, and control characters are escaped.
  void text(std::string_view value);
  void boolean(bool value) { literal(value ? "true" : "false"); }
  void null() { literal("null"); }

  const std::string& json() const { return m_json; }

 private:
  void separate();
  void literal(std::string_view value);
  void quote(std::string_view text);
  void end(char bracket);

  std::string m_json;
  bool m_isFirst = true;  // whether the next value is the first one in its object or list
};

}  // namespace kivo_3_3
