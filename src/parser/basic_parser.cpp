// Declarations, help and events of the parser object; parse_driver.cpp has its parse operations. If
// an event did not reach a handler, the tool would accept a value that the handler refuses.

#include "parser/basic_parser.h"

#include <algorithm>

#include "bedrock/assertion.h"
#include "help/help_generator.h"
#include "result/parse_result.h"

namespace kivo_3_3 {

using std::string;

namespace {

// Spelled like this since 3.0; tools depend on it.
string isNotAvailable(const char* topic) {
  return string("Help for ") + topic + " not available.Please use one of the following topics:\n";
}

}  // namespace

bool EventHandler::onOptionParse(const char*) { return true; }
bool EventHandler::onValueParse(const char*, const Value&) { return true; }
bool EventHandler::onUknownArgument(const char*) { return true; }

IParser::~IParser() = default;

int createParser(IParser** parser, int flags) {
  if (parser == nullptr)
    return status::exceptionCaught;
  try {
    *parser = new BasicParser(flags);
    return status::success;
  } catch (const std::exception&) {
    return status::exceptionCaught;
  }
}

BasicParser::BasicParser(int flags) : m_flags(flags) {
  if ((flags & parserFlags::noTokenizer) != 0)
    m_storage.setTokenizer('\0');
}

// A handler must not destroy a parser that is still parsing or passing on an event.
void BasicParser::destroy() {
  if (RunningCall::isInUse(*this))
    BEDROCK::assertion_failed("!RunningCall::isInUse(*this)", __FILE__, __LINE__);
  else
    delete this;
}

int BasicParser::createResult(IParseResult** result) {
  if (result == nullptr)
    return status::exceptionCaught;
  try {
    *result = new ParseResult;
    return status::success;
  } catch (const std::exception&) {
    return status::exceptionCaught;
  }
}

IOption* BasicParser::option(const char* names, const char* description, variant_type_t type,
                             const char* group) {
  return m_storage.option(names, nullptr, description, false, type, group);
}

IOption* BasicParser::action(const char* names, const char* description, variant_type_t type,
                             const char* group) {
  return m_storage.action(names, description, type, group);
}

IOption* BasicParser::modifier(const char* names, const char* actions, const char* description,
                               variant_type_t type, const char* group) {
  return m_storage.modifier(names, actions, description, type, group);
}

bool BasicParser::isOptionDeclared(const char* name, bool amongActions, const char* group) {
  if (name == nullptr)
    return false;
  return m_storage.names().anyNamed(name, [&](std::uint32_t index) {
    const OptionDescription& option = m_storage.options()[index];
    return option.isAction() == amongActions && (group == nullptr || option.m_groupKey == group);
  });
}

const char* BasicParser::getErrorDesc() { return m_garbage->init(m_lastError.c_str()); }

const char* BasicParser::getDescription(bool hidden) {
  return compose([&](const HelpGenerator& help) { return help.describeTool(hidden); });
}

const char* BasicParser::getDescription(const char* topic, bool hidden) {
  if (topic == nullptr)
    return getDescription(hidden);
  return composeTopic(topic, hidden, [&](const HelpGenerator& help, unsigned int index) {
    return help.describeOption(index, hidden);
  });
}

const char* BasicParser::getActionModifiersDescription(const char* actionName, bool hidden) {
  const char* name = actionName != nullptr ? actionName : "";
  return composeTopic(name, hidden, [&](const HelpGenerator& help, unsigned int index) {
    return help.describeActionModifiers(index, hidden);
  });
}

const char* BasicParser::getGlobalModifiersDescription(bool hidden) {
  return compose([&](const HelpGenerator& help) { return help.describeGlobalModifiers(hidden); });
}

// Returns the help that `write` composes, owned by the parser; an error text if `write` raises.
template <class Write>
const char* BasicParser::compose(Write write) {
  try {
    return m_garbage->init(write(HelpGenerator(m_storage.options(), m_storage.groups())).c_str());
  } catch (const std::exception&) {
    return helpFailed();
  }
}

// Sets the error text and returns it; the empty text if there is no memory for a copy.
const char* BasicParser::helpFailed() {
  constexpr const char* reason = "Unknown error handled.";
  try {
    setLastError(reason);
    return getErrorDesc();
  } catch (const std::exception&) {
    return reason;
  }
}

// The help that `write` composes for a declared name. For an unknown name, a remark and the help
// for the whole tool.
template <class Write>
const char* BasicParser::composeTopic(const char* topic, bool hidden, Write write) {
  return compose([&](const HelpGenerator& help) {
    const auto index = m_storage.names().find(topic);
    return index ? write(help, *index) : isNotAvailable(topic) + getDescription(hidden);
  });
}

void BasicParser::addHandler(EventHandler* handler) {
  if (handler == nullptr || handler == this)
    return;
  try {
    m_handlers.insert(handler);
  } catch (const std::exception&) {
    // The interface cannot report this. IParser documents that the handler is ignored.
  }
}

void BasicParser::removeHandler(EventHandler* handler) { m_handlers.erase(handler); }

bool BasicParser::addOptionFileOption(const char* description, const char* group) {
  m_optionFileEnabled = true;
  return option("option-file", description, vtString, group) != nullptr;
}

bool BasicParser::allowSimultaneousActions(const std::set<string>& actionNames) {
  try {
    m_simultaneousActions.push_back(actionNames);
    return true;
  } catch (const std::exception&) {
    return false;
  }
}

// Calls `call` with each handler and the text of the event, until one call returns false.
//
// A handler may add and remove handlers, so the next handler is looked up by its address after each
// call. If parsers are each other's handlers, an event that comes back to its parser is not passed
// on again.
template <class Call>
void BasicParser::forEachHandler(RunningEvent::Kind kind, const char* text, Call call) {
  if (m_handlers.empty())
    return;
  const char* const kept = m_garbage->keep(text);
  const RunningEvent passingOn(*this, kind, kept);
  if (passingOn.hasComeBack())
    return;
  auto handler = m_handlers.begin();
  while (handler != m_handlers.end()) {
    EventHandler* const called = *handler;
    const bool goesOn = call(*called, kept);
    passingOn.throwIfTooDeep();
    if (!goesOn)
      return;
    handler = m_handlers.upper_bound(called);
  }
}

bool BasicParser::onOptionParse(const char* name) {
  forEachHandler(RunningEvent::option, name, [](EventHandler& handler, const char* kept) {
    handler.onOptionParse(kept);
    return true;
  });
  return true;
}

bool BasicParser::onValueParse(const char* name, const Value& value) {
  bool accepted = true;
  forEachHandler(RunningEvent::value, name, [&](EventHandler& handler, const char* kept) {
    accepted = handler.onValueParse(kept, value);
    return accepted;
  });
  return accepted;
}

bool BasicParser::onUknownArgument(const char* argument) {
  bool accepted = true;
  forEachHandler(RunningEvent::unknownArgument, argument,
                 [&](EventHandler& handler, const char* kept) {
                   accepted = handler.onUknownArgument(kept) && accepted;
                   return true;
                 });
  return accepted;
}

}  // namespace kivo_3_3
