#pragma once

#include <kivo/export.h>
#include <kivo/value.h>

namespace kivo_3_3 {

/// The options, values and leftover arguments of one command line. Read them after the parse that
/// filled the result.
///
/// Every occurrence of an option, every value, every default and every leftover argument (an
/// argument after "--") has a position: a number that grows in command-line order. Positions are
/// for comparing; they are not indexes into the command line, and they keep growing from one parse
/// to the next. A query finds an option by any of its names; names cannot be abbreviated here.
///
/// Queries move cursors, so a query determines where next() and nextPosition() continue:
///
///     (present nextPosition* | get next*)* , independently (getFirstArgument getNextArgument*)
///
/// The caller owns the result, may keep it longer than the parser, and destroys it with destroy().
/// The texts that the result returns live until then, and equal texts have one address. If memory
/// runs out when a value is first read, the query returns "no value", which ends a loop over the
/// values; the same query can be called again. A query for a leftover argument returns the empty
/// text then.
class KIVO_API IParseResult {
 public:
  /// Destroys the result and every text that it has returned.
  virtual void destroy() = 0;

  /// Whether the option was given at a position from `from` up to, not including, `to`,
  /// or has a default, which counts in every range. Selects the option for next() and
  /// nextPosition(). A null or unknown name is not present; it is no error.
  virtual bool present(const char* name, int from = firstPosition, int to = lastPosition) = 0;

  /// The first value of the option from `from` up to and including `to`; its default
  /// if it was not given, whatever the range. "No value" if there is none, or if no occurrence of
  /// the option is at a position from `from` up to, not including, `to`. For an option given
  /// without values, the returned value has a position and no text. Selects the option for next()
  /// and nextPosition(). In the range from `lastPosition` to `lastPosition` next() returns the
  /// default once more.
  virtual Value get(const char* name, int from = firstPosition, int to = lastPosition) = 0;

  /// The next value of the option that present() or get() selected, in the same range;
  /// "no value" after the last one. `name` is ignored.
  virtual Value next(const char* name) = 0;

  /// The position of the next occurrence of the selected option; `lastPosition` after the last
  /// occurrence and if no option is selected.
  virtual int nextPosition() = 0;

  /// Sets `*text` to the first argument after "--" and returns 0, or returns 1 with `*text`
  /// untouched if there is none.
  virtual int getFirstArgument(const char** text) = 0;

  /// The same for the argument after the one returned last.
  virtual int getNextArgument(const char** text) = 0;

 protected:
  virtual ~IParseResult();
};

/// The last value of the option in the range, with the bounds of get(), or "no value";
/// also if `result` or `name` is null. Moves the result's cursor.
KIVO_API Value getLastValue(IParseResult* result, const char* name, int from = firstPosition,
                            int to = lastPosition);

}  // namespace kivo_3_3
