#pragma once

// The parser object that createParser() makes. It owns what a tool may refer to until it destroys
// the parser: texts, builders and declarations.

#include <kivo/parser.h>

#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "base/running_call.h"
#include "describe/description.h"
#include "options/option_registry.h"
#include "recognizers/argument_window.h"
#include "storage/garbage.h"

namespace kivo_3_3 {

class ParseResult;
class PositionalOptionsParser;

// Owns the declarations and every text that it returns, notifies the handlers, and runs the stages
// of a parse.
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

  // Parses a list of arguments, then the option files, then checks the rules for actions. Drops
  // every argument that was used, so `args` is empty unless an argument has ended the parse.
  // Returns a status. Like every stage, stores nothing if `result` is null.
  virtual int parseVector(ArgumentWindow& args, IParseResult* result);

  // Recognizes and stores options, argument by argument, up to `separator`. Returns a status.
  // Named like this since 3.0.
  virtual int parse_phase_one(std::string_view separator, ArgumentWindow& args,
                              IParseResult* result, std::string& error);

  // Checks what the result has stored against the rules for actions and modifiers. Returns a
  // status. `separator` and `args` are unused.
  virtual int parse_phase_two(std::string_view separator, ArgumentWindow& args,
                              IParseResult* result, std::string& error);

  // Stores the arguments after `separator`, and drops both from `args`. A no-op that returns 0 if
  // the first of `args` is not the separator.
  int collectNonparsingArguments(std::string_view separator, ArgumentWindow& args,
                                 ParseResult* result, std::string& error);

  // For kivo/describe.h. These raise std::bad_alloc; the texts are the parser's.
  [[gnu::cold]] Declarations declarations();
  [[gnu::cold]] const char* keep(const std::string& text);
  [[gnu::cold]] bool annotate(const char* option, std::string_view key, std::string_view text);
  [[gnu::cold]] const char* resolveName(std::string_view typed);

  void setLastError(const std::string& error) { m_lastError = error; }

  // For tests: see InternedTexts::countSteps().
  std::size_t countSteps() const { return m_garbage->countSteps(); }

 private:
  template <class Call>
  void forEachHandler(RunningEvent::Kind kind, const char* text, Call call);
  // The handler that recognizers notify: this parser, or null if it has no handlers. Called for
  // each list of arguments, since handlers may have been removed during the list before.
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
  [[gnu::cold]] int readOptionFiles(ParseResult* result);
  int readOptionFile(const char* name, ParseResult* result);
  [[gnu::cold]] int unidentifiedProblem();
  int bindLeftover(ArgumentWindow args, PositionalOptionsParser& recognizer, ParseResult* result,
                   std::string& error);

  // Owns every text that the parser returns, and the memory of the declarations. Results share the
  // ownership, because they refer to the names of options.
  const std::shared_ptr<Garbage> m_garbage = std::make_shared<Garbage>();
  RegisteredOptionStorage m_storage{m_garbage.get()};
  std::string m_lastError;
  int m_flags;
  std::set<EventHandler*> m_handlers;
  bool m_optionFileEnabled = false;
  std::vector<std::set<std::string>> m_simultaneousActions;
  Annotations m_annotations;
};

}  // namespace kivo_3_3
