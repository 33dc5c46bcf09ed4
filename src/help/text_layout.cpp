// Wraps one paragraph into a column beside its head.
//
// Lengths are counted in unsigned arithmetic: an indented column of width 0 has room
// without end.

#include <kivo/text_layout.h>

#include <algorithm>
#include <string_view>

namespace kivo_3_3 {

namespace {

using std::string;
using std::string_view;

// With no indent, a column of this width has no room for a character.
constexpr unsigned int narrowest = 2;

bool isBreak(char character) { return character == ' ' || character == '\n'; }

void dropLeadingBreaks(string_view& text) {
  text.remove_prefix(std::min(text.find_first_not_of(" \n"), text.size()));
}

// Out of range for a chunk without characters, which there is no room for.
char lastOf(string_view chunk) { return string(chunk).at(chunk.size() - 1); }

// The part of `text` for a line with this much room: up to a newline or the end of a
// whole word, or as much of a word as there is room for.
string_view takeChunk(string_view text, unsigned int room) {
  string_view chunk = text.substr(0, room);
  chunk = chunk.substr(0, chunk.find('\n'));
  if (chunk.size() == text.size() || isBreak(text[chunk.size()]) || lastOf(chunk) == ' ')
    return chunk;
  return chunk.substr(0, chunk.rfind(' '));
}

}  // namespace

// NOLINTNEXTLINE(performance-unnecessary-value-param): tools have been built with it
string paragraphString(string text, string head, unsigned int indent, unsigned int width) {
  string paragraph;
  string line = std::move(head);
  string_view rest(text);
  while (!rest.empty()) {
    dropLeadingBreaks(rest);
    if (indent == 0 && width <= narrowest && !rest.empty())
      lastOf("");  // the space that such lines begin with fills them
    const auto length = static_cast<unsigned int>(line.size());
    unsigned int room = width - 1;
    if (length < indent) {
      line.append(indent - length, ' ');
    } else if (length - indent + 1 >= width - 1) {
      paragraph += line + '\n';
      line.clear();
      continue;
    } else {
      line += ' ';
      room = indent + width - 1 - length - 1;
    }
    const string_view chunk = takeChunk(rest, room);
    rest.remove_prefix(chunk.size());
    paragraph.append(line).append(chunk) += '\n';
    line.clear();
  }
  return paragraph;
}

WordWrappedText::WordWrappedText(const char* head, const char* text, unsigned int indent,
                                 unsigned int totalWidth)
    : m_text(paragraphString(text != nullptr ? text : "", head != nullptr ? head : "", indent,
                             totalWidth - indent)) {}

WordWrappedText::~WordWrappedText() = default;

const char* WordWrappedText::getText() const { return m_text.c_str(); }

}  // namespace kivo_3_3
