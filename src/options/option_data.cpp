#include "options/option_data.h"

#include <algorithm>
#include <functional>

namespace kivo_3_3 {

namespace {

// A list that must move to grow is not left alone when copying into it fails, so it grows
// ahead of that.
template <class List>
void makeRoom(List& list, std::size_t more) {
  if (list.capacity() - list.size() < more)
    list.reserve(std::max(list.size() * 2, list.size() + more));
}

// Whether what stands at `place` and behind it ascends, and from what stands ahead of it.
template <class List, class Less>
bool ascendsFrom(std::size_t place, const List& list, Less less) {
  const std::size_t first = place != 0 ? place - 1 : 0;
  return std::is_sorted(list.begin() + static_cast<std::ptrdiff_t>(first), list.end(), less);
}

bool isEarlier(const OptionData::PositionedValue& left, const OptionData::PositionedValue& right) {
  return left.second < right.second;
}

}  // namespace

void OptionData::append(const OptionData& more) {
  const std::size_t positionsBefore = positions.size();
  const std::size_t valuesBefore = values.size();
  makeRoom(positions, more.positions.size());
  makeRoom(values, more.values.size());
  values.insert(values.end(), more.values.begin(), more.values.end());
  positions.insert(positions.end(), more.positions.begin(), more.positions.end());
  isAscending = isAscending && ascendsFrom(positionsBefore, positions, std::less<>()) &&
                ascendsFrom(valuesBefore, values, isEarlier);
}

void OptionData::takeBack(const OptionData& appended) {
  positions.resize(positions.size() - appended.positions.size());
  values.resize(values.size() - appended.values.size());
}

}  // namespace kivo_3_3
