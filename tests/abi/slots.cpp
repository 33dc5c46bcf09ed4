// Classes that override all virtual functions of the interfaces, for the compilers' dumps of their
// tables: in the table of an interface itself, pure functions have no names. The signatures are
// written out, so that a changed signature in the interface does not compile here.
#include <kivo/kivo.h>

using namespace kivo_3_3;

class EventHandlerProbe : public EventHandler {
 public:
  bool onOptionParse(const char* name) override;
  bool onValueParse(const char* name, const Value& value) override;
  bool onUknownArgument(const char* argument) override;
};

// Overrides one of the two functions named getDescription. A dump has no parameters, so only the
// name of the class distinguishes them.
class TopicProbe : public IParser {
 public:
  using IParser::getDescription;
  const char* getDescription(const char* topic, bool hidden) override;
};

// Does not override the functions of EventHandler.
class IParserProbe : public TopicProbe {
 public:
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
  using TopicProbe::getDescription;
  const char* getDescription(bool hidden) override;
  const char* getActionModifiersDescription(const char* actionName, bool hidden) override;
  const char* getGlobalModifiersDescription(bool hidden) override;
  void addHandler(EventHandler* handler) override;
  void removeHandler(EventHandler* handler) override;
  bool addOptionFileOption(const char* description, const char* group) override;
  bool allowSimultaneousActions(const std::set<std::string>& actionNames) override;
  ~IParserProbe() override;
};

class IOptionProbe : public IOption {
 public:
  IOption* synonym(const char* name) override;
  IOption* allowValue(const variant_t& value) override;
  IOption* allowDeprecatedValue(const variant_t& oldValue, const variant_t& newValue) override;
  IOption* defaultValue(const variant_t& value) override;
  IOption* tokenize(char separator) override;
  IOption* positional() override;
  IOption* tag(const char* tags) override;
  ~IOptionProbe() override;
};

class IParseResultProbe : public IParseResult {
 public:
  void destroy() override;
  bool present(const char* name, int from, int to) override;
  Value get(const char* name, int from, int to) override;
  Value next(const char* name) override;
  int nextPosition() override;
  int getFirstArgument(const char** text) override;
  int getNextArgument(const char** text) override;
  ~IParseResultProbe() override;
};

// clang++ dumps only the tables that are used.
EventHandler* makeHandler() { return new EventHandlerProbe; }
IParser* makeParserProbe() { return new IParserProbe; }
IOption* makeOption() { return new IOptionProbe; }
IParseResult* makeResultProbe() { return new IParseResultProbe; }
