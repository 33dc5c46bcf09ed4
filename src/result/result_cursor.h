#pragma once

#include <functional>
#include <map>
#include <string>

#include "base/garbage.h"
#include "options/option_data.h"

namespace kivo_3_3 {

// What a result holds: one entry for each name of each option, those of one option alike.
using OptionMap = std::map<std::string, OptionData, std::less<>>;

// Reads one option of a result at a time, value by value or occurrence by occurrence.
//
// The cursor counts and keeps no address into a vector, so it stays where it is when
// the entry under it grows.
class ResultCursor {
 public:
  // Status of a delivery.
  static constexpr int delivered = 0;
  static constexpr int nothingLeft = 1;

  // Delivered texts are kept in `garbage`.
  ResultCursor(const OptionMap& options, Garbage& garbage);

  // Selects an option; null selects none. Without `text` that is all, and the answer is whether it
  // occurs in the range; with it, its first value in the range is delivered.
  int get(const char* name, const char** text, variant_t& value, int from, int to, int& position);

  // Delivers the next value of the selected option.
  int next(const char** text, variant_t& value, int& position);

  // Selects an option and answers whether it occurs in the range; a default does in
  // every range, and the next() that follows delivers it once.
  bool present(const char* name, int from, int to);

  // The next occurrence of the selected option, lastPosition when there is none.
  int nextPosition();

  // Where the cursor stands, for going back there.
  struct Place {
    std::size_t value = 0;     // the next one to look at, in the values of the option
    std::size_t position = 0;  // the next one to look at, in its positions
    int rangeFrom = firstPosition;
    int rangeTo = lastPosition;
    OptionMap::const_iterator option;  // the selected one, or the map's end
  };
  const Place& place() const { return m_place; }
  void returnTo(const Place& place) { m_place = place; }

 private:
  int deliver(const OptionData::PositionedValue& source, const char** text, variant_t& value,
              int& position) const;

  Place m_place;
  const OptionMap& m_options;
  Garbage& m_garbage;
};

}  // namespace kivo_3_3
