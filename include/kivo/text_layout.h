#pragma once

#include <kivo/export.h>

#include <string>

namespace kivo_3_3 {

/// Wraps `text` into a column of `width` bytes that starts at column `indent`, with `head` at the
/// start of the first line. Every line ends with a newline and has at most `indent + width - 1`
/// bytes before the newline. A longer `head` is not cut: its line is as long as `head`. With a
/// `width` of 0 there is no limit. Lengths are counted in bytes: a character of n bytes takes n
/// columns, and may be split between two lines. For an empty `text`, returns the empty text.
///
/// A column too narrow for one character raises std::out_of_range: a `width` of 1, and
/// with `indent` 0 a `width` of 2.
KIVO_API std::string paragraphString(std::string text, std::string head, unsigned int indent,
                                     unsigned int width);

/// A text wrapped like paragraphString(), with a `width` of `totalWidth - indent`: a line has
/// at most `totalWidth - 1` bytes. With a `totalWidth` of `indent` or less there is no limit.
class KIVO_API WordWrappedText {
 public:
  /// Null texts count as empty. Raises the same exceptions as paragraphString().
  WordWrappedText(const char* head, const char* text, unsigned int indent, unsigned int totalWidth);
  /// The copy has its own text.
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
