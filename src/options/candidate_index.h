#pragma once

// Finds a value among many that an option allows. If it disagreed with a walk over all of them, an
// option that allows many values would refuse some of them.

#include <kivo/value.h>

#include <cstddef>
#include <string_view>

#include "base/begins_with.h"
#include "options/option_description.h"

namespace kivo_3_3 {

// The text of `value`; the empty text for a value that is not a text.
inline const char* readAsText(const variant_t& value) {
  return value.can_get<const char*>() ? value.get<const char*>() : "";
}

// Finds out what begins with a text that was typed.
struct Completion {
  void consider(const variant_t& candidate) {
    const std::string_view whole = readAsText(candidate);
    if (beginsWith(whole, typed)) {
      ++count;
      last = whole;
    }
  }

  std::string_view typed;
  int count = 0;  // of the candidates that begin with `typed`
  std::string_view last = {};
};

// The candidates of an option, sorted: the values that it allows, and the deprecated ones. An
// option never loses one, so an index of as many as the option has is an index of them all.
class CandidateIndex {
 public:
  // Raises std::bad_alloc.
  [[gnu::cold]] explicit CandidateIndex(const OptionDescription& option);

  std::size_t size() const { return m_size; }

  // Whether a candidate equals `value`.
  bool has(const variant_t& value) const;

  // Considers every candidate that begins with what was typed.
  void complete(Completion& completion) const;

 private:
  void add(const variant_t& candidate, bool isSorted);

  std::size_t m_size = 0;
  // Those of the type that values of the option have, if values of that type can be sorted. The
  // second value is the same candidate if it was declared again.
  OptionDescription::Replacements m_sorted;
  // The others. A text that the tool may change is one of them.
  OptionDescription::Values m_others;
};

}  // namespace kivo_3_3
