#pragma once

/// @file
/// A whole command line in one place: variables that receive the values, help, version, required
/// options, ranges, groups, environment, a configuration file, operands, actions and commands.
///
///     unsigned int times = 1;
///     std::vector<std::string> names;
///
///     kivo::Tool tool("greet", "Greets people.", "1.0");
///     tool.option("times,t", times, "How often to greet.").range(1, 100).env("GREET_TIMES");
///     tool.rest("name", names, "Whom to greet.").required();
///     if (const std::optional<int> exit = tool.parse(argc, argv))
///       return *exit;  // help, the version or an error has been printed

#include <kivo/export.h>
#include <kivo/version.h>

#include <initializer_list>
#include <optional>
#include <string>
#include <type_traits>
#include <vector>

namespace kivo_3_3 {

class IParser;
class Tool;

// What the templates below hand to the library. Tools do not use these names.
namespace tool_glue {

struct Declaration;
struct ToolData;
struct Text;
enum class Use : int { option, flag, count, each, operand, rest, config, action };
enum class Note : int { required, hidden, env, placeholder, split, only, deprecated, shown };
enum class Limit : int { range, choice, deprecatedChoice, check };
enum class Kind : int { boolean, integer, natural, real, character, enumeration, object };
enum class Holder : int { one, optional, list };

// A type of variables. Later versions add members at the end of the structure.
struct VariableType {
  unsigned int size, bytes;  // of this structure; of one value
  Kind kind;
  Holder holder;
  void* (*make)();  // a variable
  void (*destroy)(void* variable);
  void (*move)(void* from, void* to);
  void* (*add)(void* variable);                                  // a value; a single one stays
  const void* (*at)(const void* variable, unsigned long index);  // null beyond the last value
  void (*read)(const char* text, void* value, Text& expected);   // for objects
  void (*show)(const void* value, Text& text);                   // for objects
};
// A function of the tool with up to two arguments; null if there was no memory for it.
struct Callable {
  unsigned int size;
  void* function;
  int (*call)(void* function, void* first, void* second, Text& answer);
  void (*destroy)(void* function);
};
KIVO_API void note(Declaration* declaration, Note note, const char* text) noexcept;
KIVO_API void limit(Declaration* declaration, Limit limit, const void* first,
                    const void* second) noexcept;
KIVO_API unsigned int timesGiven(const Declaration* declaration) noexcept;

// What a function of the tool returns: a text, or a status.
KIVO_API int tell(Text& text, const char* answer);
inline int tell(Text& text, const std::string& answer) { return tell(text, answer.c_str()); }
inline int tell(Text&, int status) { return status; }

template <class Function, class First, class Second>
decltype(auto) call(Function& function, First& first, Second& second) {
  if constexpr (std::is_invocable_v<Function&, First&, Second&>)
    return function(first, second);
  else if constexpr (std::is_invocable_v<Function&, First&>)
    return function(first);
  else
    return function();
}
template <class First, class Second = const bool>
Callable keep() {
  return {};
}
template <class First, class Second = const bool, class Function>
Callable keep(Function function) {
  const auto invoke = [](void* kept, void* first, void* second, Text& answer) {
    const auto called = [&]() -> decltype(auto) {
      return call(*static_cast<Function*>(kept), *static_cast<First*>(first),
                  *static_cast<Second*>(second));
    };
    // Only a parser gets a second argument that it may change.
    static_assert(std::is_const_v<Second> || !std::is_arithmetic_v<decltype(called())>,
                  "a parser returns what was expected: null or an empty text accepts the value");
    if constexpr (!std::is_void_v<decltype(called())>)
      return tell(answer, called());
    called();
    return 0;
  };
  return {sizeof(Callable), new (std::nothrow) Function(static_cast<Function&&>(function)), invoke,
          [](void* kept) { delete static_cast<Function*>(kept); }};
}

template <template <class> class Expression, class T, class = void>
inline constexpr bool has = false;
template <template <class> class Expression, class T>
inline constexpr bool has<Expression, T, std::void_t<Expression<T>>> = true;
template <class T>
using ParseValue = decltype(parseValue(static_cast<const char*>(nullptr), std::declval<T&>()));
template <class T>
using FormatValue = decltype(formatValue(std::declval<const T&>()));
template <class T, class... Others>
constexpr bool isOneOf = (std::is_same_v<T, Others> || ...);
template <class T>
constexpr bool isText = std::is_assignable_v<T&, const char*> && !isOneOf<T, bool, const void*>;

template <class T, Holder kept = Holder::one>
struct HeldAs {
  using Value = T;
  static constexpr Holder holder = kept;
};
template <class T>
struct Held : HeldAs<T> {};
template <class T>
struct Held<std::optional<T>> : HeldAs<T, Holder::optional> {};
template <class T, class Allocator>
struct Held<std::vector<T, Allocator>> : HeldAs<T, Holder::list> {};

template <class T>
constexpr Kind kindOf() {
  if (!std::is_arithmetic_v<T>)
    return std::is_enum_v<T> && !has<ParseValue, T> ? Kind::enumeration : Kind::object;
  if (isOneOf<T, bool, char>)
    return isOneOf<T, bool> ? Kind::boolean : Kind::character;
  if (std::is_floating_point_v<T>)
    return Kind::real;
  return (std::is_signed_v<T>) ? Kind::integer : Kind::natural;
}

template <class Variable, class T = typename Held<Variable>::Value>
struct Functions {
  static constexpr Holder holder = Held<Variable>::holder;
  static void* make() { return new Variable(); }
  static void destroy(void* variable) { delete static_cast<Variable*>(variable); }
  static void move(void* from, void* to) {
    *static_cast<Variable*>(to) = static_cast<Variable&&>(*static_cast<Variable*>(from));
  }
  static void* add(void* variable) {
    if constexpr (holder == Holder::list)
      return &static_cast<Variable*>(variable)->emplace_back();
    else if constexpr (holder == Holder::optional)
      return &static_cast<Variable*>(variable)->emplace();
    else
      return variable;
  }
  static const void* at(const void* variable, unsigned long index) {
    const Variable& source = *static_cast<const Variable*>(variable);
    if constexpr (holder == Holder::list)
      return index < source.size() ? &source[index] : nullptr;
    else if constexpr (holder == Holder::optional)
      return index == 0 && source ? &*source : nullptr;
    else
      return index == 0 ? variable : nullptr;
  }
  static void read(const char* text, void* value, Text& expected) {
    if constexpr (has<ParseValue, T>) {
      static_assert(!std::is_arithmetic_v<ParseValue<T>>,
                    "parseValue() returns what was expected: null or an empty text is fine");
      tell(expected, parseValue(text, *static_cast<T*>(value)));
    } else if constexpr (isText<T>)
      *static_cast<T*>(value) = text;
  }
  static void show(const void* value, Text& text) {
    if constexpr (has<FormatValue, T>)
      tell(text, formatValue(*static_cast<const T*>(value)));
    else if constexpr (std::is_convertible_v<const T&, const char*>)
      tell(text, *static_cast<const T*>(value));
    else if constexpr (std::is_constructible_v<std::string, const T&>)
      tell(text, std::string(*static_cast<const T*>(value)));
  }
};

template <class Variable, int parsers>
constexpr VariableType typeOf() {
  using T = typename Held<Variable>::Value;
  using Of = Functions<Variable>;
  static_assert(!isOneOf<Variable, std::vector<bool>>, "std::vector<bool>: use std::vector<char>");
  static_assert(Held<T>::holder == Holder::one, "a list or an optional of lists or optionals");
  static_assert(!isOneOf<T, wchar_t, char16_t, char32_t>, "wide characters are not supported");
  static_assert(!std::is_arithmetic_v<T> || sizeof(T) <= 8 || isOneOf<T, long double>,
                "numbers have at most 64 bits");
  static_assert(!std::is_pointer_v<T> || isText<T>, "a pointer can only be const char*");
  static_assert(kindOf<T>() != Kind::object || isText<T> || has<ParseValue, T> || parsers != 0,
                "a type of your own needs parseValue(const char*, T&) or a parser");
  return {sizeof(VariableType),
          sizeof(T),
          kindOf<T>(),
          Of::holder,
          Of::make,
          Of::destroy,
          Of::move,
          Of::add,
          Of::at,
          Of::read,
          Of::show};
}
template <class Variable, int parsers>
inline constexpr VariableType variableType = typeOf<Variable, parsers>();

}  // namespace tool_glue

/// A text that may be given, and the value that it stands for.
template <class T>
struct Choice {
  const char* text;  ///< as users type it
  T value;           ///< what the variable gets
};

/// Amends what was just declared. Modifiers may be called in any order, until Tool::parse(). The
/// handle is valid as long as its tool.
template <class Variable>
class Option {
 public:
  /// One value of the variable: of a list or an optional, what is in it.
  using Value = typename tool_glue::Held<Variable>::Value;

  /// The user has to give it.
  Option& required() { return note(tool_glue::Note::required, ""); }
  /// Accepts the numbers from `low` to `high`, both included.
  Option& range(Value low, Value high) {
    static_assert(std::is_arithmetic_v<Value> && !tool_glue::isOneOf<Value, bool, char>,
                  "a range is for numbers");
    return limit(tool_glue::Limit::range, &low, &high);
  }
  /// Accepts these texts alone. Users may cut them short.
  Option& choices(std::initializer_list<const char*> texts) {
    for (const char* text : texts)
      limit(tool_glue::Limit::choice, text, nullptr);
    return *this;
  }
  /// Accepts these texts alone; the variable gets the value of the given one.
  Option& choices(std::initializer_list<Choice<Value>> choices) {
    static_assert(tool_glue::kindOf<Value>() != tool_glue::Kind::object,
                  "a text or a type of your own has choices without values");
    for (const Choice<Value>& choice : choices)
      limit(tool_glue::Limit::choice, choice.text, &choice.value);
    return *this;
  }
  /// Accepts `former` too, as `now`, with a warning.
  Option& deprecatedChoice(const char* former, const char* now) {
    return limit(tool_glue::Limit::deprecatedChoice, former, now);
  }
  /// Calls `function(const Value&)` for each value. It returns what was expected, as `const char*`
  /// or std::string; null or an empty text accepts the value.
  template <class Check>
  Option& check(Check function) {
    static_assert(!std::is_arithmetic_v<std::invoke_result_t<Check&, const Value&>>,
                  "a check returns what was expected: null or an empty text accepts the value");
    const auto kept = tool_glue::keep<const Value>(static_cast<Check&&>(function));
    return limit(tool_glue::Limit::check, &kept, nullptr);
  }
  /// Takes the value of an environment variable if the command line gives none.
  Option& env(const char* variable) { return note(tool_glue::Note::env, variable); }
  /// Stands for the value in the help: "FILE".
  Option& placeholder(const char* text) { return note(tool_glue::Note::placeholder, text); }
  /// Splits one argument into several values at this character.
  Option& split(char separator) {
    const char text[] = {separator, '\0'};
    return note(tool_glue::Note::split, text);
  }
  /// Goes with these actions alone, separated by commas.
  Option& only(const char* actions) { return note(tool_glue::Note::only, actions); }
  /// Leaves it out of the help and of completion.
  Option& hidden() { return note(tool_glue::Note::hidden, ""); }
  /// Accepts it with a warning, such as "use --new".
  Option& deprecated(const char* advice) { return note(tool_glue::Note::deprecated, advice); }
  /// Stands in the help instead of the default: "~/.rc".
  Option& shownDefault(const char* text) { return note(tool_glue::Note::shown, text); }
  /// How often it was given, wherever its values come from. 0 before the parse.
  unsigned int given() const { return tool_glue::timesGiven(m_declaration); }

 private:
  friend class Tool;
  explicit Option(tool_glue::Declaration* declaration) : m_declaration(declaration) {}
  Option& note(tool_glue::Note note, const char* text) {
    tool_glue::note(m_declaration, note, text);
    return *this;
  }
  Option& limit(tool_glue::Limit limit, const void* first, const void* second) {
    tool_glue::limit(m_declaration, limit, first, second);
    return *this;
  }

  tool_glue::Declaration* m_declaration;  // null if there was no memory for it
};

/// A tool: what it takes, and what it does with that. Use one tool on one thread at a time.
///
///     Tool (option | flag | count | each | operand | rest | config | action | command ...)* parse
///
/// Declaring never throws: if memory runs out, parse() tells so and gives status 3. Names are
/// separated by commas, "times,t": at most three, and a third one has one or two characters. Users
/// may cut names short. All texts are copied.
class Tool {
 public:
  /// A tool as users call it, what it does in one sentence, and its version; without a version
  /// there is no option for it.
  KIVO_API Tool(const char* name, const char* summary, const char* version = nullptr) noexcept;
  KIVO_API ~Tool();
  Tool(const Tool&) = delete;
  Tool& operator=(const Tool&) = delete;

  /// An option for a variable. The variable keeps its value if the option is not given.
  /// The last argument may be a function that reads a text into a value:
  /// `parser(const char*, Value&)` returns what was expected, or null or an empty text.
  template <class Variable, class... Parser>
  Option<Variable> option(const char* names, Variable& variable, const char* help,
                          Parser... parser) {
    return declare(tool_glue::Use::option, names, variable, help, static_cast<Parser&&>(parser)...);
  }
  /// An option without a value: whether it was given.
  KIVO_API Option<bool> flag(const char* names, bool& variable, const char* help) noexcept;
  /// An option without a value: how often it was given.
  KIVO_API Option<int> count(const char* names, int& variable, const char* help) noexcept;
  /// Calls `function(const char*)` with each text that is given, after the whole command line was
  /// read, and for all such options in command-line order.
  template <class Function>
  Option<const char*> each(const char* names, Function function, const char* help) {
    const auto kept = tool_glue::keep<const char* const>(static_cast<Function&&>(function));
    return Option<const char*>(add(tool_glue::Use::each, names, help, nullptr, nullptr, kept));
  }
  /// The next argument that is no option.
  template <class Variable>
  Option<Variable> operand(const char* name, Variable& variable, const char* help) {
    return declare(tool_glue::Use::operand, name, variable, help);
  }
  /// All further arguments that are no options.
  template <class Variable>
  Option<Variable> rest(const char* name, Variable& variable, const char* help) {
    static_assert(tool_glue::Held<std::remove_const_t<Variable>>::holder == tool_glue::Holder::list,
                  "a rest needs a std::vector");
    return declare(tool_glue::Use::rest, name, variable, help);
  }
  /// An option that names a file with further arguments, one a line. What the command line and the
  /// environment give counts more. Without the option, `path` is read if there is such a file.
  KIVO_API Option<const char*> config(const char* names, const char* path,
                                      const char* help) noexcept;
  /// Something that the tool does, given like an option. parse() calls `function()` and gives the
  /// status that it returns.
  template <class Function>
  Option<bool> action(const char* names, const char* help, Function function) {
    const auto kept = tool_glue::keep<Tool>(static_cast<Function&&>(function));
    return Option<bool>(add(tool_glue::Use::action, names, help, nullptr, nullptr, kept));
  }
  /// Something that the tool does, given by one or more words: "remote add". `function(Tool&)`
  /// declares on the tool that it gets, calls parse(), works, and returns a status.
  template <class Function>
  void command(const char* words, const char* help, Function function) {
    addCommand(words, help, tool_glue::keep<Tool>(static_cast<Function&&>(function)));
  }

  /// Of these options, users may give at most one.
  void atMostOne(std::initializer_list<const char*> names) { addGroup(names, false); }
  /// Of these options, users have to give exactly one.
  void exactlyOne(std::initializer_list<const char*> names) { addGroup(names, true); }
  /// The section of the help for what is declared from here on: "heading", or
  /// "heading:introduction" for the first declaration of a section with an introduction.
  KIVO_API void section(const char* heading) noexcept;
  /// A paragraph at the end of the help.
  KIVO_API void footer(const char* text) noexcept;
  /// The status for wrong arguments instead of 2.
  KIVO_API void usageStatus(int status) noexcept;
  /// Hands what would be printed to `function(const char* text, bool isError)`. If it throws, that
  /// counts as a text that cannot be written.
  template <class Function>
  void output(Function function) {
    setOutput(tool_glue::keep<const char* const>(static_cast<Function&&>(function)));
  }

  /// Reads a command line. Empty if the tool should go on; else the status with which it should
  /// exit: help, the version or an error was printed, or an action or a command has done its work.
  /// What an action or a command throws passes through.
  [[nodiscard]] std::optional<int> parse(int argc, const char* const* argv) {
    int status = 0;
    return parse(argc, argv, status) ? std::optional<int>(status) : std::nullopt;
  }
  /// The same for arguments without the name of the tool: parse({"--times=3", "Ada"}).
  [[nodiscard]] std::optional<int> parse(std::initializer_list<const char*> arguments) {
    return parse(-static_cast<int>(arguments.size()), arguments.begin());
  }
  /// The same for the arguments of a command.
  [[nodiscard]] std::optional<int> parse() { return parse(0, nullptr); }
  /// Reads a command line, does what it asks for, and returns the status of that.
  [[nodiscard]] int main(int argc, const char* const* argv) {
    return parse(argc, argv).value_or(0);
  }
  /// Prints a reason as an error of the user, and returns the status for wrong arguments.
  KIVO_API int fail(const char* reason) noexcept;
  /// What "--help" prints; empty if memory has run out. What formatValue() throws passes through.
  std::string help() { return helpText(); }
  /// The parser that the tool declares on at parse(); null if there was no memory for it.
  KIVO_API IParser* parser() noexcept;

 private:
  friend struct tool_glue::ToolData;
  explicit Tool(tool_glue::ToolData* data) noexcept : m_data(data) {}

  template <class Variable, class... Parser>
  Option<Variable> declare(tool_glue::Use use, const char* names, Variable& variable,
                           const char* help, Parser... parser) {
    static_assert(!std::is_const_v<Variable>, "a const variable cannot receive a value");
    void* receiver = nullptr;
    if constexpr (!std::is_const_v<Variable>)
      receiver = &variable;
    const auto& type = tool_glue::variableType<std::remove_const_t<Variable>, sizeof...(Parser)>;
    const auto kept = tool_glue::keep<const char* const, typename Option<Variable>::Value>(
        static_cast<Parser&&>(parser)...);
    return Option<Variable>(add(use, names, help, receiver, &type, kept));
  }
  KIVO_API tool_glue::Declaration* add(tool_glue::Use use, const char* names, const char* help,
                                       void* variable, const tool_glue::VariableType* type,
                                       const tool_glue::Callable& function) noexcept;
  KIVO_API void addCommand(const char* words, const char* help,
                           const tool_glue::Callable& function) noexcept;
  KIVO_API void addToGroup(const char* name, bool isFirst, bool isNeeded) noexcept;
  void addGroup(std::initializer_list<const char*> names, bool isNeeded) {
    for (const char* const& name : names)
      addToGroup(name, &name == names.begin(), isNeeded);
  }
  KIVO_API void setOutput(const tool_glue::Callable& function) noexcept;
  // A negative number is that of arguments without the name of the tool.
  KIVO_API bool parse(int argc, const char* const* argv, int& status);
  KIVO_API const char* helpText();

  tool_glue::ToolData* m_data;  // null if there was no memory for it
};

}  // namespace kivo_3_3
