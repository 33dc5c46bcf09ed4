#pragma once

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace kivo_3_3::tool_glue {

/// Names that are separated by commas. The empty text is one empty name.
class NameList {
 public:
  class Iterator {
   public:
    /// Of the name at the beginning of the text.
    explicit Iterator(std::string_view rest)
        : m_rest(rest), m_length(std::min(rest.find(','), rest.size())) {}
    Iterator() = default;  // past the last name
    std::string_view operator*() const { return m_rest.substr(0, m_length); }
    Iterator& operator++() {
      return *this = m_length < m_rest.size() ? Iterator(m_rest.substr(m_length + 1)) : Iterator();
    }
    bool operator!=(const Iterator& other) const { return m_rest.data() != other.m_rest.data(); }

   private:
    std::string_view m_rest;
    std::size_t m_length = 0;
  };

  NameList() = default;
  /// The text must outlive the list.
  explicit NameList(std::string_view text) : m_text(text) {}

  Iterator begin() const { return Iterator(m_text); }
  static Iterator end() { return {}; }
  std::string_view text() const { return m_text; }

 private:
  std::string_view m_text;
};

}  // namespace kivo_3_3::tool_glue
