#include "count.h"

namespace textkit {
namespace {

// The white space of the C locale, whatever the locale of the process is.
bool isSpace(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

bool continuesCharacter(char c) { return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U; }

// One walk over the text; a word and a filled line are counted where they begin.
class Counter {
 public:
  void see(char c) {
    if (!continuesCharacter(c))
      ++m_counts.chars;
    if (!m_inLine)
      beginLine();
    if (isSpace(c))
      m_inWord = false;
    else if (!m_inWord)
      beginWord();
    if (c == '\n')
      endLine();
  }

  const Counts& counts() const { return m_counts; }

 private:
  void beginLine() {
    m_inLine = true;
    m_isFilled = false;
    ++m_counts.textLines;
  }
  void beginWord() {
    m_inWord = true;
    ++m_counts.words;
    if (!m_isFilled)
      ++m_counts.filledLines;
    m_isFilled = true;
  }
  void endLine() {
    m_inLine = false;
    ++m_counts.lines;
  }

  Counts m_counts;
  bool m_inLine = false;
  bool m_isFilled = false;
  bool m_inWord = false;
};

}  // namespace

Counts countText(std::string_view text) {
  Counter counter;
  for (const char c : text)
    counter.see(c);
  Counts counts = counter.counts();
  counts.bytes = text.size();
  return counts;
}

void add(Counts& sum, const Counts& counts) {
  sum.lines += counts.lines;
  sum.words += counts.words;
  sum.bytes += counts.bytes;
  sum.chars += counts.chars;
  sum.textLines += counts.textLines;
  sum.filledLines += counts.filledLines;
}

std::uint64_t measured(const Counts& counts, Measure measure) {
  switch (measure) {
    case Measure::lines:
      return counts.lines;
    case Measure::words:
      return counts.words;
    case Measure::bytes:
      return counts.bytes;
    case Measure::chars:
      return counts.chars;
    case Measure::blank:
      return counts.textLines - counts.filledLines;
  }
  return 0;
}

double filledRatio(const Counts& counts) {
  if (counts.textLines == 0)
    return 0.0;
  return static_cast<double>(counts.filledLines) / static_cast<double>(counts.textLines);
}

const char* measureName(Measure measure) {
  switch (measure) {
    case Measure::lines:
      return "lines";
    case Measure::words:
      return "words";
    case Measure::bytes:
      return "bytes";
    case Measure::chars:
      return "chars";
    case Measure::blank:
      return "blank";
  }
  return "";
}

}  // namespace textkit
