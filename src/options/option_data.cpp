#include "options/option_data.h"

#include <algorithm>

namespace kivo_3_3 {

namespace {

template <class List>
void makeRoom(List& list, std::size_t more) {
  if (list.capacity() - list.size() < more)
    list.reserve(std::max(list.size() * 2, list.size() + more));
}

}  // namespace

void OptionData::makeRoomFor(const OptionData& occurrence, std::size_t times) {
  makeRoom(positions, occurrence.positions.size() * times);
  makeRoom(values, occurrence.values.size() * times);
}

void OptionData::append(const OptionData& occurrence) noexcept {
  for (const int position : occurrence.positions) {
    isAscending = isAscending && (positions.empty() || positions.back() <= position);
    positions.push_back(position);
  }
  for (const GivenValue& value : occurrence.values) {
    isAscending = isAscending && (values.empty() || values.back().position <= value.position);
    values.push_back(value);
  }
}

void OptionData::clear() noexcept {
  positions.clear();
  values.clear();
}

}  // namespace kivo_3_3
