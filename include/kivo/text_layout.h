#pragma once

#include <kivo/export.h>

#include <string>

namespace kivo_3_3 {

/// Wraps `text` into a column `width` wide that starts at column `indent`, with `head`
/// at the start of the first line. Every line ends with a newline and has at most
/// `indent + width - 1` characters before it; with a `width` of 0 there is no limit. An empty
/// `text` gives the empty text.
///
/// A column too narrow for one character raises std::out_of_range: a `width` of 1, and
/// with `indent` 0 a `width` of 2.
KIVO_API std::string paragraphString(std::string text, std::string head, unsigned int indent,
                                     unsigned int width);

/// A text wrapped as paragraphString() does, for lines of at most `totalWidth` columns.
class KIVO_API WordWrappedText {
 public:
  /// Null texts count as empty. Raises what paragraphString() raises.
  WordWrappedText(const char* head, const char* text, unsigned int indent, unsigned int totalWidth);
  /// The copy has a text of its own.
  WordWrappedText(const WordWrappedText&) = default;
  /// See the copy constructor.
  WordWrappedText& operator=(const WordWrappedText&) = default;
  ~WordWrappedText();

  /// The wrapped text, valid as long as this object lives.
  const char* getText() const;

 private:
  std::string m_text;
};

}  // namespace kivo_3_3
