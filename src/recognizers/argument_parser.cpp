// Implements what all recognizers share: the position counter, and the binding of a value to an
// option. To bind a value is to split it into tokens, to convert, check and announce each token,
// and to store the occurrence.
//
// An occurrence is stored only after every token has been accepted. If a token is refused, the
// events that were sent and the positions that were drawn before are not taken back.

#include "recognizers/argument_parser.h"

#include <bedrock/single_thread.h>
#include <kivo/status.h>

#include <algorithm>
#include <utility>

#include "base/quoted.h"

namespace kivo_3_3 {

using std::string;

// A value that is being bound, and what checks and messages need.
struct IArgumentParser::Binding {
  std::string_view value;  // not split
  const OptionDescription& option;
  std::string_view argument;  // the argument being parsed, for messages
  bool isSplit;
  string& error;
};

namespace {

[[gnu::cold]] string validationProblem(std::string_view argument, const string& reason) {
  return joined("Value validation problem in argument '", argument, "': ", reason);
}

[[gnu::cold]] string isNotValid(std::string_view value, const OptionDescription& option,
                                std::string_view argument) {
  return joined("Value '", value, "' is not valid for option '", option.firstName(),
                "' in argument '", argument, "'");
}

// Sets `counter`, which should be `expected`, to `next`. If another thread has changed the counter,
// sets `expected` to the present number and returns false.
bool advance(int& counter, int& expected, int next) {
  if (BEDROCK::hasOneThread()) {
    counter = next;
    return true;
  }
  return __atomic_compare_exchange_n(&counter, &expected, next, true, __ATOMIC_RELAXED,
                                     __ATOMIC_RELAXED);
}

// Whether `number` can be drawn. Negative numbers cannot: the counter is exported, so it may be set
// to any number.
bool isPosition(int number) {
  return static_cast<unsigned int>(number) < static_cast<unsigned int>(lastPosition);
}

// Draws `count` positions and sets `first` to the first of them; false if fewer are left.
inline bool draw(int& counter, unsigned int count, int& first) {
  first = __atomic_load_n(&counter, __ATOMIC_RELAXED);
  do {
    if (!isPosition(first) || count > static_cast<unsigned int>(lastPosition - first))
      return false;
  } while (!advance(counter, first, first + static_cast<int>(count)));
  return true;
}

// The message says "argument" but shows the whole value, as the user typed it.
[[gnu::cold]] string noValueParsed(std::string_view value, const OptionDescription& option) {
  return joined("No value parsed in argument '", value, "' for option '", option.firstName(), "'");
}

}  // namespace

int IArgumentParser::m_idx = 1;

int IArgumentParser::getNewPositionIndex() {
  int position = 0;
  if (!draw(m_idx, 1, position))
    throw PositionsExhausted();
  return position;
}

std::optional<int> IArgumentParser::drawInARow(unsigned int count) {
  int first = 0;
  return draw(m_idx, count, first) ? std::make_optional(first) : std::nullopt;
}

IArgumentParser::IArgumentParser(EventHandler* handler, OwnedMemory* texts, int flags)
    : m_handler(handler), m_flags(flags), m_texts(texts) {}

string IArgumentParser::formatTokenMessage(std::string_view token) const {
  return joined(" in argument: '", token, "'");
}

void IArgumentParser::removeFront(ArgumentWindow& args) const {
  const std::string_view argument = args.front();
  trace(": removing argument: '", argument, "'");
  args.drop();
}

int IArgumentParser::fail(string& error, string message) const {
  error = std::move(message);
  trace(": ", error);
  return status::usageError;
}

const OptionDescription& IArgumentParser::copied(const OptionDescription& option) {
  if (m_copyOf != &option || m_copy->m_changes != option.m_changes) {
    m_copyOf = nullptr;  // if memory runs out for the copy, there is none
    m_copy.emplace(option);
    m_copyOf = &option;
  }
  return *m_copy;
}

void IArgumentParser::announce(const OptionDescription& option) const {
  if (m_handler != nullptr)
    m_handler->onOptionParse(option.firstName().data());
}

int IArgumentParser::parseValueAndAddOption(std::string_view value, string& error,
                                            const OptionDescription& option,
                                            const ArgumentWindow& args,
                                            IResultCollector* collector) {
  m_data.positions.clear();
  m_data.values.clear();
  m_data.positions.push_back(getNewPositionIndex());
  if (!value.empty()) {
    trace(": adding values to result container:");
    const int bound = bindTokens({value, option, args.front(), option.m_tokenizer != '\0', error});
    if (bound != status::success)
      return bound;
  }
  if (collector != nullptr)
    collector->store(option, m_data);
  trace(": stored option to result container.");
  return status::success;
}

// A zero-terminated copy of `text`. It belongs to the result; without a result, it is valid until
// the next call.
std::string_view IArgumentParser::kept(std::string_view text) {
  return m_texts != nullptr ? m_texts->copy(text) : m_unstored.assign(text);
}

int IArgumentParser::bindTokens(const Binding& binding) {
  if (!binding.isSplit) {
    trace(": not using tokenizer");
    std::string_view value = kept(binding.value);
    return bindOne(value, binding);
  }
  const char separator = binding.option.m_tokenizer;
  trace(": using tokenizer on char: '", std::string_view(&separator, 1), "'");
  return bindEachToken(separator, binding);
}

// Empty tokens are skipped: separators may come first, last, or several in a row.
int IArgumentParser::bindEachToken(char separator, const Binding& binding) {
  bool isAnyBound = false;
  for (std::string_view rest = binding.value; !rest.empty();) {
    const std::size_t length = std::min(rest.find(separator), rest.size());
    if (length != 0) {
      const int bound = bindToken(kept(rest.substr(0, length)), binding);
      if (bound != status::success)
        return bound;
      isAnyBound = true;
    }
    rest.remove_prefix(std::min(length + 1, rest.size()));
  }
  return isAnyBound ? status::success
                    : fail(binding.error, noValueParsed(binding.value, binding.option));
}

int IArgumentParser::bindToken(std::string_view token, const Binding& binding) {
  trace(": value is: '", token, "'");
  const int bound = bindOne(token, binding);
  if (bound != status::success)
    return bound;
  const std::string_view firstName = binding.option.firstName();  // raises without a name
  trace(": sent event on value parsed, option: '", firstName, "', value: '", token, "'");
  return status::success;
}

// `token` must be a copy made by kept(). An abbreviation is replaced by the allowed value that it
// means; that text belongs to the option, so it is copied too.
int IArgumentParser::bindOne(std::string_view& token, const Binding& binding) {
  const OptionDescription& option = binding.option;
  const char* const typed = token.data();
  variant_t value;
  const bool isClassic = option.m_type == vtString || whiteSpace().isClassic();
  if (!option.validate(token, value, isClassic, binding.error))
    return fail(binding.error, validationProblem(binding.argument, binding.error));
  if (!option.m_deprecatedValues.empty())
    m_whiteSpace.reset();  // a warning may have been written
  if (token.data() != typed) {
    token = kept(token);
    value = variant_t(token.data(), true);
  }

  const int position = getNewPositionIndex();
  if (isRefused(token, value, position, option)) {
    binding.error = isNotValid(binding.isSplit ? binding.value : token, option, binding.argument);
    // Joined without a separator since 3.0; tools depend on it.
    trace(binding.error, " One of the handler signaled the value is not valid.");
    return status::valueRefused;
  }
  m_data.values.push_back({token.data(), std::move(value), position});
  return status::success;
}

bool IArgumentParser::isRefused(std::string_view token, variant_t& value, int position,
                                const OptionDescription& option) const {
  if (m_handler == nullptr)
    return false;
  makeOwning(value);
  return !m_handler->onValueParse(option.firstName().data(), {token.data(), value, position});
}

}  // namespace kivo_3_3
