#include "markdown.h"

#include <algorithm>
#include <string_view>

#include "text.h"

// No text may become markup. Outside of code spans, punctuation that can have a meaning is escaped;
// some has a meaning only at the beginning of a line, where a list, a heading or a table may begin.

namespace kivo_describe {
namespace {

constexpr std::string_view digits = "0123456789";

std::string escaped(std::string_view text) {
  std::string result;
  for (const char character : text) {
    if (std::string_view("\\`*_[]<>&|~#").find(character) != std::string_view::npos)
      result += '\\';
    result += character;
  }
  return result;
}

// "- x", "+ x", "===" and ":--" get a backslash before them, "1. x" and "1) x" one after the
// digits.
std::string escapedAtLineStart(std::string line) {
  const std::size_t place = std::min(line.find_first_not_of(digits), line.size());
  if (line.find_first_of(place == 0 ? "-+=:" : ".)", place) == place)
    line.insert(place, "\\");
  return line;
}

// Nothing is an escape in a code span; a longer row of backquotes than any inside surrounds it.
std::string codeSpan(const std::string& text) {
  std::string quotes = "`";
  while (text.find(quotes) != std::string::npos)
    quotes += '`';
  const bool touches = text.front() == '`' || text.back() == '`';
  const char* const gap = touches ? " " : "";
  return quotes + gap + text + gap + quotes;
}

// An asterisk beside other characters than these may be no emphasis but an asterisk.
std::string emphasized(const std::string& text) {
  const bool isSafe =
      !text.empty() && isLetterOrDigit(text.front()) && isLetterOrDigit(text.back());
  return isSafe ? '*' + escaped(text) + '*' : escaped(text);
}

std::string written(const Span& span) {
  switch (span.style) {
    case Span::Style::literal:
      return codeSpan(span.text);
    case Span::Style::variable:
      return emphasized(span.text);
    case Span::Style::plain:
      break;
  }
  return escaped(span.text);
}

std::string written(const Line& line) {
  std::string result;
  for (const Span& span : line)
    result += written(span);
  return escapedAtLineStart(result);
}

// The lines as one paragraph with line breaks in it.
std::string joined(const std::vector<Line>& lines, const char* indent) {
  std::string result;
  for (const Line& line : lines) {
    if (!result.empty())
      result += std::string("\\\n") + indent;
    result += written(line);
  }
  return result;
}

class Markdown {
 public:
  explicit Markdown(const Page& page) : m_text("# " + escaped(page.name) + '\n') {
    for (const Block& block : page.blocks)
      std::visit([this](const auto& one) { add(one); }, block);
  }

  const std::string& text() const { return m_text; }

 private:
  // Under the name of the tool, which is the heading of the page.
  void add(const Heading& heading) {
    m_text += '\n' + std::string(static_cast<std::size_t>(heading.level) + 1, '#') + ' ' +
              escaped(heading.text) + '\n';
    m_isInList = false;
  }

  void add(const Paragraph& paragraph) {
    m_text += '\n' + joined(paragraph.lines, "") + '\n';
    m_isInList = false;
  }

  void add(const Item& item) {
    if (!m_isInList)
      m_text += '\n';
    std::vector<Line> lines = {item.label};
    lines.insert(lines.end(), item.lines.begin(), item.lines.end());
    m_text += "- " + joined(lines, "  ") + '\n';
    m_isInList = true;
  }

  std::string m_text;
  bool m_isInList = false;
};

}  // namespace

std::string markdown(const Page& page) { return Markdown(page).text(); }

}  // namespace kivo_describe
