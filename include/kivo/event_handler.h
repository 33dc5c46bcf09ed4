#pragma once

#include <kivo/export.h>
#include <kivo/value.h>

// Handlers are never deleted through this class, and its slots are the first of
// IParser's: there is no room for a virtual destructor.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

namespace kivo_3_3 {

/// Told by a parser what it meets, while it meets it; registered with
/// IParser::addHandler(). Each operation does nothing and returns true unless it is
/// overridden.
///
/// Nobody deletes a handler through this class, so its destructor is not virtual. Where
/// you compile with -Wnon-virtual-dtor, make your handler `final`, and have g++, which
/// objects to the base class too, ignore that warning around it.
///
/// A name or an unknown argument handed over belongs to the parser and lives as long as it
/// does. A value is handed on as the parser got it: copy its text if you keep it for longer than
/// the event; its typed value may be kept, and shares its characters with the result.
/// From inside an event a handler may ask for anything that parser and results have to
/// tell, and may
///
/// - declare: that counts from the next argument on, and a default from the next parse on;
/// - amend the option declared last: that counts from its next occurrence on, for the occurrence
///   being bound goes by the option as it stood before its first event;
/// - add and remove handlers, itself included, and end those that it has removed: one that
///   is added is told of this event already if it comes after the one being told;
/// - read the result being filled, which has everything up to the option being announced,
///   and go on reading at a later event, though each option file moves the cursor;
/// - parse, with any parser and into any result, at most a hundred parses deep: beyond
///   that all of them end with `status::unidentifiedProblem`. It is told of what it parses
///   with this parser too. What it parses with this parser into the result being filled is
///   stored ahead of the option being announced and counts as part of the outer parse,
///   which reads the option files and looks at the actions when its own arguments are
///   through. What another parser stores there makes the outer parse end with 1 and no
///   reason of its own (getErrorDesc() keeps the former text), unless its options have the
///   same names.
///
/// It must not end a result that is being filled, nor a parser that is parsing or passing
/// on the event: that reaches the assertion handler and, should it return, does nothing.
///
/// A standard exception that it throws ends the parse with `status::unidentifiedProblem`;
/// any other leaves the parse operation. Parser and result stay usable after either.
class KIVO_API EventHandler {
 public:
  /// An option was recognized; its values follow. `name` is its first name, whichever
  /// the user typed. What is returned makes no difference.
  virtual bool onOptionParse(const char* name);

  /// A value of the option `name` was converted and found valid. False refuses it:
  /// the parse ends with `status::valueRefused`, and handlers after this one, in the
  /// order of their addresses, are not asked.
  virtual bool onValueParse(const char* name, const Value& value);

  /// An argument is no option and nobody's value. False, from any one handler, lets it
  /// pass where the parser would make it an error; every handler is asked.
  virtual bool onUknownArgument(const char* argument);
};

}  // namespace kivo_3_3

#pragma GCC diagnostic pop
