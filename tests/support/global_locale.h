#pragma once

#include <algorithm>
#include <locale>
#include <string>

namespace kivo_3_3::testing {

// Sets the global locale for its lifetime.
class GlobalLocale {
 public:
  explicit GlobalLocale(const std::locale& locale) : m_previous(std::locale::global(locale)) {}
  GlobalLocale(const GlobalLocale&) = delete;
  GlobalLocale& operator=(const GlobalLocale&) = delete;
  ~GlobalLocale() { std::locale::global(m_previous); }

 private:
  std::locale m_previous;
};

// Writes numbers as "1.234.567,5".
inline std::locale localeWithDecimalComma() {
  class Punctuation : public std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
  };
  return std::locale(std::locale::classic(), new Punctuation);
}

// The underscore is white space, the blank is not.
inline std::locale localeWithUnderscoreAsSpace() {
  class Classes : public std::ctype<char> {
   public:
    Classes() : std::ctype<char>(makeTable(), true) {}

   private:
    static const mask* makeTable() {
      mask* table = new mask[table_size];
      std::copy(classic_table(), classic_table() + table_size, table);
      table[static_cast<unsigned char>('_')] = space;
      table[static_cast<unsigned char>(' ')] = print;
      return table;
    }
  };
  return std::locale(std::locale::classic(), new Classes);
}

}  // namespace kivo_3_3::testing
