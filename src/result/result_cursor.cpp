// An answer depends on the range, on the cursor's place, and on whether the option was given or has
// only a default.

#include "result/result_cursor.h"

namespace kivo_3_3 {

namespace {

// The index of the first element from `begin` on for which `isBefore` is false; the size of the
// list if there is none. An ordered list is bisected: a linear search for the values of each of n
// occurrences would take O(n * n) time.
template <class List, class IsBefore>
std::size_t skip(const List& list, std::size_t begin, bool isOrdered, IsBefore isBefore) {
  std::size_t end = list.size();
  while (begin < end && isBefore(list[begin])) {
    const std::size_t middle = isOrdered ? begin + (end - begin) / 2 : begin;
    if (isBefore(list[middle]))
      begin = middle + 1;
    else
      end = middle;
  }
  return begin;
}

// The upper bound `to` is exclusive here; for values it is inclusive.
std::size_t firstOccurrence(const GivenOption& data, int from, int to) {
  if (!data.isAscending)
    return skip(data.positions, 0, false,
                [&](int position) { return position < from || position >= to; });
  const std::size_t first =
      skip(data.positions, 0, true, [&](int position) { return position < from; });
  return first < data.positions.size() && data.positions[first] < to ? first
                                                                     : data.positions.size();
}

std::size_t firstValue(const GivenOption& data, std::size_t begin, int from) {
  return skip(data.values, begin, data.isAscending,
              [&](const auto& value) { return value.position < from; });
}

}  // namespace

Value ResultCursor::get(const char* name, int from, int to) {
  const Found found = select(name, from, to);
  if (found == Found::byDefault)
    return defaultValue();
  return found == Found::occurrence ? next() : Value();
}

Value ResultCursor::next() {
  GivenOption* const data = given();
  if (data == nullptr) {
    // present() sets this range to mark a default that next() still has to deliver.
    if (m_place.rangeFrom != lastPosition || m_place.rangeTo != lastPosition)
      return {};
    Value value = defaultValue();
    if (value.isEmpty == 0)
      m_place.rangeFrom = firstPosition;
    return value;
  }
  if (data->values.empty()) {
    const int position = nextPosition();
    return position != lastPosition ? Value(nullptr, variant_t(), position) : Value();
  }
  return nextOf(*data);
}

Value ResultCursor::nextOf(GivenOption& option) {
  m_place.value = firstValue(option, m_place.value, m_place.rangeFrom);
  // The list may have become shorter: storing another option with this name may have replaced it.
  if (m_place.value >= option.values.size())
    return {};
  GivenValue& value = option.values[m_place.value];
  if (value.position > m_place.rangeTo)
    return {};
  const char* const text = m_texts.intern(value.text, option.values.size() - m_place.value - 1);
  makeOwning(value.value);
  if (option.values.size() - ++m_place.value > InternedTexts::prefetchDistance)
    m_texts.prefetch(option.values[m_place.value + InternedTexts::prefetchDistance].text);
  return {text, value.value, value.position};
}

// A value that is a text gets its own characters when it is delivered for the first time, and all
// later deliveries share them.
void ResultCursor::makeOwning(variant_t& value) {
  if (value.type() == stratum2::vtStringReference)
    value = m_typedTexts.make(value.get<const char*>());
}

bool ResultCursor::present(const char* name, int from, int to) {
  const Found found = select(name, from, to);
  if (found == Found::byDefault) {
    m_place.rangeFrom = lastPosition;
    m_place.rangeTo = lastPosition;
  }
  return found != Found::nothing;
}

int ResultCursor::nextPosition() {
  const GivenOption* const data = given();
  return data != nullptr && m_place.position < data->positions.size()
             ? data->positions[m_place.position++]
             : lastPosition;
}

// A default is found only if nothing was given under the name and the default has a text.
ResultCursor::Found ResultCursor::select(const char* name, int from, int to) {
  m_place = {0, 0, from, to, std::nullopt, {}};
  if (name == nullptr)
    return Found::nothing;
  const HashedName wanted(name);
  m_place.option = m_options.find(wanted);
  if (!m_place.option) {
    const auto found = m_options.findDefault(wanted);
    if (found)
      m_place.defaultName = found->name;
    return found && *found->text != '\0' ? Found::byDefault : Found::nothing;
  }
  const GivenOption& data = m_options.given(*m_place.option);
  m_place.position = firstOccurrence(data, from, to);
  return m_place.position < data.positions.size() ? Found::occurrence : Found::nothing;
}

// What was given for the selected option; null if nothing was. An option that had only a default
// when it was selected is looked up again: it may have been given since then.
GivenOption* ResultCursor::given() {
  if (!m_place.option && m_place.defaultName.text.data() != nullptr)
    m_place.option = m_options.find(m_place.defaultName);
  return m_place.option ? &m_options.given(*m_place.option) : nullptr;
}

Value ResultCursor::defaultValue() {
  if (m_place.defaultName.text.data() == nullptr)
    return {};
  const auto found = m_options.findDefault(m_place.defaultName);
  if (!found || *found->text == '\0')
    return {};
  return {m_texts.internCopy(found->text), *found->value, found->position};
}

}  // namespace kivo_3_3
