// Wraps one paragraph into a column beside its head.
//
// Lengths are unsigned, as in the interface, and wrap: a column of width 0 has no limit.

#include <kivo/text_layout.h>

#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>

#include "help/paragraph.h"

namespace kivo_3_3 {

namespace {

using std::string;
using std::string_view;

// With an indent of 0, every line begins with a space. In a column of width 1 or 2, that leaves no
// room for text.
bool isFilledByItsSpace(unsigned int indent, unsigned int width) {
  return indent == 0 && (width == 1 || width == 2);
}

bool isBreak(char character) { return character == ' ' || character == '\n'; }

void dropLeadingBreaks(string_view& text) {
  while (!text.empty() && isBreak(text.front()))
    text.remove_prefix(1);
}

// The column has no room for a character. Tools know the text of this error: libstdc++ raises it
// for access before the start of a string.
[[noreturn]] void throwNoRoom() {
  throw std::out_of_range("basic_string::at: __n (which is " + std::to_string(string::npos) +
                          ") >= this->size() (which is 0)");
}

// The part of `text` for a line with room for `room` bytes: up to a newline or the end of a whole
// word, or as much of a word as fits.
string_view takeChunk(string_view text, unsigned int room) {
  string_view chunk = text.substr(0, room);
  chunk = chunk.substr(0, chunk.find('\n'));
  if (chunk.size() == text.size() || isBreak(text[chunk.size()]))
    return chunk;
  if (chunk.empty())
    throwNoRoom();
  return chunk.back() == ' ' ? chunk : chunk.substr(0, chunk.rfind(' '));
}

}  // namespace

void wrapBehindHead(string& output, std::size_t head, string_view text, unsigned int indent,
                    unsigned int width) {
  if (text.empty())
    output.resize(head);
  std::size_t line = head;
  while (!text.empty()) {
    dropLeadingBreaks(text);
    if (isFilledByItsSpace(indent, width) && !text.empty())
      throwNoRoom();  // otherwise the loop would not end
    const auto length = static_cast<unsigned int>(output.size() - line);
    string_view chunk;
    if (length < indent) {
      output.append(indent - length, ' ');
      chunk = takeChunk(text, width - 1);
    } else if (length - indent + 1 < width - 1) {
      output += ' ';
      chunk = takeChunk(text, indent + width - 1 - length - 1);
    }
    output.append(chunk) += '\n';
    text.remove_prefix(chunk.size());
    line = output.size();
  }
}

// NOLINTNEXTLINE(performance-unnecessary-value-param): tools have been built with it
string paragraphString(string text, string head, unsigned int indent, unsigned int width) {
  string paragraph = std::move(head);
  wrapBehindHead(paragraph, 0, text, indent, width);
  return paragraph;
}

WordWrappedText::WordWrappedText(const char* head, const char* text, unsigned int indent,
                                 unsigned int totalWidth)
    : m_text(paragraphString(text != nullptr ? text : "", head != nullptr ? head : "", indent,
                             totalWidth - indent)) {}

WordWrappedText::~WordWrappedText() = default;

const char* WordWrappedText::getText() const { return m_text.c_str(); }

}  // namespace kivo_3_3
