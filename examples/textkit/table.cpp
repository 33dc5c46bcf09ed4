#include "table.h"

#include <algorithm>
#include <iomanip>
#include <ostream>

#include "csv.h"

namespace textkit {

void Table::write(std::ostream& out, Format format) const {
  if (format == Format::csv)
    writeCsv(out);
  else
    writePlain(out);
}

void Table::writePlain(std::ostream& out) const {
  std::vector<int> widths(m_headings.size(), 0);
  for (const Row& row : m_rows) {
    for (std::size_t i = 0; i < row.cells.size(); ++i)
      widths[i] = std::max(widths[i], static_cast<int>(row.cells[i].size()));
  }
  for (const Row& row : m_rows) {
    for (std::size_t i = 0; i < row.cells.size(); ++i)
      out << std::setw(widths[i]) << row.cells[i] << ' ';
    out << row.name << '\n';
  }
}

void Table::writeCsv(std::ostream& out) const {
  out << "file";
  for (const std::string& heading : m_headings)
    out << ',' << csvField(heading);
  out << '\n';
  for (const Row& row : m_rows) {
    out << csvField(row.name);
    for (const std::string& cell : row.cells)
      out << ',' << csvField(cell);
    out << '\n';
  }
}

}  // namespace textkit
