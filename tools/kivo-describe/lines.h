#pragma once

#include <string>
#include <vector>

namespace kivo_describe {

// A piece of text in one style.
struct Span {
  enum class Style {
    plain,
    literal,  // to be typed as it stands
    variable  // to be replaced by a value
  };
  Style style = Style::plain;
  std::string text;
};

using Line = std::vector<Span>;

// Texts of a tool are squeezed. Texts of our own keep their blanks at both ends.
Span own(std::string text);
Span plain(const std::string& text);
Span literal(const std::string& text);   // an empty text is shown by quotes
Span variable(const std::string& text);  // likewise

// Lines and spans one after the other.
Line operator+(Line line, const Line& more);

// The spans, separated by commas.
Line listOf(const std::vector<Span>& spans);

// "Default: 3."
Line fact(const char* label, const Line& line);

}  // namespace kivo_describe
