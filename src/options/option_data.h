#pragma once

#include <kivo/value.h>

#include <string>
#include <utility>
#include <vector>

namespace kivo_3_3 {

class OptionDescription;

// What was parsed for one option, in the order it was met.
struct OptionData {
  // A value's text and typed value, then its position.
  using PositionedValue = std::pair<std::pair<std::string, variant_t>, int>;

  // Puts the occurrences of `more` behind those here or, when memory runs out, leaves all
  // as it is.
  void append(const OptionData& more);
  // Undoes the append() made last.
  void takeBack(const OptionData& appended);

  std::vector<int> positions;  // one for each occurrence
  std::vector<PositionedValue> values;
  PositionedValue defaultValue;  // empty text and vtNull where no default was applied
  // Whether positions and values both ascend. They do unless one parse stored into the
  // result in the midst of another, or the counter has wrapped.
  bool isAscending = true;
};

// Where recognizers hand over what they have bound.
class IResultCollector {
 public:
  // Records one occurrence of `option`.
  virtual void store(const OptionDescription& option, const OptionData& data) = 0;

 protected:
  ~IResultCollector() = default;
};

}  // namespace kivo_3_3
