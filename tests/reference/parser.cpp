#include "reference/parser.h"

#include <kivo/status.h>

#include <algorithm>

#include "bedrock/assertion.h"
#include "reference/help.h"

namespace kivo_3_3::reference {

int createParser(IParser** parser, int flags) {
  if (parser == nullptr)
    return status::exceptionCaught;
  *parser = new Parser(flags);
  return status::success;
}

Parser::Parser(int flags)
    : m_registry((flags & parserFlags::noTokenizer) != 0 ? '\0' : ','), m_flags(flags) {}

void Parser::destroy() {
  if (isInUse(*this))
    BEDROCK::assertion_failed("!RunningCall::isInUse(*this)", __FILE__, __LINE__);
  else
    delete this;
}

int Parser::createResult(IParseResult** result) {
  if (result == nullptr)
    return status::exceptionCaught;
  *result = new Result;
  return status::success;
}

IOption* Parser::option(const char* names, const char* description, variant_type_t type,
                        const char* group) {
  return m_registry.option(names, nullptr, description, false, type, group);
}

IOption* Parser::action(const char* names, const char* description, variant_type_t type,
                        const char* group) {
  return m_registry.option(names, nullptr, description, true, type, group);
}

// The names of the actions become the tags of the modifier.
IOption* Parser::modifier(const char* names, const char* actions, const char* description,
                          variant_type_t type, const char* group) {
  return m_registry.option(names, actions, description, false, type, group);
}

bool Parser::isOptionDeclared(const char* name, bool amongActions, const char* group) {
  if (name == nullptr)
    return false;
  for (const Option& option : m_registry.options())
    if (option.isAction == amongActions &&
        std::count(option.names.begin(), option.names.end(), name) != 0 &&
        (group == nullptr || option.groupKey == group))
      return true;
  return false;
}

bool Parser::allowSimultaneousActions(const std::set<std::string>& actionNames) {
  m_simultaneousActions.push_back(actionNames);
  return true;
}

bool Parser::addOptionFileOption(const char* description, const char* group) {
  m_optionFileEnabled = true;
  return option("option-file", description, vtString, group) != nullptr;
}

const char* Parser::getErrorDesc() { return m_garbage.init(m_lastError); }

void Parser::addHandler(EventHandler* handler) {
  if (handler != nullptr && handler != this)
    m_handlers.insert(handler);
}

void Parser::removeHandler(EventHandler* handler) { m_handlers.erase(handler); }

// Handlers are called in the order of their addresses. A handler may add and remove handlers, so
// the next one is looked up after each call. An event that comes back to a parser that is passing
// it on goes no further.
void Parser::passOn(Event event, const char* keptText, const CallHandler& call) {
  if (isPassingOn(*this, event, keptText))
    return;
  const RunningEvent passing(*this, event, keptText);
  for (auto next = m_handlers.begin(); next != m_handlers.end();) {
    EventHandler* const handler = *next;
    const bool goesOn = call(*handler);
    throwIfTooDeep();
    if (!goesOn)
      return;
    next = m_handlers.upper_bound(handler);
  }
}

// Every handler is called; the answers are ignored.
bool Parser::onOptionParse(const char* name) {
  if (m_handlers.empty())
    return true;
  const char* kept = m_garbage.init(name);
  passOn(Event::optionParsed, kept, [&](EventHandler& handler) {
    handler.onOptionParse(kept);
    return true;
  });
  return true;
}

// The handlers after the first refusal are not called.
bool Parser::onValueParse(const char* name, const Value& value) {
  if (m_handlers.empty())
    return true;
  const char* kept = m_garbage.init(name);
  bool accepted = true;
  passOn(Event::valueParsed, kept, [&](EventHandler& handler) {
    accepted = handler.onValueParse(kept, value);
    return accepted;
  });
  return accepted;
}

// Every handler is called, even after one has answered false.
bool Parser::onUknownArgument(const char* argument) {
  if (m_handlers.empty())
    return true;
  const char* kept = m_garbage.init(argument);
  bool accepted = true;
  passOn(Event::unknownArgument, kept, [&](EventHandler& handler) {
    accepted = handler.onUknownArgument(kept) && accepted;
    return true;
  });
  return accepted;
}

const char* Parser::helpText(const std::function<std::string()>& write) {
  try {
    return m_garbage.init(write());
  } catch (const std::exception&) {
    m_lastError = "Unknown error handled.";
    return getErrorDesc();
  }
}

const char* Parser::describe(const std::vector<Option>& options, bool hidden) {
  return helpText([&] { return formatHelp(m_registry.groups(), options, hidden); });
}

// There is no blank between the two sentences; tools depend on it.
const char* Parser::topicNotAvailable(const std::string& topic, bool hidden) {
  return helpText([&] {
    return "Help for " + topic + " not available.Please use one of the following topics:\n" +
           getDescription(hidden);
  });
}

// A tool with actions gets a list of its actions, as topics; any other tool gets all its options
// described.
const char* Parser::getDescription(bool hidden) {
  return helpText([&] {
    const Options& options = m_registry.options();
    if (const auto topics = topicList(options, hidden))
      return *topics;
    return formatHelp(m_registry.groups(), {options.begin(), options.end()}, hidden);
  });
}

const char* Parser::getDescription(const char* topic, bool hidden) {
  if (topic == nullptr)
    return getDescription(hidden);
  const auto index = findOption(topic, m_registry.options());
  return index ? describe({m_registry.options()[*index]}, hidden)
               : topicNotAvailable(topic, hidden);
}

const char* Parser::getActionModifiersDescription(const char* actionName, bool hidden) {
  const std::string name = actionName != nullptr ? actionName : "";
  const auto index = findOption(name, m_registry.options());
  return index ? describe(actionModifiers(m_registry.options(), *index), hidden)
               : topicNotAvailable(name, hidden);
}

const char* Parser::getGlobalModifiersDescription(bool hidden) {
  return describe(globalModifiers(m_registry.options()), hidden);
}

}  // namespace kivo_3_3::reference
