#pragma once

// A result in the plainest way: everything that is stored is written for each name
// separately, and each query is a walk over what is there.

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

  // The first name tells whether something is known of the option. What another option
  // has stored under one of the names is overwritten if there is not.
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

  // Each name has a position of its own, counted from `position` on.
  void applyDefault(const Names& names, const std::string& text, int position) {
    for (const std::string& name : names)
      m_entries[name].standby = Piece{text, position++};
  }

  void addArgument(const std::string& text, int position) {
    m_arguments.push_back({text, position});
  }

  const std::map<std::string, Entry>& entries() const { return m_entries; }

  // Values are told as "text@position", "-@position" for an occurrence without a value.
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
      m_from = firstPosition;  // once is enough
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

  // Whether the option was given in the range or has nothing but a default.
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

  // The default of an option that was not given, null for none and for an empty one.
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
