#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "settings.h"

namespace textkit {

/// Rows of cells, each row about one file.
class Table {
 public:
  struct Row {
    std::string name;
    std::vector<std::string> cells;
  };

  explicit Table(std::vector<std::string> headings) : m_headings(std::move(headings)) {}

  /// Adds a row with a cell for every heading.
  void add(Row row) { m_rows.push_back(std::move(row)); }

  /// Plain: the cells right-aligned in columns, then the name; no headings.
  /// CSV: a line of headings, then the name and the cells of each row.
  void write(std::ostream& out, Format format) const;

 private:
  void writePlain(std::ostream& out) const;
  void writeCsv(std::ostream& out) const;

  std::vector<std::string> m_headings;
  std::vector<Row> m_rows;
};

}  // namespace textkit
