#include "reference/text_layout.h"

#include <algorithm>
#include <stdexcept>

namespace kivo_3_3::reference {

namespace {

bool isBlank(char c) { return c == ' ' || c == '\n'; }

// The part of the text for one line with room for `room` bytes: up to the first newline, in whole
// words if possible; a longer word is cut. If `room` is 0, it raises std::out_of_range with the
// text that libstdc++ has for an access before the start of the chunk.
std::string takeChunk(const std::string& text, unsigned int room) {
  std::string chunk = text.substr(0, std::min<std::size_t>(text.find('\n'), room));
  const bool isCut = text.size() > chunk.size() && !isBlank(text[chunk.size()]);
  if (isCut && chunk.empty())
    throw std::out_of_range("basic_string::at: __n (which is " + std::to_string(std::string::npos) +
                            ") >= this->size() (which is 0)");
  if (isCut && chunk.back() != ' ')
    chunk = text.substr(0, text.rfind(' ', chunk.size()));
  return chunk.substr(0, room);
}

}  // namespace

std::string paragraphString(std::string text, std::string head, unsigned int indent,
                            unsigned int width) {
  std::string line = std::move(head);
  std::string output;
  while (!text.empty()) {
    text.erase(0, std::min(text.find_first_not_of(" \n"), text.size()));
    // Without an indent every line begins with a space, so these widths leave no room: the call
    // raises.
    if (!text.empty() && indent == 0 && (width == 1 || width == 2))
      takeChunk(text, 0);
    const auto length = static_cast<unsigned int>(line.size());
    unsigned int room = width - 1;
    if (length < indent) {
      line.append(indent - length, ' ');
    } else if (length - indent + 1 >= width - 1) {
      output += line + '\n';
      line.clear();
      continue;
    } else {
      line += ' ';
      room = indent + width - 1 - length - 1;
    }
    const std::string chunk = takeChunk(text, room);
    text.erase(0, chunk.size());
    output += line + chunk + '\n';
    line.clear();
  }
  return output;
}

}  // namespace kivo_3_3::reference
