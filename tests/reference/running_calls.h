#pragma once

// The parses that run now and the events that parsers are passing on now, innermost last.
//
// Handlers may start parses, and parsers may be handlers, so these calls nest. What a parse
// or an event has to know of the calls around it is asked here.

#include <kivo/event_handler.h>
#include <kivo/parse_result.h>

namespace kivo_3_3::reference {

// What an event is about. A parse is no event.
enum class Event { none, optionParsed, valueParsed, unknownArgument };

// A parse, from its construction to its destruction. The result is null where nothing is
// stored.
class RunningParse {
 public:
  RunningParse(const EventHandler& parser, const IParseResult* result);
  RunningParse(const RunningParse&) = delete;
  RunningParse& operator=(const RunningParse&) = delete;
  ~RunningParse();

  // Whether a handler started this parse while the same parser was filling the same result.
  bool isPartOfOuterParse() const;
};

// An event that a parser is passing on. `text` is the copy that the parser keeps.
class RunningEvent {
 public:
  RunningEvent(const EventHandler& parser, Event event, const char* text);
  RunningEvent(const RunningEvent&) = delete;
  RunningEvent& operator=(const RunningEvent&) = delete;
  ~RunningEvent();
};

// Whether the parser is passing on this very event, within the innermost parse.
bool isPassingOn(const EventHandler& parser, Event event, const char* text);

// Raises a standard exception if more than a hundred parses were nested inside or around the
// innermost call while it ran: then all of these parses end.
void throwIfTooDeep();

// Whether a running call goes on with the parser or the result.
bool isInUse(const EventHandler& parser);
bool isInUse(const IParseResult& result);

}  // namespace kivo_3_3::reference
