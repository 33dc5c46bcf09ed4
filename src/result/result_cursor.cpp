#include "result/result_cursor.h"

#include <algorithm>
#include <string_view>

namespace kivo_3_3 {

namespace {

// Given nowhere, with a default that has a text: the one case in which a default shows.
bool isDefaultOnly(const OptionData& data) {
  return data.positions.empty() && !data.defaultValue.first.first.empty();
}

// The first element from `begin` on that `isBefore` is false for. An ordered list is not
// walked, so that each of many occurrences can be asked for what is its own.
template <class List, class IsBefore>
std::size_t skip(const List& list, std::size_t begin, bool isOrdered, IsBefore isBefore) {
  if (begin >= list.size() || !isBefore(list[begin]))
    return begin;
  const auto first = list.begin() + static_cast<std::ptrdiff_t>(begin);
  const auto found = isOrdered ? std::partition_point(first, list.end(), isBefore)
                               : std::find_if_not(first, list.end(), isBefore);
  return static_cast<std::size_t>(found - list.begin());
}

// The range is exclusive above, unlike that of values.
std::size_t firstOccurrence(const OptionData& data, int from, int to) {
  if (!data.isAscending)
    return skip(data.positions, 0, false,
                [&](int position) { return position < from || position >= to; });
  const std::size_t first =
      skip(data.positions, 0, true, [&](int position) { return position < from; });
  return first < data.positions.size() && data.positions[first] < to ? first
                                                                     : data.positions.size();
}

std::size_t firstValue(const OptionData& data, std::size_t begin, int from) {
  return skip(data.values, begin, data.isAscending,
              [&](const auto& value) { return value.second < from; });
}

}  // namespace

ResultCursor::ResultCursor(const OptionMap& options, Garbage& garbage)
    : m_options(options), m_garbage(garbage) {
  m_place.option = m_options.end();
}

int ResultCursor::get(const char* name, const char** text, variant_t& value, int from, int to,
                      int& position) {
  const auto selected = name != nullptr ? m_options.find(std::string_view(name)) : m_options.end();
  m_place = {0, 0, from, to, selected};
  if (m_place.option == m_options.end())
    return nothingLeft;
  const OptionData& data = m_place.option->second;
  if (isDefaultOnly(data))
    return deliver(data.defaultValue, text, value, position);

  m_place.position = firstOccurrence(data, from, to);
  if (m_place.position == data.positions.size())
    return nothingLeft;
  return text != nullptr ? next(text, value, position) : delivered;
}

int ResultCursor::next(const char** text, variant_t& value, int& position) {
  if (m_place.option == m_options.end())
    return nothingLeft;
  const OptionData& data = m_place.option->second;
  if (isDefaultOnly(data)) {
    // This range is how present() leaves a default that is still to be delivered.
    if (m_place.rangeFrom != lastPosition || m_place.rangeTo != lastPosition)
      return nothingLeft;
    m_place.rangeFrom = firstPosition;
    return deliver(data.defaultValue, text, value, position);
  }
  if (data.values.empty()) {
    position = nextPosition();
    return position != lastPosition ? delivered : nothingLeft;
  }
  m_place.value = firstValue(data, m_place.value, m_place.rangeFrom);
  // The entry may have become shorter: options can share a name, which one then takes over.
  if (m_place.value >= data.values.size() || data.values[m_place.value].second > m_place.rangeTo)
    return nothingLeft;
  return deliver(data.values[m_place.value++], text, value, position);
}

bool ResultCursor::present(const char* name, int from, int to) {
  variant_t value;
  int position = lastPosition;
  if (get(name, nullptr, value, from, to, position) != delivered)
    return false;
  if (isDefaultOnly(m_place.option->second)) {
    m_place.rangeFrom = lastPosition;
    m_place.rangeTo = lastPosition;
  }
  return true;
}

int ResultCursor::nextPosition() {
  if (m_place.option == m_options.end())
    return lastPosition;
  const std::vector<int>& positions = m_place.option->second.positions;
  return m_place.position < positions.size() ? positions[m_place.position++] : lastPosition;
}

int ResultCursor::deliver(const OptionData::PositionedValue& source, const char** text,
                          variant_t& value, int& position) const {
  if (text != nullptr)
    *text = m_garbage.init(source.first.first.c_str());
  value = source.first.second;
  position = source.second;
  return delivered;
}

}  // namespace kivo_3_3
