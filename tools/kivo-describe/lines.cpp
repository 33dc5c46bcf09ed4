#include "lines.h"

#include <utility>

#include "text.h"

// Every text of a tool gets into a page through plain(), literal() or variable(). If one got past
// them, its line ends would break the page.

namespace kivo_describe {
namespace {

// A text that leaves nothing to see is quoted.
std::string visible(const std::string& text) {
  std::string shown = squeezed(text);
  if (!shown.empty())
    return shown;
  return text.empty() ? "\"\"" : "\" \"";
}

}  // namespace

Span own(std::string text) { return {Span::Style::plain, std::move(text)}; }

Span plain(const std::string& text) { return {Span::Style::plain, squeezed(text)}; }

Span literal(const std::string& text) { return {Span::Style::literal, visible(text)}; }

Span variable(const std::string& text) { return {Span::Style::variable, visible(text)}; }

Line operator+(Line line, const Line& more) {
  line.insert(line.end(), more.begin(), more.end());
  return line;
}

Line listOf(const std::vector<Span>& spans) {
  Line line;
  for (const Span& span : spans) {
    if (!line.empty())
      line.push_back(own(", "));
    line.push_back(span);
  }
  return line;
}

Line fact(const char* label, const Line& line) {
  return Line{own(std::string(label) + ": ")} + line + Line{own(".")};
}

}  // namespace kivo_describe
