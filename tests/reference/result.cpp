#include "reference/result.h"

#include <exception>

#include "bedrock/assertion.h"
#include "reference/conversion.h"
#include "reference/positions.h"
#include "reference/running_calls.h"

namespace kivo_3_3::reference {

void Result::destroy() {
  if (isInUse(*this))
    BEDROCK::assertion_failed("!RunningCall::isInUse(*this)", __FILE__, __LINE__);
  else
    delete this;
}

// Occurrences accumulate in the order in which they are stored, in the records of all names of the
// option. If the first name has no record yet, the records of all names are overwritten, even a
// record that another option with a shared name has filled.
void Result::store(const Option& option, const OptionData& data) {
  if (m_options.count(option.firstName()) == 0) {
    for (const std::string& name : option.names)
      m_options[name] = data;
    return;
  }
  for (const std::string& name : option.names) {
    OptionData& stored = m_options[name];
    stored.positions.insert(stored.positions.end(), data.positions.begin(), data.positions.end());
    stored.values.insert(stored.values.end(), data.values.begin(), data.values.end());
  }
}

// What was stored before a failure stays. An option with a default and without names raises
// std::out_of_range.
void Result::applyDefaults(const Options& options) {
  for (std::size_t declared = 0; declared < options.size(); ++declared) {
    const Option option = options[declared];
    if (option.defaultsTo.type() == vtNull || !option.hasDefault)
      continue;
    std::size_t index = 0;
    do
      applyDefault(option, option.names.at(index));
    while (++index < option.names.size());
  }
}

// The record is created first, so it exists even if the conversion or the draw fails.
void Result::applyDefault(const Option& option, const std::string& name) {
  OptionData& stored = m_options[name];
  const std::string text = option.defaultAsText();
  const int position = drawPosition();
  stored.defaultValue = {text, option.defaultsTo, position};
}

void Result::addArgument(const std::string& argument, int position) {
  m_arguments.emplace_back(argument, position);
}

std::size_t Result::countValues(const std::string& name) const {
  const auto stored = m_options.find(name);
  return stored != m_options.end() ? stored->second.values.size() : 0;
}

// Selects the option, and its first occurrence from `from` up to, not including, `to`. A default is
// in every range. Returns false if there is neither.
bool Result::select(const char* name, int from, int to) {
  m_cursor = Cursor();
  m_cursor.from = from;
  m_cursor.to = to;
  if (name == nullptr)
    return false;
  const auto found = m_options.find(name);
  if (found == m_options.end())
    return false;
  const OptionData& option = found->second;
  m_cursor.option = &option;
  if (option.isDefaultOnly())
    return true;
  std::size_t& at = m_cursor.position;
  while (at < option.positions.size() &&
         (option.positions[at] < from || option.positions[at] >= to))
    ++at;
  return at < option.positions.size();
}

// The first value of the option just selected.
bool Result::deliverFirst(Value& value) {
  if (!m_cursor.option->isDefaultOnly())
    return deliverNext(value);
  value = handOut(m_cursor.option->defaultValue);
  return true;
}

bool Result::deliverNext(Value& value) {
  if (m_cursor.option == nullptr)
    return false;
  if (!m_cursor.option->isDefaultOnly())
    return m_cursor.option->values.empty() ? deliverNextOccurrence(value)
                                           : deliverNextStored(value);
  // present() marks a default that was not delivered yet by this range. Delivering it resets the
  // range.
  if (m_cursor.from != lastPosition || m_cursor.to != lastPosition)
    return false;
  value = handOut(m_cursor.option->defaultValue);
  m_cursor.from = firstPosition;
  m_cursor.to = lastPosition;
  return true;
}

// Here the upper bound is inclusive, unlike in select(); tools depend on both.
bool Result::deliverNextStored(Value& value) {
  const std::vector<StoredValue>& values = m_cursor.option->values;
  while (m_cursor.value < values.size() && values[m_cursor.value].position < m_cursor.from)
    ++m_cursor.value;
  if (m_cursor.value >= values.size() || values[m_cursor.value].position > m_cursor.to)
    return false;
  value = handOut(values[m_cursor.value]);
  ++m_cursor.value;
  return true;
}

// An option given without values delivers its occurrences. The range counts only in select().
bool Result::deliverNextOccurrence(Value& value) {
  const std::vector<int>& positions = m_cursor.option->positions;
  if (m_cursor.position >= positions.size())
    return false;
  value = Value(nullptr, variant_t(), positions[m_cursor.position]);
  ++m_cursor.position;
  return true;
}

Value Result::handOut(const StoredValue& stored) {
  return Value(m_garbage.init(stored.text), stored.value, stored.position);
}

bool Result::present(const char* name, int from, int to) {
  if (!select(name, from, to))
    return false;
  if (m_cursor.option->isDefaultOnly()) {
    m_cursor.from = lastPosition;
    m_cursor.to = lastPosition;
  }
  return true;
}

// A standard exception while the value is copied, such as std::bad_alloc, gives "no value".
Value Result::get(const char* name, int from, int to) {
  try {
    Value value;
    return select(name, from, to) && deliverFirst(value) ? value : Value();
  } catch (const std::exception&) {
    return Value();
  }
}

// The name is unused: next() continues with the option that was selected last.
Value Result::next(const char*) {
  try {
    Value value;
    return deliverNext(value) ? value : Value();
  } catch (const std::exception&) {
    return Value();
  }
}

// Advances the index that next() uses for an option without values. The range counts only in
// select().
int Result::nextPosition() {
  if (m_cursor.option == nullptr || m_cursor.position >= m_cursor.option->positions.size())
    return lastPosition;
  return m_cursor.option->positions[m_cursor.position++];
}

int Result::getFirstArgument(const char** text) {
  if (m_arguments.empty())
    return 1;
  m_argumentCursor = 0;
  return getNextArgument(text);
}

int Result::getNextArgument(const char** text) {
  if (m_argumentCursor >= m_arguments.size())
    return 1;
  const char* kept = m_garbage.init(m_arguments[m_argumentCursor].first);
  ++m_argumentCursor;
  if (text != nullptr)
    *text = kept;
  return 0;
}

Value getLastValue(IParseResult* result, const char* name, int from, int to) {
  Value last;
  if (result == nullptr || name == nullptr)
    return last;
  for (Value value = result->get(name, from, to); value.isEmpty == 0; value = result->next(name))
    last = value;
  return last;
}

}  // namespace kivo_3_3::reference
