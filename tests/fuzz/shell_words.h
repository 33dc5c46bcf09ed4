#pragma once

// Reads lines of data of completion scripts by the quoting rules of each shell. Nothing is taken
// that a shell would expand, join or run.

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kivo_3_3::fuzzing {

enum class Shell { bash, zsh, fish };

struct ShellLine {
  std::string shape;               // the line, with "Q" for each quoted word
  std::vector<std::string> words;  // the quoted words, without quotes
};

// Reads one line.
class ShellLineReader {
 public:
  ShellLineReader(Shell shell, std::string_view line) : m_shell(shell), m_rest(line) {}

  // Nothing if the line is not made of plain characters and quoted words alone.
  std::optional<ShellLine> read() {
    while (!m_rest.empty()) {
      const bool isQuoted = begins("'") || (m_shell != Shell::fish && begins("$'"));
      if (!(isQuoted ? takeQuotedWord() : takePlain()))
        return std::nullopt;
    }
    return m_line;
  }

 private:
  bool begins(std::string_view text) const { return m_rest.substr(0, text.size()) == text; }

  bool take(std::string_view text) {
    if (!begins(text))
      return false;
    m_rest.remove_prefix(text.size());
    return true;
  }

  // A character that is right in the fixed part of a line; the shapes say where.
  bool takePlain() {
    const char character = m_rest.front();
    if (static_cast<unsigned char>(character) <= 0x1F ||
        std::string_view("$`\"\\<>;&|*?[]~!#\x7F").find(character) != std::string_view::npos)
      return false;
    m_line.shape += character;
    m_rest.remove_prefix(1);
    return true;
  }

  // Quoted parts without a blank between them are one word.
  bool takeQuotedWord() {
    m_word.clear();
    bool isRead = true;
    while (isRead && !m_rest.empty() && m_rest.front() != ' ' && m_rest.front() != ')')
      isRead = takePart();
    m_line.shape += 'Q';
    m_line.words.push_back(m_word);
    return isRead;
  }

  bool takePart() {
    if (m_shell == Shell::fish)
      return take("'") ? takeUntilQuote(true) : takeCode();
    if (take("$'"))
      return takeUntilQuote(true);
    if (take("\\'"))
      m_word += '\'';
    else if (take("'"))
      return takeUntilQuote(false);
    else
      return false;
    return true;
  }

  // Takes "\xNN", which fish reads outside of quotes and the others within $'...', "\n" and "\NNN".
  bool takeCode() {
    const std::size_t length = begins("\\n") ? 2 : 4;
    if (m_rest.size() < length || !(begins("\\n") || begins("\\x") || begins("\\0")))
      return false;
    const std::string digits(m_rest.substr(2, length - 2));
    const std::string_view allowed = begins("\\x") ? "0123456789abcdef" : "01234567";
    if (digits.find_first_not_of(allowed) != std::string::npos)
      return false;
    m_word += digits.empty()
                  ? '\n'
                  : static_cast<char>(std::stoi(digits, nullptr, begins("\\x") ? 16 : 8));
    m_rest.remove_prefix(length);
    return true;
  }

  bool takeUntilQuote(bool hasEscapes) {
    while (!m_rest.empty() && !begins("'")) {
      if (hasEscapes && begins("\\")) {
        if (m_rest.size() > 1 && (m_rest[1] == '\'' || m_rest[1] == '\\')) {
          m_word += m_rest[1];
          m_rest.remove_prefix(2);
        } else if (m_shell == Shell::fish || !takeCode()) {
          return false;
        }
      } else if (!takeText()) {
        return false;
      }
    }
    return take("'");
  }

  // fish has no words for control characters within quotes, and takes all as they are.
  bool takeText() {
    const auto code = static_cast<unsigned char>(m_rest.front());
    const bool isControl = code < 0x20 || code == 0x7F;
    if (isControl && (m_shell != Shell::fish || code == '\t' || code == '\0'))
      return false;
    m_word += m_rest.front();
    m_rest.remove_prefix(1);
    return true;
  }

  Shell m_shell;
  std::string_view m_rest;
  std::string m_word;
  ShellLine m_line;
};

}  // namespace kivo_3_3::fuzzing
