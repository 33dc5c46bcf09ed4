// What all recognizers share: the position counter, and binding one value text to an
// option: split, convert, check, announce, store.
//
// Nothing is stored until every token has passed; announcements already made and
// positions already drawn are not taken back.

#include "recognizers/argument_parser.h"

#include <kivo/status.h>

#include "base/quoted.h"

namespace kivo_3_3 {

using std::string;

// One value on its way into an option.
struct IArgumentParser::Binding {
  string& value;  // as found for the option, all tokens of it
  const OptionDescription& option;
  const string& argument;  // the one being parsed, for messages
  OptionData& data;
  string& error;
};

namespace {

string validationProblem(const string& argument, const string& reason) {
  return "Value validation problem in argument " + quoted(argument) + ": " + reason;
}

string isNotValid(const string& value, const OptionDescription& option, const string& argument) {
  return "Value " + quoted(value) + " is not valid for option " + quoted(option.firstName()) +
         " in argument " + quoted(argument);
}

// The whole value stands where an argument is announced: it is what the user typed.
string noValueParsed(const string& value, const OptionDescription& option) {
  return "No value parsed in argument " + quoted(value) + " for option " +
         quoted(option.firstName());
}

// Finds the next stretch of `value` from `begin` on that holds no separator; false when
// none is left. Separators that lead, trail or repeat make no empty token.
bool nextToken(const string& value, char separator, std::size_t& begin, std::size_t& end) {
  begin = value.find_first_not_of(separator, end);
  if (begin == string::npos)
    return false;
  end = std::min(value.find(separator, begin), value.size());
  return true;
}

}  // namespace

int IArgumentParser::m_idx = 1;

int IArgumentParser::getNewPositionIndex() {
  const int position = m_idx;
  m_idx = static_cast<int>(static_cast<unsigned int>(position) + 1U);
  return position;
}

IArgumentParser::IArgumentParser(EventHandler& handler, Garbage& garbage, int flags)
    : m_handler(&handler), m_name("UndefinedParser"), m_garbage(&garbage), m_flags(flags) {}

string IArgumentParser::formatTokenMessage(string& token) {
  return " in argument: " + quoted(token);
}

int IArgumentParser::fail(string& error, string message) const {
  error = std::move(message);
  trace(": ", error);
  return status::usageError;
}

int IArgumentParser::parseValueAndAddOption(string& value, string& error,
                                            const OptionDescription& option,
                                            std::vector<string>& args,
                                            IResultCollector* collector) {
  OptionData data;
  data.positions.push_back(getNewPositionIndex());
  if (!value.empty()) {
    trace(": adding values to result container:");
    const Binding binding = {value, option, args.at(0), data, error};
    const int bound = bindTokens(binding);
    if (bound != status::success)
      return bound;
  }
  if (collector != nullptr)
    collector->store(option, data);
  trace(": stored option to result container.");
  return status::success;
}

int IArgumentParser::bindTokens(const Binding& binding) {
  const char separator = binding.option.m_tokenizer;
  if (separator == '\0') {
    trace(": not using tokenizer");
    return bindOne(binding.value, binding);
  }
  trace(": using tokenizer on char: '", separator, "'");
  std::size_t begin = 0;
  std::size_t end = 0;
  if (!nextToken(binding.value, separator, begin, end))
    return fail(binding.error, noValueParsed(binding.value, binding.option));
  do {
    string token = binding.value.substr(begin, end - begin);
    trace(": value is: '", token, "'");
    const int bound = bindOne(token, binding);
    if (bound != status::success)
      return bound;
    trace(": sent event on value parsed, option: '", binding.option.firstName(), "', value: '",
          token, "'");
  } while (nextToken(binding.value, separator, begin, end));
  return status::success;
}

int IArgumentParser::bindOne(string& token, const Binding& binding) {
  const OptionDescription& option = binding.option;
  variant_t typed;
  if (!option.validate(token, typed, binding.error))
    return fail(binding.error, validationProblem(binding.argument, binding.error));

  const int position = getNewPositionIndex();
  const Value value(token.c_str(), typed, position);
  if (!m_handler->onValueParse(option.firstName().c_str(), value)) {
    binding.error = isNotValid(binding.value, option, binding.argument);
    // No separator here: the lines have always run together.
    trace(binding.error, " One of the handler signaled the value is not valid.");
    return status::valueRefused;
  }
  binding.data.values.push_back({{token, typed}, position});
  return status::success;
}

}  // namespace kivo_3_3
