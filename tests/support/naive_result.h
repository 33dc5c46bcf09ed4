#pragma once

// A naive result: everything is stored for each name separately, and each query is a linear walk.

#include <kivo/value.h>

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace kivo_3_3::testing {

class NaiveResult {
 public:
  // A value, a default or a leftover argument.
  struct Piece {
    std::string text;
    int position;
  };
  struct Entry {
    std::vector<int> positions;
    std::vector<Piece> values;
    std::optional<Piece> standby = {};  // the default
  };
  using Names = std::vector<std::string>;

  // If the first name has no entry yet, the entries of all names are overwritten, even those that
  // another option has stored.
  void store(const Names& names, const Entry& occurrence) {
    if (m_entries.count(names.at(0)) == 0) {
      for (const std::string& name : names)
        m_entries[name] = occurrence;
      return;
    }
    for (const std::string& name : names) {
      append(occurrence.positions, m_entries[name].positions);
      append(occurrence.values, m_entries[name].values);
    }
  }

  // The names get consecutive positions, beginning with `position`.
  void applyDefault(const Names& names, const std::string& text, int position) {
    for (const std::string& name : names)
      m_entries[name].standby = Piece{text, position++};
  }

  void addArgument(const std::string& text, int position) {
    m_arguments.push_back({text, position});
  }

  const std::map<std::string, Entry>& entries() const { return m_entries; }

  // Values are shown as "text@position", an occurrence without a value as "-@position".
  std::string get(const std::string& name, int from, int to) {
    if (!select(name, from, to))
      return "nothing";
    if (const Piece* onlyDefault = defaultOfSelected())
      return told(*onlyDefault);
    return next();
  }

  bool present(const std::string& name, int from, int to) {
    if (!select(name, from, to))
      return false;
    if (defaultOfSelected() != nullptr)
      m_from = m_to = lastPosition;
    return true;
  }

  std::string next() {
    if (m_selected == nullptr)
      return "nothing";
    if (const Piece* onlyDefault = defaultOfSelected()) {
      if (m_from != lastPosition || m_to != lastPosition)
        return "nothing";
      m_from = firstPosition;  // delivered only once
      return told(*onlyDefault);
    }
    const std::vector<Piece>& values = m_selected->values;
    if (values.empty()) {
      const int position = nextPosition();
      return position != lastPosition ? "-@" + std::to_string(position) : "nothing";
    }
    while (m_value < values.size() && values[m_value].position < m_from)
      ++m_value;
    if (m_value >= values.size() || values[m_value].position > m_to)
      return "nothing";
    return told(values[m_value++]);
  }

  int nextPosition() {
    return m_selected != nullptr && m_occurrence < m_selected->positions.size()
               ? m_selected->positions[m_occurrence++]
               : lastPosition;
  }

  std::string last(const std::string& name, int from, int to) {
    std::string kept = "nothing";
    for (std::string value = get(name, from, to); value != "nothing"; value = next())
      kept = value;
    return kept;
  }

  std::string nextArgument(bool fromStart) {
    m_argument = fromStart ? 0 : m_argument;
    return m_argument < m_arguments.size() ? m_arguments[m_argument++].text : "nothing";
  }

 private:
  template <class List>
  static void append(const List& more, List& list) {
    list.insert(list.end(), more.begin(), more.end());
  }

  static std::string told(const Piece& piece) {
    return piece.text + "@" + std::to_string(piece.position);
  }

  // Selects the option. Returns whether it was given in the range or has only a default.
  bool select(const std::string& name, int from, int to) {
    const auto entry = m_entries.find(name);
    m_selected = entry != m_entries.end() ? &entry->second : nullptr;
    m_from = from;
    m_to = to;
    m_value = m_occurrence = 0;
    if (m_selected == nullptr || defaultOfSelected() != nullptr)
      return m_selected != nullptr;
    const std::vector<int>& given = m_selected->positions;
    while (m_occurrence < given.size() && (given[m_occurrence] < from || given[m_occurrence] >= to))
      ++m_occurrence;
    return m_occurrence < given.size();
  }

  // The default of the selected option if it was not given; null if it has none or an empty one.
  const Piece* defaultOfSelected() const {
    const std::optional<Piece>& standby = m_selected->standby;
    return m_selected->positions.empty() && standby && !standby->text.empty() ? &*standby : nullptr;
  }

  std::map<std::string, Entry> m_entries;
  std::vector<Piece> m_arguments;
  const Entry* m_selected = nullptr;
  int m_from = firstPosition;
  int m_to = lastPosition;
  std::size_t m_value = 0;
  std::size_t m_occurrence = 0;
  std::size_t m_argument = 0;
};

}  // namespace kivo_3_3::testing
