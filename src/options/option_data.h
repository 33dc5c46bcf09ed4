#pragma once

#include <kivo/value.h>

#include <algorithm>
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
  void append(const OptionData& more) {
    makeRoom(positions, more.positions.size());
    makeRoom(values, more.values.size());
    values.insert(values.end(), more.values.begin(), more.values.end());
    positions.insert(positions.end(), more.positions.begin(), more.positions.end());
  }
  // Undoes the append() made last.
  void takeBack(const OptionData& appended) {
    positions.resize(positions.size() - appended.positions.size());
    values.resize(values.size() - appended.values.size());
  }

  std::vector<int> positions;  // one for each occurrence
  std::vector<PositionedValue> values;
  PositionedValue defaultValue;  // empty text and vtNull where no default was applied

 private:
  // A vector that must move to grow is not left alone when copying into it fails, so it
  // grows ahead of that.
  template <class T>
  static void makeRoom(std::vector<T>& list, std::size_t more) {
    if (list.capacity() - list.size() < more)
      list.reserve(std::max(list.size() * 2, list.size() + more));
  }
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
