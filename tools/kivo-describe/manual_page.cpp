#include "manual_page.h"

#include <algorithm>
#include <string_view>

// No text may become markup: each character with a meaning to roff is escaped, and no line begins
// with a dot that is not ours. Each paragraph is one line, because a sentence that ends a line
// gets two blanks after it.

namespace kivo_describe {
namespace {

const char* escape(char character) {
  switch (character) {
    case '\\':
      return "\\e";  // lexgrog drops "\(rs"
    case '-':
      return "\\-";  // a hyphen otherwise
    case '\'':
      return "\\(aq";  // a closing quote otherwise
    case '`':
      return "\\(ga";  // an opening quote otherwise
    case '^':
      return "\\(ha";
    case '~':
      return "\\(ti";
    case '"':
      return "\\(dq";  // ends an argument of a macro otherwise
    default:
      return nullptr;
  }
}

std::string escaped(std::string_view text) {
  std::string result;
  for (const char character : text) {
    if (const char* const sequence = escape(character))
      result += sequence;
    else
      result += character;
  }
  return result;
}

std::string written(const Span& span) {
  switch (span.style) {
    case Span::Style::literal:
      return "\\fB" + escaped(span.text) + "\\fR";
    case Span::Style::variable:
      return "\\fI" + escaped(span.text) + "\\fR";
    case Span::Style::plain:
      break;
  }
  return escaped(span.text);
}

char upper(char character) {
  return character >= 'a' && character <= 'z' ? static_cast<char>(character - 'a' + 'A')
                                              : character;
}

// The title and the section NAME. The version is not in the title: some programs write page numbers
// for "%" there, and a long version over the date. lexgrog does not accept a name without a
// summary.
std::string opening(const Page& page, const std::string& date) {
  std::string title = page.name;
  std::transform(title.begin(), title.end(), title.begin(), upper);
  const std::string summary = page.summary.empty() ? "command-line tool" : page.summary;
  return ".\\\" -*- coding: utf-8 -*-\n"
         ".TH \"" +
         escaped(title) + "\" \"1\" \"" + date + "\" \"" + escaped(page.name) +
         "\" \"\"\n"
         ".nh\n.ad l\n"  // names and values are neither hyphenated nor spaced out
         ".SH NAME\n" +
         escaped(page.name) + " \\- " + escaped(summary) + '\n';
}

class ManualPage {
 public:
  ManualPage(const Page& page, const std::string& date) : m_text(opening(page, date)) {
    for (const Block& block : page.blocks)
      std::visit([this](const auto& one) { add(one); }, block);
  }

  const std::string& text() const { return m_text; }

 private:
  void add(const Heading& heading) {
    if (heading.level == 1)
      m_text += ".SH " + escaped(heading.text) + '\n';
    else if (heading.level == 2)
      m_text += ".SS " + escaped(heading.text) + '\n';
    else
      add(Paragraph{{{literal(heading.text)}}});
    m_isAfterHeading = heading.level < 3;
  }

  // mandoc warns of a paragraph that begins after a heading, where one begins anyway.
  void add(const Paragraph& paragraph) {
    if (!m_isAfterHeading)
      m_text += ".PP\n";
    addLines(paragraph.lines);
    m_isAfterHeading = false;
  }

  void add(const Item& item) {
    m_text += ".TP\n";
    addLines({item.label});
    addLines(item.lines);
    if (item.lines.empty())
      m_text += "\\&\n";
    m_isAfterHeading = false;
  }

  void addLines(const std::vector<Line>& lines) {
    bool isFirst = true;
    for (const Line& line : lines) {
      std::string shown;
      for (const Span& span : line)
        shown += written(span);
      if (!isFirst)
        m_text += ".br\n";
      m_text += (shown.rfind('.', 0) == 0 ? "\\&" : "") + shown + '\n';
      isFirst = false;
    }
  }

  std::string m_text;
  bool m_isAfterHeading = false;
};

}  // namespace

std::string manualPage(const Page& page, const std::string& date) {
  return ManualPage(page, date).text();
}

}  // namespace kivo_describe
