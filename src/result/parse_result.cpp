#include "result/parse_result.h"

#include <utility>

#include "base/running_call.h"
#include "bedrock/assertion.h"
#include "recognizers/argument_parser.h"

namespace kivo_3_3 {

using std::string;

IParseResult::~IParseResult() = default;

// Ended from a handler, it would be missing when the parse goes on.
void ParseResult::destroy() {
  if (RunningCall::isInUse(*this))
    BEDROCK::assertion_failed("!RunningCall::isInUse(*this)", __FILE__, __LINE__);
  else
    delete this;
}

bool ParseResult::present(const char* name, int from, int to) {
  return m_cursor.present(name, from, to);
}

Value ParseResult::get(const char* name, int from, int to) {
  const char* text = nullptr;
  variant_t value;
  int position = lastPosition;
  const int status = m_cursor.get(name, &text, value, from, to, position);
  return status == ResultCursor::delivered ? Value(text, value, position) : Value();
}

Value ParseResult::next(const char*) {
  const char* text = nullptr;
  variant_t value;
  int position = lastPosition;
  const int status = m_cursor.next(&text, value, position);
  return status == ResultCursor::delivered ? Value(text, value, position) : Value();
}

int ParseResult::nextPosition() { return m_cursor.nextPosition(); }

int ParseResult::getFirstArgument(const char** text) {
  m_argumentCursor = 0;
  return getNextArgument(text);
}

int ParseResult::getNextArgument(const char** text) {
  if (m_argumentCursor == m_arguments.size())
    return 1;
  const char* kept = m_garbage.init(m_arguments[m_argumentCursor].first.c_str());
  ++m_argumentCursor;
  if (text != nullptr)
    *text = kept;
  return 0;
}

int ParseResult::getFirstArgument(string& text) {
  m_argumentCursor = 0;
  return getNextArgument(text);
}

int ParseResult::getNextArgument(string& text) {
  const char* kept = nullptr;
  if (getNextArgument(&kept) != 0)
    return 1;
  text = kept;
  return 0;
}

// Under all names of the option or, when memory runs out, under none.
void ParseResult::store(const OptionDescription& option, const OptionData& data) {
  if (m_options.find(option.firstName()) == m_options.end())
    storeFirst(option.m_names, data);
  else
    storeAgain(option.m_names, data);
}

void ParseResult::storeFirst(const std::vector<string>& names, const OptionData& data) {
  OptionData first;
  first.defaultValue = data.defaultValue;
  first.append(data);
  OptionMap entries;
  for (const string& name : names)
    entries[name] = first;
  for (auto& [name, entry] : entries) {
    const auto shared = m_options.find(name);  // another option has this name too
    if (shared != m_options.end())
      shared->second = std::move(entry);
  }
  m_options.merge(entries);
}

void ParseResult::storeAgain(const std::vector<string>& names, const OptionData& data) {
  auto name = names.begin();
  try {
    for (; name != names.end(); ++name)
      m_options[*name].append(data);
  } catch (...) {
    while (name != names.begin())
      m_options.find(*--name)->second.takeBack(data);
    throw;
  }
}

// A default without a name to go under is out of range.
void ParseResult::applyDefault(const OptionDescription& option) {
  if (!option.m_hasDefault || option.m_defaultValue.type() == vtNull)
    return;
  OptionMap entries;
  std::size_t index = 0;
  do {
    OptionData& entry = entries[option.m_names.at(index)];
    const char* text = option.toString(option.m_garbage, option.m_defaultValue);
    const int position = IArgumentParser::getNewPositionIndex();
    entry.defaultValue = {{text != nullptr ? text : "", option.m_defaultValue}, position};
  } while (++index < option.m_names.size());

  for (auto& [name, entry] : entries) {
    const auto known = m_options.find(name);
    if (known != m_options.end())
      known->second.defaultValue = std::move(entry.defaultValue);
  }
  m_options.merge(entries);
}

void ParseResult::addArgument(const string& text, int position) {
  m_arguments.emplace_back(text, position);
}

Value getLastValue(IParseResult* result, const char* name, int from, int to) {
  Value last;
  if (result == nullptr || name == nullptr)
    return last;
  for (Value value = result->get(name, from, to); value.isEmpty == 0; value = result->next(name))
    last = value;
  return last;
}

}  // namespace kivo_3_3
