#pragma once

#include <kivo/option.h>
#include <kivo/tool.h>

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tool/name_list.h"

// What a tool has declared, and the values that were given for it. A value is converted and checked
// when it is read, but stays in a variable of the library until the whole command line was read: if
// it went to the tool's variable at once, a later error would leave half of the variables changed.
// Texts that most declarations have are in the memory of the tool, where they end with a zero.

namespace kivo_3_3::tool_glue {

/// What a function of the tool writes to.
struct Text {
  std::string characters;
};

/// Owns a function of the tool.
class OwnedCallable {
 public:
  OwnedCallable() = default;
  /// Throws std::bad_alloc for a function without memory.
  explicit OwnedCallable(const Callable& callable);
  OwnedCallable(OwnedCallable&& other) noexcept : m_callable(std::exchange(other.m_callable, {})) {}
  OwnedCallable& operator=(OwnedCallable&& other) noexcept;
  ~OwnedCallable();

  explicit operator bool() const { return m_callable.function != nullptr; }
  /// The status that the function returns; its text is appended to `answer`.
  int operator()(void* first, void* second, Text& answer) const;

 private:
  Callable m_callable = {};
};

/// Where a value comes from; a later one replaces the values of an earlier one.
enum class Source : int { none, config, environment, commandLine };

struct DeclaredChoice {
  std::string_view text;
  std::string_view value;  // its bytes; empty if the text itself is the value
};

/// A text with its place among those that are given for all options with a function.
struct PlacedText {
  unsigned int place;
  std::string text;
};

struct Declaration {
  Declaration(ToolData& owner, Use what, const VariableType* variableType)
      : tool(owner), use(what), type(variableType) {}
  Declaration(const Declaration&) = delete;
  Declaration& operator=(const Declaration&) = delete;
  ~Declaration();

  std::string firstName() const { return std::string(*names.begin()); }
  bool isOperand() const { return use == Use::operand || use == Use::rest; }
  bool takesValue() const;
  /// Whether every text, the empty one too, is a value.
  bool takesAnyText() const;
  /// Whether some of the texts are deprecated. They are chosen here: the parser would write its own
  /// warnings to standard error.
  bool hasDeprecatedChoices() const { return takesValue() && !deprecatedChoices.empty(); }
  bool isList() const { return type != nullptr && type->holder == Holder::list; }

  ToolData& tool;
  const Use use;
  NameList names;
  const char* help = "";
  const char* section = "";
  const char* path = "";  // of a configuration file
  void* variable = nullptr;
  const VariableType* type;  // null if there is no variable
  OwnedCallable function;

  bool isBuiltIn = false;
  bool isRequired = false;
  bool isHidden = false;
  char separator = '\0';
  std::string_view environment, placeholder, deprecated, shownDefault, only;  // empty: none
  std::vector<DeclaredChoice> choices;
  std::vector<std::pair<std::string_view, std::string_view>> deprecatedChoices;
  std::vector<OwnedCallable> checks;
  std::string_view lowest, highest;  // bytes of values; empty if there is no range

  Source source = Source::none;
  unsigned int given = 0;
  void* staged = nullptr;         // a variable with the values given so far
  std::vector<PlacedText> texts;  // for a function
};

/// The type of the values on the parser.
variant_type_t parserType(const Declaration& declaration);

/// The type of the values while a command line is read: the parser has no long double, and does not
/// look at choices some of which are deprecated.
variant_type_t readType(const Declaration& declaration);

}  // namespace kivo_3_3::tool_glue
