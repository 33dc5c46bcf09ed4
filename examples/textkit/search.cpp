#include "search.h"

#include <algorithm>
#include <cstdlib>
#include <ostream>

#include "csv.h"

namespace textkit {
namespace {

using Lines = std::vector<std::string_view>;

Lines splitLines(std::string_view text) {
  Lines lines;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    lines.push_back(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return lines;
}

std::string smallLetters(std::string_view text) {
  std::string folded(text);
  for (char& c : folded) {
    if (c >= 'A' && c <= 'Z')
      c = static_cast<char>(c - 'A' + 'a');
  }
  return folded;
}

class Matcher {
 public:
  explicit Matcher(const SearchSettings& settings)
      : m_patterns(settings.patterns), m_ignoreCase(settings.ignoreCase) {
    if (m_ignoreCase)
      std::transform(m_patterns.begin(), m_patterns.end(), m_patterns.begin(), smallLetters);
  }

  bool matches(std::string_view line) const {
    return m_ignoreCase ? holdsPattern(smallLetters(line)) : holdsPattern(line);
  }

 private:
  bool holdsPattern(std::string_view line) const {
    return std::any_of(m_patterns.begin(), m_patterns.end(), [&](const std::string& pattern) {
      return line.find(pattern) != std::string_view::npos;
    });
  }

  std::vector<std::string> m_patterns;
  bool m_ignoreCase;
};

// Writes single lines in the chosen format.
class LineWriter {
 public:
  LineWriter(const Settings& settings, std::ostream& out)
      : m_out(out),
        m_format(settings.format),
        m_showNames(settings.files.size() > 1),
        m_showNumbers(settings.search.lineNumbers),
        m_showGaps(settings.search.context != 0) {
    if (m_format == Format::csv)
      m_out << "file,line,kind,text\n";
  }

  void write(const std::string& name, std::size_t number, std::string_view line, bool isMatch) {
    if (m_format == Format::csv)
      m_out << csvField(name) << ',' << number << ',' << (isMatch ? "match" : "context") << ','
            << csvField(line) << '\n';
    else
      writePlain(name, number, line, isMatch ? ':' : '-');
    m_hasWritten = true;
  }

  // Marks that lines are left out between the last line written and the next one.
  void writeGap() {
    if (m_format == Format::plain && m_showGaps && m_hasWritten)
      m_out << "--\n";
  }

 private:
  void writePlain(const std::string& name, std::size_t number, std::string_view line, char mark) {
    if (m_showNames)
      m_out << name << mark;
    if (m_showNumbers)
      m_out << number << mark;
    m_out << line << '\n';
  }

  std::ostream& m_out;
  Format m_format;
  bool m_showNames;
  bool m_showNumbers;
  bool m_showGaps;
  bool m_hasWritten = false;
};

// Searches the lines of one file. Every line is written at most once: `m_next` is the first line
// that is neither written nor left out.
class FileSearch {
 public:
  FileSearch(const std::string& name, const Lines& lines, const SearchSettings& settings,
             LineWriter& writer)
      : m_name(name),
        m_lines(lines),
        m_writer(writer),
        m_limit(settings.limit),
        m_before(static_cast<std::size_t>(std::abs(static_cast<long long>(settings.context)))),
        m_after(settings.context > 0 ? m_before : 0) {}

  void run(const Matcher& matcher) {
    unsigned int found = 0;
    for (std::size_t i = 0; i < m_lines.size() && found != m_limit; ++i) {
      if (!matcher.matches(m_lines[i]))
        continue;
      writeContext(i);
      writeUpTo(i + 1, true);
      m_owed = m_after;
      ++found;
    }
    writeUpTo(m_next + std::min(m_owed, m_lines.size() - m_next), false);
  }

 private:
  // Writes the context between the last match and line `match`: the lines after the last match that
  // are still owed, then the lines before this match.
  void writeContext(std::size_t match) {
    writeUpTo(m_next + std::min(m_owed, match - m_next), false);
    const std::size_t first = match - std::min(m_before, match - m_next);
    if (first > m_next || m_next == 0)
      m_writer.writeGap();
    m_next = first;
    writeUpTo(match, false);
  }

  void writeUpTo(std::size_t end, bool isMatch) {
    for (; m_next < end; ++m_next)
      m_writer.write(m_name, m_next + 1, m_lines[m_next], isMatch);
  }

  const std::string m_name;
  const Lines& m_lines;
  LineWriter& m_writer;
  std::optional<unsigned int> m_limit;
  std::size_t m_before;
  std::size_t m_after;
  std::size_t m_owed = 0;
  std::size_t m_next = 0;
};

}  // namespace

void search(const Settings& settings, InputReader& reader, std::ostream& out) {
  const Matcher matcher(settings.search);
  LineWriter writer(settings, out);
  std::string text;
  for (const std::string& name : settings.files) {
    if (reader.read(name, text)) {
      const Lines lines = splitLines(text);
      FileSearch(shownName(name), lines, settings.search, writer).run(matcher);
    }
  }
}

}  // namespace textkit
