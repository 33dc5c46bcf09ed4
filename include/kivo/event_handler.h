#pragma once

#include <kivo/export.h>
#include <kivo/value.h>

// Handlers are never deleted through this class. Its virtual functions are the first entries of
// IParser's virtual table, so a virtual destructor would move all entries after it.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

namespace kivo_3_3 {

/// A parser notifies its handlers of options, values and unknown arguments while it parses them.
/// Register a handler with IParser::addHandler(). Each operation does nothing and returns true
/// unless you override it.
///
/// Handlers are never deleted through this class, so its destructor is not virtual. If you
/// compile with -Wnon-virtual-dtor, make your handler `final`. g++ warns about the base class too:
/// suppress the warning around your handler.
///
/// A name or an unknown argument in an event belongs to the parser and lives as long as the
/// parser. The text of a value lives until the handler returns: copy it if you keep it for longer.
/// The typed value may be kept; it shares its characters with the result.
/// During an event a handler may call every query of parsers and results, and may
///
/// - declare options: a declaration counts from the next argument on, a default from the next
///   parse on;
/// - amend the option declared last: the change counts from the next occurrence of that option on,
///   because the current occurrence uses the option as it was before the first event of that
///   occurrence;
/// - add and remove handlers, itself included, and destroy the handlers it has removed: an added
///   handler is notified of the current event too if its address comes after that of the handler
///   being notified;
/// - read the result being filled, which has everything before the option being announced, and
///   go on reading during a later event; each option file moves the cursor;
/// - parse, with any parser and into any result, at most a hundred parses deep: a deeper parse
///   makes all of them end with `status::unidentifiedProblem`. The handler is notified of what it
///   parses with this parser too. What it parses with this parser into the result being filled is
///   stored before the option being announced and counts as part of the outer parse. The outer
///   parse reads the option files and checks the actions after its own arguments. What another
///   parser stores in the result being filled makes the outer parse end with 1 and no reason of
///   its own (getErrorDesc() keeps the former text), unless the options of both parsers have the
///   same names.
///
/// A handler must not destroy a result that is being filled, nor a parser that is parsing or
/// passing on the event: destroy() then calls the assertion handler and, if that returns, does
/// nothing.
///
/// A standard exception thrown by a handler ends the parse with `status::unidentifiedProblem`.
/// Any other exception leaves the parse operation. The parser and the result stay usable after
/// either.
class KIVO_API EventHandler {
 public:
  /// An option was recognized; its values follow. `name` is the first name of the option, even if
  /// the user typed another. The return value is ignored.
  virtual bool onOptionParse(const char* name);

  /// A value of the option `name` was converted and found valid. False refuses it:
  /// the parse ends with `status::valueRefused`, and the handlers after this one, in the
  /// order of their addresses, are not notified.
  virtual bool onValueParse(const char* name, const Value& value);

  /// An argument is neither an option nor a value of an option. If a handler returns false, the
  /// parser accepts the argument where it would otherwise report an error. Every handler is
  /// notified.
  // Spelled like this since 3.0; tools depend on it.
  virtual bool onUknownArgument(const char* argument);
};

}  // namespace kivo_3_3

#pragma GCC diagnostic pop
