#include "reference/text_layout.h"

#include <algorithm>

namespace kivo_3_3::reference {

namespace {

bool isBlank(char c) { return c == ' ' || c == '\n'; }

// What fits into the room: up to the first newline, whole words if possible, a word longer
// than the room cut hard. Without any room the read before the start of the chunk raises
// std::out_of_range.
std::string takeChunk(const std::string& text, unsigned int room) {
  std::string chunk = text.substr(0, std::min<std::size_t>(text.find('\n'), room));
  const bool endsInWord = text.size() > chunk.size() && !isBlank(text[chunk.size()]) &&
                          chunk.at(chunk.size() - 1) != ' ';
  if (endsInWord)
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
    // Every line begins with one space where there is no indent, so no room is left: it raises.
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
