#pragma once

#include <kivo/export.h>
#include <kivo/value.h>

namespace kivo_3_3 {

/// What one command line gave: read after the parse that filled it.
///
/// Every occurrence of an option, every value, every default and every leftover
/// argument has a position: a number that grows in command-line order. Positions are
/// for comparing; they are no indexes into the command line and go on growing from one
/// parse to the next. An option answers to each of its names, in full.
///
/// Reading goes by cursors, so a query changes what the next one continues from:
///   (present nextPosition* | get next*)* , independently (getFirstArgument getNextArgument*)
///
/// The caller owns the result, may keep it longer than the parser, and ends it with
/// destroy(). Texts it hands out live until then, and equal texts have one address. A value
/// for which there is no memory when it is first read is answered with "no value", and so ends a
/// walk; ask for it again. A leftover argument is then answered with the empty text.
class KIVO_API IParseResult {
 public:
  /// Ends the result and every text it handed out.
  virtual void destroy() = 0;

  /// Whether the option was given at a position from `from` up to, not including, `to`,
  /// or has a default, which counts in every range. Selects the option for next() and
  /// nextPosition(). A null or unknown name is not present, and no error.
  virtual bool present(const char* name, int from = firstPosition, int to = lastPosition) = 0;

  /// The first value of the option from `from` up to and including `to`; its default
  /// when it was not given, whatever the range. "No value" when there is none, or when
  /// no occurrence of the option lies from `from` up to, not including, `to`. An option
  /// given without values answers with its position alone. Selects the option for
  /// next() and nextPosition(). In the range from `lastPosition` to `lastPosition` next()
  /// delivers the default once more.
  virtual Value get(const char* name, int from = firstPosition, int to = lastPosition) = 0;

  /// The next value of the option that present() or get() selected, in the same range;
  /// "no value" after the last one. The name is not looked at.
  virtual Value next(const char* name) = 0;

  /// The next occurrence of the selected option, `lastPosition` after the last one and
  /// when no option is selected.
  virtual int nextPosition() = 0;

  /// Sets `*text` to the first argument that stood behind "--" and returns 0, or
  /// returns 1 with `*text` untouched when there is none.
  virtual int getFirstArgument(const char** text) = 0;

  /// The same for the argument behind the one delivered last.
  virtual int getNextArgument(const char** text) = 0;

 protected:
  virtual ~IParseResult();
};

/// The last value of the option in the range, with the bounds of get(), or "no value";
/// also when `result` or `name` is null. Moves the result's cursor.
KIVO_API Value getLastValue(IParseResult* result, const char* name, int from = firstPosition,
                            int to = lastPosition);

}  // namespace kivo_3_3
