#include "summary.h"

#include <algorithm>

#include "count.h"
#include "hash.h"
#include "table.h"

namespace textkit {
namespace {

using Cells = std::vector<std::string>;

// The headings of the columns, and their cells for one file and for the sums.
class Summary {
 public:
  explicit Summary(const Settings& settings) : m_settings(settings) {}

  bool counts() const {
    const auto& actions = m_settings.actions;
    return std::find(actions.begin(), actions.end(), Action::count) != actions.end();
  }

  Cells headings() const {
    return cells([](Measure measure) { return std::string(measureName(measure)); }, "hash");
  }

  // The cells for a text; none if the text is left out.
  Cells describe(const std::string& text) {
    const Counts counted = counts() ? countText(text) : Counts();
    if (counts() && filledRatio(counted) < m_settings.count.minRatio)
      return {};
    add(m_sums, counted);
    return countCells(counted, hashText(fnv1a(text, m_settings.hash.basis)));
  }

  Cells sums() const { return countCells(m_sums, ""); }

 private:
  Cells countCells(const Counts& counted, const std::string& hash) const {
    return cells([&](Measure measure) { return std::to_string(measured(counted, measure)); }, hash);
  }

  template <class CellOf>
  Cells cells(CellOf cellOf, const std::string& hash) const {
    Cells all;
    for (const Action action : m_settings.actions) {
      if (action == Action::hash) {
        all.push_back(hash);
        continue;
      }
      for (const Measure measure : m_settings.count.measures)
        all.push_back(cellOf(measure));
    }
    return all;
  }

  const Settings& m_settings;
  Counts m_sums;
};

}  // namespace

void summarize(const Settings& settings, InputReader& reader, std::ostream& out) {
  Summary summary(settings);
  Table table(summary.headings());
  std::string text;
  for (const std::string& name : settings.files) {
    if (!reader.read(name, text))
      continue;
    Cells cells = summary.describe(text);
    if (!cells.empty())
      table.add({shownName(name), std::move(cells)});
  }
  if (settings.format == Format::plain && summary.counts() && settings.files.size() > 1)
    table.add({"total", summary.sums()});
  table.write(out, settings.format);
}

}  // namespace textkit
