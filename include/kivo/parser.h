#pragma once

#include <kivo/event_handler.h>
#include <kivo/export.h>
#include <kivo/option.h>
#include <kivo/parse_result.h>
#include <kivo/status.h>

#include <set>
#include <string>
#include <type_traits>

// The base class is deleted through neither: see event_handler.h.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

namespace kivo_3_3 {

/// How a parser treats what it meets; combined with `|` for createParser().
namespace parserFlags {

/// An argument that is no option and nobody's value is an error; without this it is
/// dropped.
constexpr int unknownArgumentIsError = 2;
/// Arguments behind "--" are given to the positional option as well.
constexpr int leftoverArgumentsArePositional = 4;
/// An argument that begins with "-" is never given to the positional option, except
/// behind "--".
constexpr int dashArgumentsAreNeverPositional = 8;
/// Options do not split their values at commas unless they are told to.
constexpr int noTokenizer = 32;

}  // namespace parserFlags

/// Holds what a tool understands, parses command lines by it, and writes the help.
///
///   createParser (option | action | modifier)* (createResult parseArgsVector get*)* destroy
///
/// One parser is used by one thread at a time, and so is one result; parsers on several
/// threads may be used at once. Each thread has a trace of its own. A line of the trace, or a
/// warning, is written as a whole; a stream that the tool puts in the place of the console has to
/// be safe for several threads itself. Positions are drawn from
/// one counter of the process, so that with several parsing threads those of one parse still
/// rise, but with gaps. Every text a parser hands out belongs to it and lives until destroy().
/// A null text counts as the empty one. After any failure the parser stays usable.
///
/// The counter has 2,147,483,646 positions, and each occurrence, value, leftover argument and
/// applied default draws one. A parse for which none is left ends with
/// `status::unidentifiedProblem`, and the result keeps what was stored until then. A process that
/// parses without end does so in child processes, each of which has a counter of its own.
///
/// A parser is an event handler too, so that it can be registered with another parser:
/// it passes each event on to its own handlers. Where the very same event (its kind and its
/// name or argument) leads back to a parser that is passing it on, the event goes no further,
/// and counts as accepted there. Any other event is passed on as usual, also one that a handler
/// sends through the parser that is just notifying it.
class KIVO_API IParser : public EventHandler {
 public:
  /// Ends the parser and every text it handed out. Results live on; handlers are not
  /// the parser's.
  virtual void destroy() = 0;

  /// Makes an empty result and stores it in `*result`.
  ///
  /// Returns 0, or 3 with `*result` untouched when it cannot be made. The caller
  /// owns the result, may keep it longer than the parser, and ends it with destroy().
  virtual int createResult(IParseResult** result) = 0;

  /// Declares an option that goes with every action.
  ///
  /// `names` are its names, separated by commas, the one for messages first: at most
  /// three, and then the third has one or two characters. `type` is the type of its
  /// values, `vtNull` for an option without. A `vtBool` option takes no value from the
  /// command line: it is given as "--name" or "--no-name". `group` places it in a
  /// section of the help: "heading", or "heading:introduction"; null is the section
  /// without a heading.
  ///
  /// A name that is taken already, or too many of them, rejects the declaration: the
  /// builder returned then is harmless, and nothing is declared. The same happens when
  /// memory runs out. There is no message; only isOptionDeclared() tells. The names of every
  /// declared option, action and modifier are taken, and so is each name of a `vtBool` option
  /// with "no-" ahead. A new `vtBool` option is checked by its names alone: after an option
  /// "no-x", a `vtBool` option "x" is accepted, and "--no-x" stays the first option.
  /// A name of a `vtBool` option that itself begins with "no-" turns the option off. An
  /// option that has no other name is never on: declare "cache", not "no-cache".
  virtual IOption* option(const char* names, const char* description, variant_type_t type,
                          const char* group = nullptr) = 0;

  /// Declares an action, one of the things the tool can do. At most one is accepted on
  /// a command line unless allowSimultaneousActions() says otherwise; where a parser
  /// has actions, a command line with options needs one.
  virtual IOption* action(const char* names, const char* description, variant_type_t type,
                          const char* group = nullptr) = 0;

  /// Declares an option that goes only with the given actions, separated by commas;
  /// null makes it one that goes with every action.
  virtual IOption* modifier(const char* names, const char* actions, const char* description,
                            variant_type_t type, const char* group = nullptr) = 0;

  /// Whether one of the actions (`amongActions`), or of the options and modifiers, has
  /// this name, among all its names and in the given group, null for any group.
  virtual bool isOptionDeclared(const char* name, bool amongActions, const char* group) = 0;

  /// Parses a command line into `result`; `argv[0]`, the name of the tool, is passed
  /// over. Declared defaults are stored first. A null in `argv` ends it early. With a
  /// null `result` each argument is checked and announced, and nothing is kept; what goes
  /// with which action is then not checked, and option files are not read.
  ///
  /// Returns a value of `status`. After a failure getErrorDesc() tells the reason, except
  /// for `status::exceptionCaught`, and the result holds what was stored until then.
  virtual int parseArgsVector(int argc, const char* const* argv, IParseResult* result) = 0;

  /// Parses a text with one argument a line into `result`. White space ahead of an
  /// argument is dropped, and so are empty lines and those that begin with ';' or '#'.
  /// Nothing is quoted or split: "--name=two words" on a line is one argument. Defaults
  /// are not stored. A null text counts as the empty one. A text that is exactly "-1", without
  /// a newline, is read as "?". Returns as parseArgsVector().
  virtual int parseStream(const char* text, IParseResult* result) = 0;

  /// The reason for the last failure; the parser owns the text until destroy().
  /// Read it only after a failure: success does not clear it. A failure without a reason of
  /// its own leaves the text of the failure before: `status::exceptionCaught`, and
  /// `status::valueRefused` for a result with options of another parser. Empty when there is
  /// no memory for the text.
  virtual const char* getErrorDesc() = 0;

  /// The help for the whole tool: its actions with their descriptions, or without
  /// actions every option. Actions, and the options of a section, are sorted by name; sections
  /// are in the order in which their headings were first declared. No help lists a positional
  /// option or an option without a description. `hidden` asks for what was declared in the
  /// group "kivo_hidden", and for that alone. Every help operation answers "Unknown error
  /// handled." when it cannot do better, and the empty text when memory runs out for good.
  virtual const char* getDescription(bool hidden) = 0;

  /// The help for one option or action, found by any of its names. A null topic means
  /// the whole tool; an unknown one is answered with a remark and the whole tool's.
  virtual const char* getDescription(const char* topic, bool hidden) = 0;

  /// A topic by itself would be taken for `hidden`, and show the hidden help.
  template <class Topic, class = std::enable_if_t<std::is_convertible_v<Topic, const char*>>>
  const char* getDescription(Topic topic) = delete;

  /// The help for the modifiers of one action; an unknown one is answered with a
  /// remark and the whole tool's help.
  virtual const char* getActionModifiersDescription(const char* actionName, bool hidden) = 0;

  /// The help for the options that go with every action.
  virtual const char* getGlobalModifiersDescription(bool hidden) = 0;

  /// Registers a handler for the events of every parse; it is told once however often
  /// it is added. It stays the caller's and must be removed before it ends. Null, and
  /// the parser itself, are ignored; so is a handler for which there is no memory.
  virtual void addHandler(EventHandler* handler) = 0;

  /// Takes a handler out; one that is not registered is ignored.
  virtual void removeHandler(EventHandler* handler) = 0;

  /// Declares the option "option-file", whose values are files with further arguments,
  /// laid out as for parseStream(). They are read when the command line has been
  /// walked, in the order given; a file may name further files, but not lead back to
  /// itself. Returns true.
  virtual bool addOptionFileOption(const char* description, const char* group) = 0;

  /// Lets the actions with these first names be given together. Each call adds one
  /// set; the actions of a command line must all be in one of them. Returns true, or
  /// false with nothing added when memory runs out.
  virtual bool allowSimultaneousActions(const std::set<std::string>& actionNames) = 0;

 protected:
  virtual ~IParser();
};

/// Makes a parser and stores it in `*parser`; `flags` come from `parserFlags`.
///
/// Returns 0, or 3 with `*parser` untouched when it cannot be made or `parser` is null.
/// The caller owns the parser and ends it with destroy().
KIVO_API int createParser(IParser** parser, int flags);

}  // namespace kivo_3_3

#pragma GCC diagnostic pop
