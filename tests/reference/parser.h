#pragma once

// The parser object: declarations, events, help, and the parse itself (driver.cpp).

#include <kivo/describe.h>
#include <kivo/parser.h>

#include <functional>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "reference/action_rules.h"
#include "reference/description.h"
#include "reference/garbage.h"
#include "reference/option_files.h"
#include "reference/recognizers.h"
#include "reference/registry.h"
#include "reference/result.h"
#include "reference/running_calls.h"

// The base class has no virtual destructor: see kivo/event_handler.h.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

namespace kivo_3_3::reference {

// See kivo/describe.h. The answer for any parser but a reference::Parser is empty, false or null.
const char* describe(IParser& parser, const ToolInfo& tool, const CommandInfo* commands,
                     unsigned int count);
bool annotate(IParser& parser, const char* option, const char* key, const char* text);
const char* resolveName(IParser& parser, const char* typed);
const char* nearestName(IParser& parser, const char* typed);

class Parser final : public IParser {
 public:
  explicit Parser(int flags);

  // A parser is an event handler: it passes each event on to the handlers registered with it.
  bool onOptionParse(const char* name) override;
  bool onValueParse(const char* name, const Value& value) override;
  bool onUknownArgument(const char* argument) override;

  void destroy() override;
  int createResult(IParseResult** result) override;
  IOption* option(const char* names, const char* description, variant_type_t type,
                  const char* group) override;
  IOption* action(const char* names, const char* description, variant_type_t type,
                  const char* group) override;
  IOption* modifier(const char* names, const char* actions, const char* description,
                    variant_type_t type, const char* group) override;
  bool isOptionDeclared(const char* name, bool amongActions, const char* group) override;
  int parseArgsVector(int argc, const char* const* argv, IParseResult* result) override;
  int parseStream(const char* text, IParseResult* result) override;
  const char* getErrorDesc() override;
  const char* getDescription(bool hidden) override;
  const char* getDescription(const char* topic, bool hidden) override;
  const char* getActionModifiersDescription(const char* actionName, bool hidden) override;
  const char* getGlobalModifiersDescription(bool hidden) override;
  void addHandler(EventHandler* handler) override;
  void removeHandler(EventHandler* handler) override;
  bool addOptionFileOption(const char* description, const char* group) override;
  bool allowSimultaneousActions(const std::set<std::string>& actionNames) override;

  const char* resolveName(const std::string& typed);
  const char* nearestName(const std::string& typed);
  // A null `option` stands for the tool.
  bool annotate(const char* option, const std::string& key, const std::string& text);
  const char* describe(const ToolInfo& tool, const std::vector<CommandInfo>& commands);

 private:
  // Calls one handler. Returns whether the handlers after it are to be called too.
  using CallHandler = std::function<bool(EventHandler& handler)>;
  void passOn(Event event, const char* keptText, const CallHandler& call);

  // The text of help, or "Unknown error handled." if writing it throws a standard exception.
  const char* helpText(const std::function<std::string()>& write);
  const char* describe(const std::vector<Option>& options, bool hidden);
  std::optional<std::size_t> findDeclared(const std::string& name) const;
  Declarations declarations() const;

  const char* topicNotAvailable(const std::string& topic, bool hidden);

  int parseVector(Arguments& args, Result* result);
  int parseArguments(Arguments& args, Result* result);
  int parsePhaseOne(Arguments& args, Result* result);
  int passOverUnknown(Arguments& args);
  int collectNonparsingArguments(Arguments& args, Result* result);
  int offerToPositional(const std::string& argument, Result* result);
  int readOptionFiles(Result& result);
  int readOptionFile(const std::string& name, Result& result);
  int parsePhaseTwo(const Result& result);

  Garbage m_garbage;
  Registry m_registry;
  std::string m_lastError;  // never cleared
  int m_flags;
  std::set<EventHandler*> m_handlers;
  bool m_optionFileEnabled = false;
  ActionGroups m_simultaneousActions;
  Annotations m_annotations;
};

int createParser(IParser** parser, int flags);

}  // namespace kivo_3_3::reference

#pragma GCC diagnostic pop
