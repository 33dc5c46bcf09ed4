#pragma once

// The stack of running calls: the parses, and the events that parsers are passing on; innermost
// last.
//
// Handlers may start parses, and parsers may be handlers, so these calls nest. A parse or an event
// asks here about the calls around it.

#include <kivo/event_handler.h>
#include <kivo/parse_result.h>

namespace kivo_3_3::reference {

// The kind of an event. A parse is not an event.
enum class Event { none, optionParsed, valueParsed, unknownArgument };

// A parse that is on the stack for the lifetime of this object. The result is null if the parse
// stores nothing.
class RunningParse {
 public:
  RunningParse(const EventHandler& parser, const IParseResult* result);
  RunningParse(const RunningParse&) = delete;
  RunningParse& operator=(const RunningParse&) = delete;
  ~RunningParse();

  // Whether a handler started this parse while the same parser was filling the same result.
  bool isPartOfOuterParse() const;
};

// An event that a parser is passing on; on the stack for the lifetime of this object. `text` is the
// copy that the parser has interned.
class RunningEvent {
 public:
  RunningEvent(const EventHandler& parser, Event event, const char* text);
  RunningEvent(const RunningEvent&) = delete;
  RunningEvent& operator=(const RunningEvent&) = delete;
  ~RunningEvent();
};

// Whether the parser is already passing on this event (same kind and same text) within the
// innermost parse.
bool isPassingOn(const EventHandler& parser, Event event, const char* text);

// Throws a standard exception if more than a hundred parses were nested while the innermost call
// was on the stack. All parses of that nest fail.
void throwIfTooDeep();

// Whether a call on the stack uses the parser or the result.
bool isInUse(const EventHandler& parser);
bool isInUse(const IParseResult& result);

}  // namespace kivo_3_3::reference
