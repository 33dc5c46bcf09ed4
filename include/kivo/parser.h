#pragma once

#include <kivo/event_handler.h>
#include <kivo/export.h>
#include <kivo/option.h>
#include <kivo/parse_result.h>
#include <kivo/status.h>

#include <set>
#include <string>
#include <type_traits>

// Parsers are never deleted through IParser or EventHandler: see event_handler.h.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

namespace kivo_3_3 {

/// How a parser treats its arguments. Combine the flags with `|` for createParser().
namespace parserFlags {

/// An argument that is neither an option nor a value of an option is an error; without this flag
/// it is dropped.
constexpr int unknownArgumentIsError = 2;
/// The positional option receives the arguments after "--" too.
constexpr int leftoverArgumentsArePositional = 4;
/// The positional option never receives an argument that begins with "-", except after "--".
constexpr int dashArgumentsAreNeverPositional = 8;
/// Options do not split their values at commas unless IOption makes them do so.
constexpr int noTokenizer = 32;

}  // namespace parserFlags

/// Holds the declared options and actions of a tool, parses its command lines, and writes its help.
///
///     createParser (option | action | modifier)* (createResult parseArgsVector get*)* destroy
///
/// Use one parser, and one result, on one thread at a time. Different parsers may be used on
/// several threads at once. Each thread has its own trace. A line of the trace or a warning is
/// written as a whole; if you replace the stream buffer of the console, the new one must be
/// thread-safe. Positions are drawn from one counter of the process: if several threads parse, the
/// positions of one parse still increase, but with gaps. Every text that a parser returns belongs
/// to the parser and lives until destroy(). A null text counts as the empty text. After any failure
/// the parser stays usable.
///
/// The counter has 2,147,483,646 positions. Each occurrence, value, leftover argument and applied
/// default draws one. A parse for which no position is left ends with
/// `status::unidentifiedProblem`, and the result keeps everything stored before. If your process
/// parses without end, parse in child processes: each of them has its own counter.
///
/// A parser is an event handler too, so you can register it with another parser: it passes each
/// event on to its own handlers. If the same event (the same kind, and the same name or argument)
/// comes back to a parser that is already passing it on, that parser accepts the event and does not
/// pass it on again. Any other event is passed on as usual, even if a handler sends it through the
/// parser that is notifying the handler.
class KIVO_API IParser : public EventHandler {
 public:
  /// Destroys the parser and every text that it has returned. Results stay valid. Handlers are not
  /// destroyed, because the parser does not own them.
  virtual void destroy() = 0;

  /// Makes an empty result and stores it in `*result`.
  ///
  /// Returns 0, or 3 with `*result` untouched if the result cannot be made or `result` is null. The
  /// caller owns the result, may keep it longer than the parser, and destroys it with destroy().
  virtual int createResult(IParseResult** result) = 0;

  /// Declares an option that is accepted with every action.
  ///
  /// `names` are the names of the option, separated by commas: at most three, and a third name has
  /// one or two characters. Messages use the first name. `type` is the type of the values, `vtNull`
  /// for an option without values. A `vtBool` option takes no value from the command line: it is
  /// given as "--name" or "--no-name". `group` is the section of the help: "heading", or
  /// "heading:introduction"; null is the section without a heading.
  ///
  /// A declaration is rejected if one of its names is taken or if there are too many names. The
  /// returned builder then has no effect, and nothing is declared. The same happens if memory runs
  /// out. There is no message: call isOptionDeclared() to check. The names of every declared
  /// option, action and modifier are taken, and so is each name of a `vtBool` option with "no-"
  /// before it. A new `vtBool` option is checked by its names alone: after an option "no-x", a
  /// `vtBool` option "x" is accepted, and "--no-x" still means the first option.
  /// A name of a `vtBool` option that itself begins with "no-" turns the option off. An option that
  /// has no other name is never on: declare "cache", not "no-cache".
  virtual IOption* option(const char* names, const char* description, variant_type_t type,
                          const char* group = nullptr) = 0;

  /// Declares an action, one of the things the tool can do. A command line may have at most one
  /// action, unless allowSimultaneousActions() allows more. If a parser has actions, a command line
  /// with options needs an action.
  virtual IOption* action(const char* names, const char* description, variant_type_t type,
                          const char* group = nullptr) = 0;

  /// Declares an option that is accepted only with the given actions, separated by commas; with
  /// null it is accepted with every action.
  virtual IOption* modifier(const char* names, const char* actions, const char* description,
                            variant_type_t type, const char* group = nullptr) = 0;

  /// Whether an action (if `amongActions`), or else an option or modifier, of the given group has
  /// this name as one of its names. Null means any group.
  virtual bool isOptionDeclared(const char* name, bool amongActions, const char* group) = 0;

  /// Parses a command line into `result`. `argv[0]`, the name of the tool, is skipped. Declared
  /// defaults are stored first. A null in `argv` ends the command line. With a null `result`, each
  /// argument is checked and handlers are notified, but nothing is stored; the parser then does not
  /// check the options against the actions, and reads no option files.
  ///
  /// Returns a value of `status`. After a failure getErrorDesc() returns the reason, except for
  /// `status::exceptionCaught`, and the result keeps everything stored before the failure.
  virtual int parseArgsVector(int argc, const char* const* argv, IParseResult* result) = 0;

  /// Parses a text with one argument a line into `result`. White space before an argument is
  /// dropped, and so are carriage returns at the end of a line, empty lines, and lines that begin
  /// with ';' or '#'. There is no quoting and no splitting: "--name=two words" on a line is one
  /// argument. Defaults are not stored. A null text counts as the empty text. A text that is
  /// exactly "-1", without a newline, is read as "?". Returns a status like parseArgsVector().
  virtual int parseStream(const char* text, IParseResult* result) = 0;

  /// The reason for the last failure. The parser owns the text until destroy(). Read it only after
  /// a failure: success does not clear it. Two failures have no reason of their own and keep the
  /// text of an earlier failure: `status::exceptionCaught`, and `status::valueRefused` for a result
  /// with options of another parser. The text is empty if there is no memory for the reason.
  virtual const char* getErrorDesc() = 0;

  /// The help for the whole tool: its actions with their descriptions, or every option if there are
  /// no actions. Actions, and the options of a section, are sorted by name; sections are in the
  /// order in which their headings were first declared. No help lists a positional option or an
  /// option without a description. With `hidden`, the help lists only the declarations of the group
  /// "kivo_hidden". Every help operation returns "Unknown error handled." if the help cannot be
  /// made, and the empty text if there is no memory even for that.
  virtual const char* getDescription(bool hidden) = 0;

  /// The help for one option or action, found by any of its names. For a null topic, returns the
  /// help for the whole tool; for an unknown topic, a remark and the help for the whole tool.
  virtual const char* getDescription(const char* topic, bool hidden) = 0;

  /// Deleted: a topic alone would be converted to `hidden` and show the hidden help.
  template <class Topic, class = std::enable_if_t<std::is_convertible_v<Topic, const char*>>>
  const char* getDescription(Topic topic) = delete;

  /// The help for the modifiers of one action. For an unknown action, returns a remark and the help
  /// for the whole tool.
  virtual const char* getActionModifiersDescription(const char* actionName, bool hidden) = 0;

  /// The help for the options that are accepted with every action.
  virtual const char* getGlobalModifiersDescription(bool hidden) = 0;

  /// Registers a handler for the events of every parse. The handler is notified once of each event,
  /// even if it is added several times. The caller keeps the ownership of the handler and must
  /// remove it before destroying it. Null and the parser itself are ignored, and so is a handler
  /// for which there is no memory.
  virtual void addHandler(EventHandler* handler) = 0;

  /// Removes a handler; a handler that is not registered is ignored.
  virtual void removeHandler(EventHandler* handler) = 0;

  /// Declares the option "option-file", whose values are files with further arguments, in the
  /// format of parseStream(). The files are read after the command line, in the order given. A file
  /// may name further files, but must not include itself, directly or through others. Returns true.
  virtual bool addOptionFileOption(const char* description, const char* group) = 0;

  /// Allows the actions with these first names to be given together. Each call adds one set; all
  /// actions of a command line must be in one of these sets. Returns true, or false with nothing
  /// added if memory runs out.
  virtual bool allowSimultaneousActions(const std::set<std::string>& actionNames) = 0;

 protected:
  virtual ~IParser();
};

/// Makes a parser and stores it in `*parser`; `flags` come from `parserFlags`.
///
/// Returns 0, or 3 with `*parser` untouched if the parser cannot be made or `parser` is null.
/// The caller owns the parser and destroys it with destroy().
KIVO_API int createParser(IParser** parser, int flags);

}  // namespace kivo_3_3

#pragma GCC diagnostic pop
