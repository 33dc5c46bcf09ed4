#pragma once

#include <kivo/value.h>

#include <optional>
#include <string_view>

#include "result/stored_options.h"
#include "storage/interned_texts.h"
#include "stratum2/text_pool.h"

namespace kivo_3_3 {

// Reads one option of a result at a time, value by value or occurrence by occurrence.
//
// The cursor counts and keeps no address of what it reads, so it stays where it is when
// the data under it grows.
//
// What a query delivers is interned in `texts`. When memory runs out for that, the query raises
// std::bad_alloc and stays where it is.
class ResultCursor {
 public:
  ResultCursor(StoredOptions& options, InternedTexts& texts) : m_options(options), m_texts(texts) {}

  // Selects an option; null selects none. Its first value in the range, if any.
  Value get(const char* name, int from, int to);

  // The next value of the selected option.
  Value next();

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
    std::optional<StoredOptions::Number> option;  // the selected one, if something was given
    HashedName defaultName;                       // its name, if it has a default
  };
  const Place& place() const { return m_place; }
  void returnTo(const Place& place) { m_place = place; }

 private:
  // What a selection comes upon.
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
