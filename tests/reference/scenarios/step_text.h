#pragma once

// Builds the line of one step, field by field.

#include <string>
#include <vector>

namespace kivo_3_3::scenarios {

class StepText {
 public:
  explicit StepText(const std::string& verb) : m_text(verb) {}

  StepText& operator<<(const std::string& field) {
    m_text += m_hasFields ? '|' : ' ';
    m_hasFields = true;
    for (const char character : field)
      append(character);
    return *this;
  }
  StepText& operator<<(int number) { return *this << std::to_string(number); }
  StepText& operator<<(const std::vector<std::string>& fields) {
    for (const std::string& field : fields)
      *this << field;
    return *this;
  }

  const std::string& line() const { return m_text; }

 private:
  void append(char character) {
    if (character == '\n') {
      m_text += "\\n";
      return;
    }
    if (character == '|' || character == '\\')
      m_text += '\\';
    m_text += character;
  }

  std::string m_text;
  bool m_hasFields = false;
};

}  // namespace kivo_3_3::scenarios
