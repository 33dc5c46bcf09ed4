// What all recognizers share: the position counter, and binding one value text to an
// option: split, convert, check, announce, store.
//
// Nothing is stored until every token has passed; announcements already made and
// positions already drawn are not taken back.

#include "recognizers/argument_parser.h"

#include <kivo/status.h>

#include <algorithm>
#include <cstring>

#include "base/quoted.h"

namespace kivo_3_3 {

using std::string;

// One value on its way into an option.
struct IArgumentParser::Binding {
  std::string_view value;  // as found for the option, all tokens of it
  const OptionDescription& option;
  std::string_view argument;  // the one being parsed, for messages
  bool isSplit;
  string& error;
};

namespace {

const char* skipZeros(const char* begin, const char* end) {
  return std::find_if(begin, end, [](char character) { return character != '\0'; });
}

[[gnu::cold]] string validationProblem(std::string_view argument, const string& reason) {
  return joined("Value validation problem in argument '", argument, "': ", reason);
}

[[gnu::cold]] string isNotValid(std::string_view value, const OptionDescription& option,
                                std::string_view argument) {
  return joined("Value '", value, "' is not valid for option '", option.firstName(),
                "' in argument '", argument, "'");
}

// The whole value stands where an argument is announced: it is what the user typed.
[[gnu::cold]] string noValueParsed(std::string_view value, const OptionDescription& option) {
  return joined("No value parsed in argument '", value, "' for option '", option.firstName(), "'");
}

}  // namespace

int IArgumentParser::m_idx = 1;

int IArgumentParser::getNewPositionIndex() {
  const int position = m_idx;
  m_idx = static_cast<int>(static_cast<unsigned int>(position) + 1U);
  return position;
}

IArgumentParser::IArgumentParser(EventHandler& handler, Garbage& garbage, int flags)
    : m_handler(&handler), m_garbage(&garbage), m_flags(flags) {}

string IArgumentParser::formatTokenMessage(std::string_view token) const {
  return joined(" in argument: '", token, "'");
}

int IArgumentParser::fail(string& error, string message) const {
  error = std::move(message);
  trace(": ", error);
  return status::usageError;
}

int IArgumentParser::parseValueAndAddOption(std::string_view value, string& error,
                                            const OptionDescription& option,
                                            const ArgumentWindow& args,
                                            IResultCollector* collector) {
  m_data.clear();
  m_data.positions.push_back(getNewPositionIndex());
  if (!value.empty()) {
    trace(": adding values to result container:");
    m_value.assign(value);
    const int bound = bindTokens({value, option, args.front(), option.m_tokenizer != '\0', error});
    if (bound != status::success)
      return bound;
  }
  if (collector != nullptr)
    collector->store(option, m_data);
  trace(": stored option to result container.");
  return status::success;
}

int IArgumentParser::bindTokens(const Binding& binding) {
  if (!binding.isSplit) {
    trace(": not using tokenizer");
    return bindOne(m_value, m_value.c_str(), binding);
  }
  const char separator = binding.option.m_tokenizer;
  trace(": using tokenizer on char: '", std::string_view(&separator, 1), "'");
  if (binding.value.find(separator) == std::string_view::npos)
    return bindToken(m_value, m_value.c_str(), binding);
  return bindEachToken(separator, binding);
}

// Separators that lead, trail or repeat make no empty token. A zero takes the place of
// each, so that the tokens are texts as they stand.
int IArgumentParser::bindEachToken(char separator, const Binding& binding) {
  std::replace(m_value.begin(), m_value.end(), separator, '\0');
  const char* const end = m_value.c_str() + m_value.size();
  const char* text = skipZeros(m_value.c_str(), end);
  if (text == end)
    return fail(binding.error, noValueParsed(binding.value, binding.option));
  while (text != end) {
    m_token = text;
    const char* const behind = text + m_token.size();
    const int bound = bindToken(m_token, text, binding);
    if (bound != status::success)
      return bound;
    text = skipZeros(behind, end);
  }
  return status::success;
}

int IArgumentParser::bindToken(string& token, const char* text, const Binding& binding) {
  trace(": value is: '", token, "'");
  const int bound = bindOne(token, text, binding);
  if (bound == status::success)
    trace(": sent event on value parsed, option: '", binding.option.firstName(), "', value: '",
          token, "'");
  return bound;
}

// `text` is that of the token, where it stays until the value is stored. A typed value that is
// a text has it inside, completed.
int IArgumentParser::bindOne(string& token, const char* text, const Binding& binding) {
  const OptionDescription& option = binding.option;
  Value value(nullptr, variant_t(), 0);
  if (!option.validate(token, value.value, binding.error))
    return fail(binding.error, validationProblem(binding.argument, binding.error));

  value.text = token.c_str();
  value.position = getNewPositionIndex();
  if (!m_handler->onValueParse(option.firstName().data(), value)) {
    binding.error = isNotValid(binding.isSplit ? binding.value : token, option, binding.argument);
    // No separator here: the lines have always run together.
    trace(binding.error, " One of the handler signaled the value is not valid.");
    return status::valueRefused;
  }
  const bool isText = value.value.can_get<const char*>();
  m_data.values.push_back(
      {isText ? value.value.get<const char*>() : text, std::move(value.value), value.position});
  return status::success;
}

}  // namespace kivo_3_3
