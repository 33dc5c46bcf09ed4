#pragma once

#include <kivo/parser.h>

#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "base/running_call.h"
#include "options/option_registry.h"
#include "recognizers/argument_window.h"
#include "storage/garbage.h"

namespace kivo_3_3 {

class ParseResult;
class PositionalOptionsParser;

// The parser a tool holds: owns the declarations and the texts handed out, notifies the
// handlers, and forwards everything else to the stages of a parse.
class BasicParser : public IParser {
 public:
  explicit BasicParser(int flags);
  BasicParser(const BasicParser&) = delete;
  BasicParser& operator=(const BasicParser&) = delete;

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

  ~BasicParser() override = default;

  // Parses arguments from end to end. What was used is taken from `args`; the rest,
  // "--" and what follows it aside, stays there.
  virtual int parseVector(ArgumentWindow& args, IParseResult* result);

  // Recognizes and stores options, argument by argument, up to `separator`.
  virtual int parse_phase_one(std::string_view separator, ArgumentWindow& args,
                              IParseResult* result, std::string& error);

  // Checks what the result has stored against the rules for actions and modifiers. `separator`
  // and `args` are part of the interface and unused.
  virtual int parse_phase_two(std::string_view separator, ArgumentWindow& args,
                              IParseResult* result, std::string& error);

  // Stores the arguments after `separator` and takes it and them from `args`.
  int collectNonparsingArguments(std::string_view separator, ArgumentWindow& args,
                                 ParseResult* result, std::string& error);

  void setLastError(const std::string& error) { m_lastError = error; }

  // For tests: see InternedTexts::countSteps().
  std::size_t countSteps() const { return m_garbage->countSteps(); }

 private:
  template <class Call>
  void forEachHandler(RunningEvent::Kind kind, const char* text, Call call);
  // The handler for the recognizers of one list of arguments; null if there are no handlers. Each
  // list asks again: the handlers may have been removed during the list before.
  EventHandler* listener() { return m_handlers.empty() ? nullptr : this; }
  template <class Write>
  const char* compose(Write write);
  const char* helpFailed();
  template <class Write>
  const char* composeTopic(const char* topic, bool hidden, Write write);

  int parseCommandLine(int argc, const char* const* argv, IParseResult* result);
  void applyDefaults(ParseResult& result);
  [[gnu::cold]] void applyEachDefault(ParseResult& result);
  int parseArguments(ArgumentWindow& args, IParseResult* result);
  int passUnknown(ArgumentWindow& args, std::string& error);
  int readOptionFiles(ParseResult* result);
  int readOptionFile(const char* name, ParseResult* result);
  [[gnu::cold]] int unidentifiedProblem();
  int bindLeftover(ArgumentWindow args, PositionalOptionsParser& recognizer, ParseResult* result,
                   std::string& error);

  // Owns every text handed out, and what the declarations need. Results share it, for
  // the names of what they store.
  const std::shared_ptr<Garbage> m_garbage = std::make_shared<Garbage>();
  RegisteredOptionStorage m_storage{m_garbage.get()};
  std::string m_lastError;
  int m_flags;
  std::set<EventHandler*> m_handlers;
  bool m_optionFileEnabled = false;
  std::vector<std::set<std::string>> m_simultaneousActions;
};

}  // namespace kivo_3_3
