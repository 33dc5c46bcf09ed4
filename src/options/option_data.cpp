#include "options/option_data.h"

namespace kivo_3_3 {

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
