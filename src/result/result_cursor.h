#pragma once

// The cursor of present(), get(), next() and nextPosition() of a result. Tools may interleave these
// calls with parses, so a cursor that lost its place would skip values or repeat them.

#include <kivo/value.h>

#include <optional>
#include <string_view>

#include "result/stored_options.h"
#include "storage/interned_texts.h"
#include "stratum2/text_pool.h"

namespace kivo_3_3 {

// Reads one option of a result at a time, value by value or occurrence by occurrence.
//
// The cursor stores indexes and no addresses, so it keeps its place when the data grows.
//
// Delivered texts are interned in `texts`. If memory runs out for one, the query raises
// std::bad_alloc and the cursor keeps its place.
class ResultCursor {
 public:
  ResultCursor(StoredOptions& options, InternedTexts& texts) : m_options(options), m_texts(texts) {}

  // Selects an option, or none if `name` is null, and returns its first value in the range or "no
  // value".
  Value get(const char* name, int from, int to);

  // The next value of the selected option in the selected range, or "no value".
  Value next();

  // Selects an option and returns whether it occurs in the range. A default occurs in every range,
  // and the following next() delivers it once.
  bool present(const char* name, int from, int to);

  // The position of the next occurrence of the selected option; lastPosition if there is none.
  int nextPosition();

  // The place of the cursor, to which returnTo() can move it back.
  struct Place {
    std::size_t value = 0;     // the index of the next value to check
    std::size_t position = 0;  // the index of the next position to check
    int rangeFrom = firstPosition;
    int rangeTo = lastPosition;
    std::optional<StoredOptions::Number> option;  // the selected option, if it was given
    HashedName defaultName;                       // the selected name, if it has only a default
  };
  const Place& place() const { return m_place; }
  void returnTo(const Place& place) { m_place = place; }

 private:
  // What a selection finds.
  enum class Found { nothing, occurrence, byDefault };

  Found select(const char* name, int from, int to);
  GivenOption* given();
  Value nextOf(GivenOption& option);
  void makeOwning(variant_t& value);
  Value defaultValue();

  Place m_place;
  StoredOptions& m_options;
  InternedTexts& m_texts;
  stratum2::text_pool_t m_typedTexts;
};

}  // namespace kivo_3_3
