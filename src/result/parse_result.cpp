// Queries raise no exception into the tool: if memory runs out, they answer "no value" or the empty
// text.

#include "result/parse_result.h"

#include <algorithm>
#include <exception>
#include <utility>

#include "base/running_call.h"
#include "bedrock/assertion.h"

namespace kivo_3_3 {

IParseResult::~IParseResult() = default;

// A handler must not destroy the result that a parse still stores into.
void ParseResult::destroy() {
  if (RunningCall::isInUse(*this))
    BEDROCK::assertion_failed("!RunningCall::isInUse(*this)", __FILE__, __LINE__);
  else
    delete this;
}

bool ParseResult::present(const char* name, int from, int to) {
  return m_cursor.present(name, from, to);
}

// If memory runs out for a value, the answer is "no value".
Value ParseResult::get(const char* name, int from, int to) {
  try {
    return m_cursor.get(name, from, to);
  } catch (const std::exception&) {
    return {};
  }
}

Value ParseResult::next(const char*) {
  try {
    return m_cursor.next();
  } catch (const std::exception&) {
    return {};
  }
}

int ParseResult::nextPosition() { return m_cursor.nextPosition(); }

int ParseResult::getFirstArgument(const char** text) {
  m_argumentCursor = 0;
  return getNextArgument(text);
}

int ParseResult::getNextArgument(const char** text) {
  if (m_argumentCursor == m_arguments.size())
    return 1;
  const Argument& argument = m_arguments[m_argumentCursor++];
  if (text != nullptr)
    *text = delivered(argument.text);
  return 0;
}

// The interned text; the empty text if memory runs out.
const char* ParseResult::delivered(const char* text) {
  try {
    return m_delivered.intern(text, m_arguments.size() - m_argumentCursor);
  } catch (const std::exception&) {
    return "";
  }
}

void ParseResult::store(const OptionDescription& option, const OptionData& data) {
  m_options.store(option.m_names, data, option.m_identity);
}

void ParseResult::addArgument(std::string_view text, int position) {
  m_arguments.push_back({m_memory.copy(text).data(), position});
}

void ParseResult::holdDeclarations(const std::shared_ptr<const Garbage>& declarations) {
  if (std::find(m_declarations.begin(), m_declarations.end(), declarations) == m_declarations.end())
    m_declarations.push_back(declarations);
}

Value getLastValue(IParseResult* result, const char* name, int from, int to) {
  if (result == nullptr || name == nullptr)
    return {};
  Value last = result->get(name, from, to);
  if (last.isEmpty != 0)
    last = Value();
  while (last.isEmpty == 0) {
    Value behind = result->next(name);
    if (behind.isEmpty != 0)
      break;
    last = std::move(behind);
  }
  return last;
}

}  // namespace kivo_3_3
